#pragma once

#include "AgentStatus.h"
#include "CalendarSelection.h"

#include <calendar/CalendarAccess.h>
#include <calendar/CalendarChangeMonitor.h>
#include <calendar/CalendarRepository.h>
#include <calendar/UpcomingEventsQuery.h>
#include <copy/TemplateCopyProvider.h>
#include <menubar/MenuBarController.h>
#include <menubar/PopoverModel.h>
#include <menubar/PopupMenu.h>
#include <menubar/UpcomingEventsPopover.h>
#include <menubar/UpcomingEventsViewModel.h>
#include <onboarding/OnboardingWindowController.h>
#include <platform/Activation.h>
#include <platform/LocalCalendar.h>
#include <platform/LoginItem.h>
#include <platform/MainQueue.h>
#include <platform/NotificationPermission.h>
#include <platform/Popups.h>
#include <platform/Published.h>
#include <platform/ScreenLayout.h>
#include <platform/ShieldingPanels.h>
#include <platform/SoftwareUpdater.h>
#include <platform/StatusItem.h>
#include <platform/UserDefaults.h>
#include <platform/Windows.h>
#include <platform/Workspace.h>
#include <preferences/PreferencesCoordinator.h>
#include <preferences/PreferencesStore.h>
#include <preferences/PreferencesWindowController.h>
#include <rescues/RecapWindowController.h>
#include <rescues/RescueLog.h>
#include <system/LaunchAtLoginManager.h>
#include <takeover/TakeoverTriggerScheduler.h>
#include <takeover/TakeoverWindowController.h>
#include <theme/Theme.h>

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

/// The desktop as the coordinator is given it. Everything in it outlives the coordinator.
struct AppServices {
    MainQueue &queue;
    UserDefaults &defaults;
    Workspace &workspace;
    ScreenLayout &screenLayout;
    ShieldingPanels &panels;
    StatusBar &statusBar;
    Popups &popups;
    Windows &windows;
    SoftwareUpdater &softwareUpdater;
    LoginItem &loginItem;
    NotificationPermission &notificationPermission;
    CurrentCalendar currentCalendar;
    std::function<void()> terminate; ///< Ends the program. It may return before that.
};

/// The program's root: owns every long-lived part, wires them together and follows changes of the
/// calendars. Main thread only.
class AppCoordinator : public PreferencesCoordinator {
public:
    /// `preferences` and `calendarAccess` must outlive the coordinator, which reads the calendars
    /// of the latter's store. The rescue log is kept in the file at `rescueLogFile`.
    AppCoordinator(PreferencesStore &preferences, CalendarAccess &calendarAccess,
                   const AppServices &services, const QString &rescueLogFile);
    ~AppCoordinator() override;
    AppCoordinator(const AppCoordinator &) = delete;
    AppCoordinator &operator=(const AppCoordinator &) = delete;

    /// Puts up the status item and begins to follow the calendars and to plan takeovers. Called
    /// once.
    void start();

    /// Ends what `start` began and takes down what is shown.
    void stop();

    /// Opens the event's video link, else dials its number, counts a rescue and closes the popover;
    /// for an event with neither nothing happens.
    void handleJoin(const UpcomingEvent &event);

    /// Closes the popover and shows what a takeover looks like, in the selected theme or in another
    /// one. Nothing comes of the answer. While a takeover is up none is shown.
    void previewTakeover(std::optional<Theme> themeOverride) override;

    /// Closes the popover and shows the first run, at its first step that is not complete.
    void openOnboarding();

    /// Closes the popover and shows how often the user was fetched this week, up to now.
    void openRecap();

    /// Closes the popover and shows the settings.
    void openPreferences();

    /// What the program is asked from outside. It has been started.
    void takeRequest(ActivationRequest request);

    /// What the program knows of itself; the rest is the caller's to fill in.
    [[nodiscard]] AgentStatus status() const;

    /// Has the user asked for access to their calendars, if need be. The answer comes later, or
    /// never.
    void requestCalendarAccess() override;

    /// What the popover lists.
    [[nodiscard]] const UpcomingEventsViewModel &upcomingEventsViewModel() const {
        return m_upcomingEventsViewModel;
    }

    /// The calendars by account, as of the last change; empty without access.
    [[nodiscard]] const CalendarRepository::Snapshot &calendarSnapshot() const {
        return m_calendarSnapshot.value();
    }
    /// Calls `subscriber` with the current one at once and with each further one before it is
    /// stored.
    [[nodiscard]] Subscription observeCalendarSnapshot(
        const std::function<void(const CalendarRepository::Snapshot &)> &subscriber) override {
        return m_calendarSnapshot.subscribe(subscriber);
    }

    [[nodiscard]] CalendarAccess::Status calendarAccessStatus() const {
        return m_calendarAccessStatus.value();
    }
    /// Like `observeCalendarSnapshot`.
    [[nodiscard]] Subscription observeCalendarAccessStatus(
        const std::function<void(const CalendarAccess::Status &)> &subscriber) override {
        return m_calendarAccessStatus.subscribe(subscriber);
    }

    [[nodiscard]] LaunchAtLoginManager &launchAtLoginManager() override {
        return m_launchAtLoginManager;
    }

private:
    void makePopover();
    void startMenuBar();
    void closePopups();
    void endPreview();
    void checkForUpdates();
    void handleCalendarStoreChanged();
    void takeAccess(CalendarAccess::Status status);

    PreferencesStore &m_preferences;
    CalendarAccess &m_calendarAccess;
    const AppServices m_services;
    CalendarRepository m_calendarRepository;
    Published<CalendarAccess::Status> m_calendarAccessStatus;
    CalendarSelection m_calendarSelection;
    UpcomingEventsQuery m_query;
    UpcomingEventsViewModel m_upcomingEventsViewModel;
    TakeoverWindowController m_takeoverWindowController;
    Subscription m_makingWay; ///< Popups that are open would keep the keyboard from a takeover.
    LaunchAtLoginManager m_launchAtLoginManager;
    RescueLog m_rescueLog;
    TemplateCopyProvider m_copyProvider;
    TakeoverTriggerScheduler m_takeoverTriggerScheduler;
    std::optional<TakeoverContext> m_preview; ///< The last one.
    Subscription m_endOfPreview;              ///< A meeting's own takeover would not come up else.
    CalendarChangeMonitor m_calendarChangeMonitor;
    Published<CalendarRepository::Snapshot> m_calendarSnapshot;
    // From `start` on.
    std::unique_ptr<PopupMenu> m_popupMenu; ///< The popover's and the status item's.
    std::unique_ptr<PopoverModel> m_popoverModel;
    std::unique_ptr<UpcomingEventsPopover> m_upcomingEventsPopover;
    std::unique_ptr<MenuBarController> m_menuBar;
    // From their first use on.
    std::unique_ptr<PreferencesWindowController> m_preferencesWindowController;
    std::unique_ptr<RecapWindowController> m_recapWindowController;
    std::unique_ptr<OnboardingWindowController> m_onboardingWindowController;
    std::shared_ptr<char> m_life = std::make_shared<char>(); ///< An answer may come after the end.
};

} // namespace vantrel
