#pragma once

#include "CalendarFiles.h"
#include "CapturedLog.h"
#include "KernelClock.h"
#include "LoginManager.h"

#include <app/AppCoordinator.h>
#include <fakes/FakeLoginItem.h>
#include <fakes/FakeNotificationPermission.h>
#include <fakes/FakeScreens.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/RecordingPanels.h>
#include <fakes/RecordingPopups.h>
#include <fakes/RecordingStatusBar.h>
#include <fakes/RecordingUpdater.h>
#include <fakes/RecordingWindows.h>
#include <fakes/RecordingWorkspace.h>
#include <fakes/Times.h>
#include <linux/eventstore/LocalEventStore.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vantrel::tests {

/// The store of this machine, whose plans can be counted.
class PlannedStore : public LocalEventStore {
public:
    using LocalEventStore::LocalEventStore;

    /// How often the scheduler has asked for its stretch of time, which is nobody else's.
    mutable int plans = 0;

    [[nodiscard]] std::vector<StoreEvent>
    events(Instant from, Instant to,
           const std::vector<QString> &calendarIdentifiers) const override;
};

/// The program's own store, monitor, coordinator and scheduler on a folder of calendars, on a
/// machine that sleeps, wakes, and has its clock and its zone set as the test says. Login manager,
/// kernel and file system give their notices for real; what waits counts the test's clock. It is
/// Monday, 2 March 2026, 08:00 in Zurich; a takeover comes a minute before its meeting.
class SleepyMachine : public testing::Test {
protected:
    using Lines = std::vector<std::string>;

    SleepyMachine();
    ~SleepyMachine() override;

    void add(const QByteArray &name, const QByteArray &properties) const;

    /// A meeting of half an hour at that time in Zurich, as "20260302T090000", on the clock there.
    void addMeeting(const QByteArray &name, const QByteArray &start) const;

    /// Starts the program. It has read the calendars, and hears the login manager, when this
    /// returns.
    void start();

    /// The machine sleeps until the wall clock in Zurich shows that, and both who know of it say
    /// so, one after the other; the program's clock stands still meanwhile.
    void sleepUntil(const char *dateTime);

    static constexpr Seconds betweenNotices{0.2};

    /// Somebody sets the clock.
    void setClock(const char *dateTime);

    /// The user travels.
    void setZone(const char *name);

    /// Lets time run, in steps in which everybody has their turn.
    void run(Seconds length);
    void runTo(const char *dateTime) { run(local(dateTime) - queue.now()); }

    void dismiss();

    /// Lets the event loop run until the condition holds; time stands still.
    template <typename Condition>
    void settle(Condition condition, const char *what) {
        settle(condition, what, Seconds::zero());
    }

    /// The same for what takes time too, which creeps: by far less than the machine's own.
    template <typename Condition>
    void await(Condition condition, const char *what) {
        settle(condition, what, Seconds{0.0005});
    }

    static Instant local(const char *dateTime) { return fakes::at(dateTime, "Europe/Zurich"); }

    /// All takeovers so far, as "08:59:00 Title" in Zurich.
    Lines takeovers;
    int notices = 0; ///< How often the store has announced a change.
    fakes::ManualMainQueue queue{local("2026-03-02T08:00:00")};
    std::unique_ptr<PlannedStore> store;

private:
    template <typename Condition>
    void settle(Condition condition, const char *what, Seconds step) {
        const QDeadlineTimer deadline(20'000);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired()) << "not in time: " << what << '\n' << log.text();
            handleEvents();
            queue.advance(step);
        }
    }

    static void handleEvents();
    void writeZone() const;
    void awaitListening();

    const char *m_zone = "Europe/Zurich";
    CalendarFiles m_files;
    LoginManager m_loginManager;
    KernelClock m_kernel;
    CapturedLog log;
    fakes::InMemoryUserDefaults m_defaults;
    PreferencesStore m_preferences{m_defaults};
    fakes::RecordingWorkspace m_workspace;
    fakes::FakeScreens m_screens;
    fakes::RecordingPanels m_panels;
    fakes::RecordingStatusBar m_statusBar;
    fakes::RecordingPopups m_popups;
    fakes::RecordingWindows m_windows;
    fakes::RecordingUpdater m_updater;
    fakes::FakeLoginItem m_loginItem;
    fakes::FakeNotificationPermission m_notifications;
    std::unique_ptr<CalendarAccess> m_access;
    std::unique_ptr<AppCoordinator> m_coordinator;
    Subscription m_subscription;
};

} // namespace vantrel::tests
