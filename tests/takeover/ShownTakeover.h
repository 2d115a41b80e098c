#pragma once

#include <fakes/RecordingPanels.h>
#include <takeover/TakeoverViewModel.h>

#include <QString>

#include <memory>
#include <stdexcept>
#include <vector>

namespace vantrel {

/// The interactive panel that is in front; null when none is. Of several the one made last.
inline std::shared_ptr<fakes::RecordingPanels::Record>
interactivePanel(const fakes::RecordingPanels &panels) {
    std::shared_ptr<fakes::RecordingPanels::Record> found;
    for (const auto &panel : panels.shown()) {
        if (panel->role == PanelRole::interactive)
            found = panel;
    }
    return found;
}

/// The view model behind the panel, which must not have gone.
inline TakeoverViewModel *viewModelOf(const fakes::RecordingPanels::Record &panel) {
    return panel.content.properties.value(QStringLiteral("viewModel")).value<TakeoverViewModel *>();
}

/// The view model of the takeover that is up; a test that finds none fails.
inline TakeoverViewModel *shownViewModel(const fakes::RecordingPanels &panels) {
    const auto panel = interactivePanel(panels);
    if (!panel)
        throw std::logic_error("no takeover is up");
    return viewModelOf(*panel);
}

/// The titles of the interactive panels that are in front.
inline std::vector<QString> shownTitles(const fakes::RecordingPanels &panels) {
    std::vector<QString> titles;
    for (const auto &panel : panels.shown()) {
        if (panel->role == PanelRole::interactive)
            titles.push_back(viewModelOf(*panel)->title());
    }
    return titles;
}

/// The monitors whose panels of that role are in front, in the order in which they were made.
inline std::vector<QString> coveredScreens(const fakes::RecordingPanels &panels, PanelRole role) {
    std::vector<QString> ids;
    for (const auto &panel : panels.shown()) {
        if (panel->role == role)
            ids.push_back(panel->screen.id);
    }
    return ids;
}

} // namespace vantrel
