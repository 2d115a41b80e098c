#pragma once

#include "PreferencesModel.h"

#include <platform/Windows.h>

#include <memory>

namespace vantrel {

/// Owns the preferences window, which is kept when it is closed. Main thread only.
class PreferencesWindowController {
public:
    /// All of them must outlive the controller. Shows nothing yet.
    PreferencesWindowController(PreferencesCoordinator &coordinator, PreferencesStore &preferences,
                                Workspace &workspace, Windows &windows,
                                CurrentCalendar currentCalendar);
    PreferencesWindowController(const PreferencesWindowController &) = delete;
    PreferencesWindowController &operator=(const PreferencesWindowController &) = delete;

    /// Brings the window to the front, with the keyboard in it, and reads anew what may have
    /// changed unnoticed.
    void show();

    [[nodiscard]] PreferencesModel &model() { return m_model; }

private:
    PreferencesModel m_model;
    std::unique_ptr<DesktopWindow> m_window;
};

} // namespace vantrel
