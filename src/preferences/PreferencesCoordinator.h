#pragma once

#include <calendar/CalendarAccess.h>
#include <calendar/CalendarRepository.h>
#include <platform/Published.h>
#include <theme/Theme.h>

#include <functional>
#include <optional>

namespace vantrel {

class LaunchAtLoginManager;

/// What the preferences window asks of the program's root. Main thread only.
class PreferencesCoordinator {
public:
    virtual ~PreferencesCoordinator() = default;

    /// Calls `subscriber` with the calendars by account at once, and with each further list before
    /// it is stored.
    [[nodiscard]] virtual Subscription observeCalendarSnapshot(
        const std::function<void(const CalendarRepository::Snapshot &)> &subscriber) = 0;

    /// Like `observeCalendarSnapshot`.
    [[nodiscard]] virtual Subscription observeCalendarAccessStatus(
        const std::function<void(const CalendarAccess::Status &)> &subscriber) = 0;

    /// Has the user asked. The answer comes to the observers, or never.
    virtual void requestCalendarAccess() = 0;

    /// Shows what a takeover looks like, in the selected theme or in another one.
    virtual void previewTakeover(std::optional<Theme> themeOverride) = 0;

    [[nodiscard]] virtual LaunchAtLoginManager &launchAtLoginManager() = 0;
};

} // namespace vantrel
