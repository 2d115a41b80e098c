#pragma once

#include <calendar/CalendarChangeMonitor.h>
#include <calendar/UpcomingEventsQuery.h>
#include <copy/TemplateCopyProvider.h>
#include <platform/EventStore.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>
#include <platform/ScreenLayout.h>
#include <platform/ShieldingPanels.h>
#include <platform/UserDefaults.h>
#include <platform/Workspace.h>
#include <preferences/PreferencesStore.h>
#include <rescues/RescueLog.h>
#include <takeover/TakeoverTriggerScheduler.h>
#include <takeover/TakeoverWindowController.h>

#include <QString>

#include <set>

namespace vantrel {

/// The desktop as the coordinator is given it. Everything in it outlives the coordinator.
struct AppServices {
    MainQueue &queue;
    EventStore &store;
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
    /// `preferences` must outlive the coordinator. The rescue log is kept in the file at
    /// `rescueLogFile`.
    AppCoordinator(PreferencesStore &preferences, const AppServices &services,
                   const QString &rescueLogFile);

    /// Begins to follow the calendars and to plan takeovers. Called once.
    void start();

    /// Whether the user, or the first start for them, ever chose calendars.
    [[nodiscard]] static bool hasSelection(const UserDefaults &defaults);

    /// What a user watches who never chose: every ordinary calendar.
    [[nodiscard]] static std::set<QString> defaultSelection(const EventStore &store);

    /// Ends what `start` began and takes down a takeover that is up.
    void stop();

private:
    void handleCalendarStoreChanged();
    void selectDefaultCalendars();

    PreferencesStore &m_preferences;
    AppServices m_services;
    UpcomingEventsQuery m_query;
    TakeoverWindowController m_takeoverWindowController;
    RescueLog m_rescueLog;
    TemplateCopyProvider m_copyProvider;
    TakeoverTriggerScheduler m_takeoverTriggerScheduler;
    CalendarChangeMonitor m_calendarChangeMonitor;
};

} // namespace vantrel
