#pragma once

#include <platform/Menu.h>

#include <functional>

namespace vantrel {

/// Receives what is chosen in the popover's menu. Main thread only.
class UpcomingMenuTarget {
public:
    UpcomingMenuTarget() = default;
    UpcomingMenuTarget(const UpcomingMenuTarget &) = delete;
    UpcomingMenuTarget &operator=(const UpcomingMenuTarget &) = delete;

    /// The one that the program's menus are made by.
    [[nodiscard]] static UpcomingMenuTarget &shared();

    // Set by whoever owns what they lead to, who takes them away again at its end.
    std::function<void()> openPreferencesHandler;
    std::function<void()> previewTakeoverHandler;
    std::function<void()> openRecapHandler;
    std::function<void()> quitHandler;

    // Each calls its handler; without one nothing happens.
    void openPreferences() const;
    void previewTakeover() const;
    void openRecap() const;
    void quitApp() const;

    /// The menu with the handlers as they are at this moment: without one, its item cannot be
    /// chosen. The target must outlive the menu.
    [[nodiscard]] Menu menu() const;

private:
    using Action = void (UpcomingMenuTarget::*)() const;

    [[nodiscard]] std::function<void()> itemAction(const std::function<void()> &handler,
                                                   Action action) const;
};

} // namespace vantrel
