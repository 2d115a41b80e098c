#include "AppearanceTabModel.h"

#include <algorithm>
#include <utility>

namespace vantrel {

AppearanceTabModel::AppearanceTabModel(PreferencesStore &preferences,
                                       std::function<void()> onShowDemoAlert)
    : m_preferences(preferences),
      m_onShowDemoAlert(std::move(onShowDemoAlert)),
      m_subscription(preferences.selectedThemePublisher().subscribe([this](Theme theme) {
          m_selected = static_cast<int>(std::find(allThemes.begin(), allThemes.end(), theme) -
                                        allThemes.begin());
          Q_EMIT selectedChanged();
      })) {}

QVariantList AppearanceTabModel::themes() const {
    QVariantList offers;
    for (const Theme theme : allThemes)
        offers.append(QVariant::fromValue(
            ThemeOffer{name(theme), description(theme), ThemePalette(palette(theme))}));
    return offers;
}

void AppearanceTabModel::select(int index) const {
    m_preferences.setSelectedTheme(allThemes.at(static_cast<std::size_t>(index)));
}

} // namespace vantrel
