#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantrel {

/// A page of the preferences window.
enum class PreferencesTab {
    calendars,
    general,
    takeover,
    eventFilters,
    menuBar,
    appearance,
    about
};

/// All pages, in the order of the sidebar.
inline constexpr std::array allPreferencesTabs{
    PreferencesTab::calendars,    PreferencesTab::general, PreferencesTab::takeover,
    PreferencesTab::eventFilters, PreferencesTab::menuBar, PreferencesTab::appearance,
    PreferencesTab::about};

/// Equal to the name of the case.
[[nodiscard]] QString rawValue(PreferencesTab tab);

/// Empty for a name that is no page's.
[[nodiscard]] std::optional<PreferencesTab> preferencesTabFromRawValue(const QString &rawValue);

/// As shown in the sidebar.
[[nodiscard]] QString title(PreferencesTab tab);

/// The name of its symbol.
[[nodiscard]] QString icon(PreferencesTab tab);

} // namespace vantrel
