#pragma once

#include "Meeting.h"

#include <calendar/CalendarChangeMonitor.h>
#include <calendar/UpcomingEventsQuery.h>
#include <copy/TemplateCopyProvider.h>
#include <fakes/FakeEventStore.h>
#include <fakes/FakeScreens.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/RecordingPanels.h>
#include <fakes/RecordingWorkspace.h>
#include <preferences/PreferencesStore.h>
#include <rescues/RescueLog.h>
#include <takeover/TakeoverTriggerScheduler.h>
#include <takeover/TakeoverWindowController.h>

#include <QTimeZone>

#include <functional>
#include <vector>

namespace vantrel::simulation {

/// The program's own takeover, on fakes of the desktop, with the log that a watcher would write.
class SimulatedDesk {
public:
    SimulatedDesk(Micros wall, const QTimeZone &zone);
    SimulatedDesk(const SimulatedDesk &) = delete;
    SimulatedDesk &operator=(const SimulatedDesk &) = delete;

    /// "uptime what", one line for each thing that is seen or counted.
    std::vector<QString> log;

    fakes::ManualMainQueue queue;
    PreferencesStore &preferences() { return m_preferences; }

    void start();
    void stop() { m_scheduler.stop(); }
    void setZone(const QTimeZone &zone);
    void setCalendars(const std::set<QString> &calendars);
    void setMeetings(const std::vector<Meeting> &meetings);
    void storeChanged() { m_store.changed.announce(); }
    /// As `RulesModel::refresh`.
    void refresh(Micros asleep = 0);
    void answer(Answer given);

    void advanceTo(Micros uptime);
    [[nodiscard]] Micros uptime() const;
    [[nodiscard]] bool isTakeoverUp() const { return m_panels.isMonitored(); }

    /// Forgets what the fakes recorded of panels that are gone.
    void tidy();

private:
    class Store : public fakes::FakeEventStore {
    public:
        using FakeEventStore::FakeEventStore;
        mutable std::function<void()> whileFetching; ///< Once.

        [[nodiscard]] std::vector<StoreEvent>
        events(Instant from, Instant to,
               const std::vector<QString> &calendarIdentifiers) const override;
    };

    class Opener : public fakes::RecordingWorkspace {
    public:
        std::function<void(const QString &)> whenOpened;

        using RecordingWorkspace::open;

        void open(const Url &url) override { whenOpened(url.absoluteString()); }
    };

    [[nodiscard]] StoreEvent storeEvent(const Meeting &meeting) const;
    void readCounts(const DayBuckets &byDay);
    void writeShown(const fakes::RecordingPanels::Record &panel);
    void write(const QString &what);

    LocalCalendar m_calendar;
    std::map<QString, std::shared_ptr<const StoreCalendar>> m_calendars;
    std::shared_ptr<const std::vector<StoreParticipant>> m_declined;
    Store m_store;
    UpcomingEventsQuery m_query;
    fakes::InMemoryUserDefaults m_defaults;
    PreferencesStore m_preferences;
    TemplateCopyProvider m_copyProvider;
    fakes::FakeScreens m_screens;
    fakes::RecordingPanels m_panels;
    TakeoverWindowController m_controller;
    RescueLog m_rescueLog;
    Opener m_workspace;
    TakeoverTriggerScheduler m_scheduler;
    CalendarChangeMonitor m_monitor;
    Subscription m_counts;
    DayBucket m_counted;
};

} // namespace vantrel::simulation
