#pragma once

#include "CalendarSelection.h"

#include <calendar/CalendarAccess.h>
#include <calendar/CalendarChangeMonitor.h>
#include <calendar/CalendarRepository.h>
#include <calendar/UpcomingEventsQuery.h>
#include <copy/TemplateCopyProvider.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>
#include <platform/Published.h>
#include <platform/ScreenLayout.h>
#include <platform/ShieldingPanels.h>
#include <platform/UserDefaults.h>
#include <platform/Workspace.h>
#include <preferences/PreferencesStore.h>
#include <rescues/RescueLog.h>
#include <takeover/TakeoverTriggerScheduler.h>
#include <takeover/TakeoverWindowController.h>

#include <QString>

#include <functional>
#include <memory>

namespace vantrel {

/// The desktop as the coordinator is given it. Everything in it outlives the coordinator.
struct AppServices {
    MainQueue &queue;
    UserDefaults &defaults;
    Workspace &workspace;
    ScreenLayout &screenLayout;
    ShieldingPanels &panels;
    CurrentCalendar currentCalendar;
};

/// The program's root: owns every long-lived part, wires them together and follows changes of the
/// calendars. Main thread only.
class AppCoordinator {
public:
    /// `preferences` and `calendarAccess` must outlive the coordinator, which reads the calendars
    /// of the latter's store. The rescue log is kept in the file at `rescueLogFile`.
    AppCoordinator(PreferencesStore &preferences, CalendarAccess &calendarAccess,
                   const AppServices &services, const QString &rescueLogFile);
    AppCoordinator(const AppCoordinator &) = delete;
    AppCoordinator &operator=(const AppCoordinator &) = delete;

    /// Begins to follow the calendars and to plan takeovers. Called once.
    void start();

    /// Ends what `start` began and takes down a takeover that is up.
    void stop();

    /// Has the user asked for access to their calendars, if need be. The answer comes later, or
    /// never.
    void requestCalendarAccess();

    /// The calendars by account, as of the last change; empty without access.
    [[nodiscard]] const CalendarRepository::Snapshot &calendarSnapshot() const {
        return m_calendarSnapshot.value();
    }
    /// Calls `subscriber` with the current one at once and with each further one before it is
    /// stored.
    [[nodiscard]] Subscription observeCalendarSnapshot(
        const std::function<void(const CalendarRepository::Snapshot &)> &subscriber) {
        return m_calendarSnapshot.subscribe(subscriber);
    }

    [[nodiscard]] CalendarAccess::Status calendarAccessStatus() const {
        return m_calendarAccessStatus.value();
    }
    /// Like `observeCalendarSnapshot`.
    [[nodiscard]] Subscription observeCalendarAccessStatus(
        const std::function<void(const CalendarAccess::Status &)> &subscriber) {
        return m_calendarAccessStatus.subscribe(subscriber);
    }

private:
    void handleCalendarStoreChanged();
    void takeAccess(CalendarAccess::Status status);

    CalendarAccess &m_calendarAccess;
    CalendarRepository m_calendarRepository;
    Published<CalendarAccess::Status> m_calendarAccessStatus;
    CalendarSelection m_calendarSelection;
    UpcomingEventsQuery m_query;
    TakeoverWindowController m_takeoverWindowController;
    RescueLog m_rescueLog;
    TemplateCopyProvider m_copyProvider;
    TakeoverTriggerScheduler m_takeoverTriggerScheduler;
    CalendarChangeMonitor m_calendarChangeMonitor;
    Published<CalendarRepository::Snapshot> m_calendarSnapshot;
    std::shared_ptr<char> m_life = std::make_shared<char>(); ///< An answer may come after the end.
};

} // namespace vantrel
