#include "Palette.h"

#include "BrandColors.h"
#include "HexColor.h"
#include "Theme.h"

namespace vantrel {

namespace {

constexpr Color white{1.0, 1.0, 1.0, 1.0};

Color faded(Color color, double opacity) {
    color.alpha = opacity;
    return color;
}

const Palette &hearth() {
    static const Palette palette{
        .surfaceBackground = BrandColors::parchment(),
        .primaryText = BrandColors::bark(),
        .secondaryText = faded(BrandColors::bark(), 0.75),
        .accent = BrandColors::honey(),
        .accentForeground = white,
        .dimSurface = BrandColors::cream(),
        .dotStroke = faded(BrandColors::amber(), 0.25),
        .isDark = false,
    };
    return palette;
}

const Palette &summit() {
    static const Palette palette{
        .surfaceBackground = colorFromHex(u"F4F5F7"),
        .primaryText = colorFromHex(u"1F2937"),
        .secondaryText = faded(colorFromHex(u"1F2937"), 0.65),
        .accent = colorFromHex(u"5A7B5C"),
        .accentForeground = white,
        .dimSurface = colorFromHex(u"E9ECEF"),
        .dotStroke = faded(colorFromHex(u"5A7B5C"), 0.18),
        .isDark = false,
    };
    return palette;
}

const Palette &alpineDawn() {
    static const Palette palette{
        .surfaceBackground = colorFromHex(u"E8EEF4"),
        .primaryText = colorFromHex(u"1A2A3F"),
        .secondaryText = faded(colorFromHex(u"1A2A3F"), 0.7),
        .accent = colorFromHex(u"4A6FA5"),
        .accentForeground = white,
        .dimSurface = colorFromHex(u"D8E2EE"),
        .dotStroke = faded(colorFromHex(u"4A6FA5"), 0.22),
        .isDark = false,
    };
    return palette;
}

const Palette &dusk() {
    static const Palette palette{
        .surfaceBackground = colorFromHex(u"1F1B2E"),
        .primaryText = colorFromHex(u"F5EBDC"),
        .secondaryText = faded(colorFromHex(u"F5EBDC"), 0.7),
        .accent = colorFromHex(u"E8A04C"),
        .accentForeground = colorFromHex(u"1F1B2E"),
        .dimSurface = colorFromHex(u"2A2541"),
        .dotStroke = faded(colorFromHex(u"E8A04C"), 0.4),
        .isDark = true,
    };
    return palette;
}

const Palette &chestnut() {
    static const Palette palette{
        .surfaceBackground = BrandColors::cream(),
        .primaryText = colorFromHex(u"4B2412"),
        .secondaryText = faded(colorFromHex(u"4B2412"), 0.7),
        .accent = colorFromHex(u"8B4513"),
        .accentForeground = BrandColors::cream(),
        .dimSurface = colorFromHex(u"EDDCC4"),
        .dotStroke = faded(colorFromHex(u"8B4513"), 0.25),
        .isDark = false,
    };
    return palette;
}

} // namespace

const Palette &palette(Theme theme) {
    switch (theme) {
    case Theme::hearth:
        return hearth();
    case Theme::summit:
        return summit();
    case Theme::alpineDawn:
        return alpineDawn();
    case Theme::dusk:
        return dusk();
    case Theme::chestnut:
        return chestnut();
    }
    Q_UNREACHABLE();
}

} // namespace vantrel
