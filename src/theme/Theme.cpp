#include "Theme.h"

#include <algorithm>

namespace vantrel {

namespace {

struct Entry {
    const char16_t *rawValue;
    const char16_t *name;
    const char16_t *description;
};

Entry entry(Theme theme) {
    switch (theme) {
    case Theme::hearth:
        return {u"hearth", u"Hearth", u"Warm amber and wood, the family default"};
    case Theme::summit:
        return {u"summit", u"Summit", u"Clean and minimal, snow-light"};
    case Theme::alpineDawn:
        return {u"alpineDawn", u"Alpine Dawn", u"Cool morning blues"};
    case Theme::dusk:
        return {u"dusk", u"Dusk", u"Deep indigo, late-day calm"};
    case Theme::chestnut:
        return {u"chestnut", u"Chestnut", u"Tobble's coat — cream and chestnut"};
    }
    Q_UNREACHABLE();
}

} // namespace

QString rawValue(Theme theme) {
    return QString::fromUtf16(entry(theme).rawValue);
}

std::optional<Theme> themeFromRawValue(const QString &rawValue) {
    const auto found = std::find_if(allThemes.cbegin(), allThemes.cend(), [&](Theme theme) {
        return vantrel::rawValue(theme) == rawValue;
    });
    return found == allThemes.cend() ? std::nullopt : std::optional(*found);
}

QString name(Theme theme) {
    return QString::fromUtf16(entry(theme).name);
}

QString description(Theme theme) {
    return QString::fromUtf16(entry(theme).description);
}

} // namespace vantrel
