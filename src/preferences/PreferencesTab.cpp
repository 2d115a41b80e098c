#include "PreferencesTab.h"

#include <algorithm>

namespace vantrel {

namespace {

struct TabText {
    QLatin1String rawValue;
    QLatin1String title;
    QLatin1String icon;
};

TabText textOf(PreferencesTab tab) {
    using L = QLatin1String;
    switch (tab) {
    case PreferencesTab::calendars:
        return {L("calendars"), L("Calendars"), L("calendar")};
    case PreferencesTab::general:
        return {L("general"), L("General"), L("gear")};
    case PreferencesTab::takeover:
        return {L("takeover"), L("Takeover"), L("rectangle.inset.filled")};
    case PreferencesTab::eventFilters:
        return {L("eventFilters"), L("Event Filters"), L("line.3.horizontal.decrease.circle")};
    case PreferencesTab::menuBar:
        return {L("menuBar"), L("Menu Bar"), L("menubar.rectangle")};
    case PreferencesTab::appearance:
        return {L("appearance"), L("Appearance"), L("paintpalette")};
    case PreferencesTab::about:
        return {L("about"), L("About"), L("info.circle")};
    }
    Q_UNREACHABLE();
}

} // namespace

QString rawValue(PreferencesTab tab) {
    return textOf(tab).rawValue;
}

std::optional<PreferencesTab> preferencesTabFromRawValue(const QString &name) {
    const auto *found =
        std::find_if(allPreferencesTabs.begin(), allPreferencesTabs.end(),
                     [&name](PreferencesTab tab) { return textOf(tab).rawValue == name; });
    return found == allPreferencesTabs.end() ? std::nullopt : std::optional(*found);
}

QString title(PreferencesTab tab) {
    return textOf(tab).title;
}

QString icon(PreferencesTab tab) {
    return textOf(tab).icon;
}

} // namespace vantrel
