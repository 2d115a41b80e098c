#pragma once

#include "RecapViewModel.h"
#include "RescueLog.h"

#include <platform/MainQueue.h>
#include <platform/Windows.h>
#include <preferences/PreferencesStore.h>

#include <memory>
#include <vector>

namespace vantrel {

/// Owns the recap's window, which is kept when it is closed. What is counted and which theme is
/// chosen while it is there shows at once. Main thread only.
class RecapWindowController {
public:
    /// All of them must outlive the controller. Shows nothing yet.
    RecapWindowController(RescueLog &rescueLog, PreferencesStore &preferences, Windows &windows,
                          MainQueue &queue);
    RecapWindowController(const RecapWindowController &) = delete;
    RecapWindowController &operator=(const RecapWindowController &) = delete;

    /// Counts anew, up to today, and takes the selected theme.
    void refresh();

    /// Brings the window to the front, with the keyboard in it.
    void show() { m_window->show(); }

private:
    RescueLog &m_rescueLog;
    PreferencesStore &m_preferences;
    RecapViewModel m_viewModel;
    std::unique_ptr<DesktopWindow> m_window;
    ScheduledWork m_refresh;
    std::vector<Subscription> m_subscriptions;
};

} // namespace vantrel
