#include "PreferencesModel.h"

#include <theme/SidebarTab.h>

#include <utility>

namespace vantrel {

PreferencesModel::PreferencesModel(PreferencesCoordinator &coordinator,
                                   PreferencesStore &preferences, Workspace &workspace,
                                   CurrentCalendar currentCalendar)
    : m_currentCalendar(std::move(currentCalendar)),
      m_calendars(coordinator, preferences),
      m_general(preferences, coordinator.launchAtLoginManager(), workspace),
      m_takeover(preferences),
      m_eventFilters(preferences, m_currentCalendar),
      m_menuBar(preferences),
      m_appearance(preferences, [&coordinator] { coordinator.previewTakeover(std::nullopt); }),
      m_about(preferences),
      m_themeSubscription(preferences.selectedThemePublisher().subscribe([this](Theme theme) {
          m_themePalette = ThemePalette(palette(theme));
          Q_EMIT themePaletteChanged();
      })) {}

bool PreferencesModel::isRightToLeft() const {
    return m_currentCalendar().locale().textDirection() == Qt::RightToLeft;
}

QVariantList PreferencesModel::tabs() const {
    QVariantList tabs;
    for (const PreferencesTab tab : allPreferencesTabs)
        tabs.append(QVariant::fromValue(SidebarTab{title(tab), icon(tab)}));
    return tabs;
}

void PreferencesModel::select(PreferencesTab tab) {
    if (m_selection == tab)
        return;
    m_selection = tab;
    m_about.setShowingResetConfirm(false);
    if (tab == PreferencesTab::general)
        m_general.refresh();
    Q_EMIT selectionChanged();
}

void PreferencesModel::refresh() {
    m_general.refresh();
    m_eventFilters.refresh();
    Q_EMIT refreshed();
}

} // namespace vantrel
