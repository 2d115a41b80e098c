#include "HexColor.h"

#include <cstdint>
#include <limits>
#include <optional>

namespace vantrel {

namespace {

constexpr std::optional<unsigned> digit(QChar character) {
    const char16_t code = character.unicode();
    if (code >= u'0' && code <= u'9')
        return code - u'0';
    if (code >= u'a' && code <= u'f')
        return code - u'a' + 10U;
    if (code >= u'A' && code <= u'F')
        return code - u'A' + 10U;
    return std::nullopt;
}

std::uint64_t scanHexadecimal(QStringView text) {
    if (text.startsWith(u"0x", Qt::CaseInsensitive))
        text = text.sliced(2);
    constexpr auto largest = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t number = 0;
    for (const QChar character : text) {
        const auto value = digit(character);
        if (!value)
            break;
        if (number > (largest >> 4U))
            return largest;
        number = (number << 4U) + *value;
    }
    return number;
}

} // namespace

Color colorFromHex(QStringView hex) {
    const std::uint64_t rgb = scanHexadecimal(hex.trimmed());
    const auto component = [rgb](unsigned shift) {
        return static_cast<double>((rgb >> shift) & 0xFFU) / 255.0;
    };
    return Color{component(16), component(8), component(0), 1.0};
}

} // namespace vantrel
