#include "BrandColors.h"

#include "HexColor.h"

namespace vantrel {

const Color &BrandColors::honey() {
    static const Color color = colorFromHex(u"E8A04C");
    return color;
}

const Color &BrandColors::amber() {
    static const Color color = colorFromHex(u"D17F2A");
    return color;
}

const Color &BrandColors::moss() {
    static const Color color = colorFromHex(u"8FA47C");
    return color;
}

const Color &BrandColors::blush() {
    static const Color color = colorFromHex(u"D97E70");
    return color;
}

const Color &BrandColors::cream() {
    static const Color color = colorFromHex(u"F5EBDC");
    return color;
}

const Color &BrandColors::parchment() {
    static const Color color = colorFromHex(u"FAF3E7");
    return color;
}

const Color &BrandColors::bark() {
    static const Color color = colorFromHex(u"3D2E22");
    return color;
}

} // namespace vantrel
