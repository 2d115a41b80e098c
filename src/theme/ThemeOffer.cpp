#include "ThemeOffer.h"

#include "Theme.h"

namespace vantrel {

QVariantList themeOffers() {
    QVariantList offers;
    for (const Theme theme : allThemes)
        offers.append(QVariant::fromValue(
            ThemeOffer{name(theme), description(theme), ThemePalette(palette(theme))}));
    return offers;
}

} // namespace vantrel
