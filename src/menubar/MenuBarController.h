#pragma once

#include <calendar/UpcomingEventsQuery.h>
#include <platform/MainQueue.h>
#include <platform/Menu.h>
#include <platform/Published.h>
#include <platform/StatusItem.h>
#include <preferences/PreferencesStore.h>

#include <QRect>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// The program's item in the status area: the paw, outlined while alerts are paused; beside it the
/// next meeting and its countdown, as of the last minute. Main thread only.
class MenuBarController {
public:
    /// What a click or the menu leads to; where one is empty, nothing. The place is the one of
    /// `StatusItemClick`.
    struct Actions {
        std::function<void(const std::optional<QRect> &place)> leftClick;
        std::function<void(const Menu &menu, const std::optional<QRect> &place)> showMenu;
        // Of the following, an empty one shows its item as one that cannot be chosen.
        std::function<void()> openPreferences;
        std::function<void()> checkForUpdates;
        std::function<void()> quit;
    };

    /// What is passed in must outlive the controller.
    MenuBarController(StatusBar &statusBar, PreferencesStore &preferences,
                      const UpcomingEventsQuery &query, MainQueue &queue, Actions actions);
    MenuBarController(const MenuBarController &) = delete;
    MenuBarController &operator=(const MenuBarController &) = delete;

    /// Follow the settings from now on; the display comes after them on the next turn of the loop.
    void observePauseState();
    void observeDisplayInputs();

    /// Applies the display anew once a minute, counted from this call.
    void startMinuteTick();

    /// Reads settings and calendars and shows what they say. Without an item, nothing.
    void applyDisplay();

    [[nodiscard]] StatusItemPlace itemPlace() const;

    /// Ends all of it and takes the item away. It does not come back.
    void stop();

private:
    void handleClick(const StatusItemClick &click);
    [[nodiscard]] Menu menu() const;
    [[nodiscard]] std::optional<UpcomingEvent> displayEvent(Instant now) const;
    void applyDisplaySoon();

    PreferencesStore &m_preferences;
    const UpcomingEventsQuery &m_query;
    MainQueue &m_queue;
    const Actions m_actions;
    std::unique_ptr<StatusItem> m_statusItem;
    std::vector<Subscription> m_cancellables;
    ScheduledWork m_minuteTimer;
    ScheduledWork m_pendingDisplay;
};

} // namespace vantrel
