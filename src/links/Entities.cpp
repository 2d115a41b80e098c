#include "Entities.h"

#include <QLatin1String>

#include <algorithm>

namespace vantrel {

namespace {

struct Named {
    QLatin1String name;
    char32_t character;
};

constexpr Named names[] = {
    {QLatin1String("amp"), U'&'},    {QLatin1String("lt"), U'<'},    {QLatin1String("gt"), U'>'},
    {QLatin1String("quot"), U'"'},   {QLatin1String("apos"), U'\''}, {QLatin1String("nbsp"), 0xA0},
    {QLatin1String("zwnj"), 0x200C},
};

/// "&", a name or number of at most eight characters, ";".
constexpr qsizetype longest = 10;

} // namespace

std::optional<Entity> entityAt(QStringView text, qsizetype position) {
    const QStringView rest = text.mid(position, longest);
    if (!rest.startsWith(u'&'))
        return std::nullopt;
    const qsizetype semicolon = rest.indexOf(u';');
    if (semicolon < 2)
        return std::nullopt;
    const QStringView body = rest.mid(1, semicolon - 1);
    const qsizetype length = semicolon + 1;

    if (body.startsWith(u'#')) {
        const bool isHex = body.size() > 1 && (body[1] == u'x' || body[1] == u'X');
        bool isNumber = false;
        const uint character = body.mid(isHex ? 2 : 1).toUInt(&isNumber, isHex ? 16 : 10);
        if (!isNumber || character == 0 || character > QChar::LastValidCodePoint)
            return std::nullopt;
        return Entity{length, character};
    }
    const auto *named = std::find_if(std::begin(names), std::end(names),
                                     [&](const Named &entry) { return body == entry.name; });
    if (named == std::end(names))
        return std::nullopt;
    return Entity{length, named->character};
}

} // namespace vantrel
