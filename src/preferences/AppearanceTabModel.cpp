#include "AppearanceTabModel.h"

#include <theme/ThemeOffer.h>

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
    return themeOffers();
}

void AppearanceTabModel::select(int index) const {
    m_preferences.setSelectedTheme(allThemes.at(static_cast<std::size_t>(index)));
}

} // namespace vantrel
