#pragma once

#include "ShownTakeover.h"

#include <calendar/UpcomingEventsQuery.h>
#include <copy/TemplateCopyProvider.h>
#include <fakes/FakeEventStore.h>
#include <fakes/FakeScreens.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/RecordingPanels.h>
#include <fakes/RecordingWorkspace.h>
#include <fakes/Times.h>
#include <preferences/PreferencesStore.h>
#include <rescues/RescueLog.h>
#include <takeover/TakeoverTriggerScheduler.h>
#include <takeover/TakeoverWindowController.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

/// A store whose look at its calendars may take a while, or be a moment at which something happens.
class BusyEventStore : public fakes::FakeEventStore {
public:
    using FakeEventStore::FakeEventStore;

    std::function<void()> whileFetching;
    mutable std::vector<QString> askedFor; ///< Identifiers that `eventWithIdentifier` was given.

    [[nodiscard]] std::vector<StoreEvent>
    events(Instant from, Instant to,
           const std::vector<QString> &calendarIdentifiers) const override {
        auto found = FakeEventStore::events(from, to, calendarIdentifiers);
        if (whileFetching)
            whileFetching();
        return found;
    }

    [[nodiscard]] std::optional<StoreEvent>
    eventWithIdentifier(const QString &eventIdentifier) const override {
        askedFor.push_back(eventIdentifier);
        return FakeEventStore::eventWithIdentifier(eventIdentifier);
    }
};

/// A scheduler with the real settings, query, window controller and log, on fakes of the desktop.
/// It is Monday, 2 March 2026, 08:00 in Zurich; one calendar, "work", is selected.
class SchedulerFixture : public testing::Test {
protected:
    using Titles = std::vector<QString>;

    static constexpr const char *zone = "Europe/Zurich";

    SchedulerFixture() {
        screens.connected = {{QStringLiteral("one"), QRect(0, 0, 1920, 1080)}};
        work->calendarIdentifier = QStringLiteral("work");
        store.storedCalendars = {*work};
        preferences.setSelectedCalendarIDs({QStringLiteral("work")});
    }

    static Instant local(const char *dateTime) { return fakes::at(dateTime, zone); }

    /// A meeting of half an hour, known by its title.
    StoreEvent &add(const char *title, Instant start, Seconds length = Seconds{1800}) {
        StoreEvent event;
        event.eventIdentifier = QString::fromLatin1(title);
        event.title = QString::fromUtf8(title);
        event.startDate = start;
        event.endDate = start + length;
        event.calendar = work;
        store.storedEvents.push_back(event);
        return store.storedEvents.back();
    }

    void remove(const char *title) {
        std::erase_if(store.storedEvents, [&](const StoreEvent &event) {
            return event.eventIdentifier == QString::fromLatin1(title);
        });
    }

    /// Lets the clock run to that local time.
    void runTo(const char *dateTime) { queue.advanceTo(local(dateTime)); }

    bool press(Key key) { return panels.press({key, QString()}); }
    bool pressSnooze() { return panels.press({Key::other, QStringLiteral("s")}); }

    /// Dismisses what is up and waits until it has faded.
    void dismiss() {
        press(Key::escape);
        queue.advance(Seconds{0.2});
    }

    [[nodiscard]] Titles titles() const { return shownTitles(panels); }

    /// The titles of all takeovers so far, the one that is up included.
    [[nodiscard]] std::size_t takeoverCount() const { return panels.panels.size(); }

    [[nodiscard]] DayBucket today() const {
        const auto &byDay = rescueLog.byDay();
        return byDay.empty() ? DayBucket::empty : byDay.rbegin()->second;
    }

    /// What the scheduler has armed, when nothing else waits on the queue. Its own hourly timer is
    /// not counted.
    [[nodiscard]] std::size_t armed() const { return queue.pendingCount() - 1; }

    void startScheduler() {
        scheduler->start();
        queue.runDue();
    }

    QTemporaryDir folder;
    fakes::ManualMainQueue queue{local("2026-03-02T08:00:00")};
    BusyEventStore store{[this] { return queue.now(); }};
    UpcomingEventsQuery query{store};
    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences{defaults};
    TemplateCopyProvider copyProvider{
        TemplateCopyProvider::defaultLibrary(),
        [](const std::vector<QString> &variants) { return std::optional(variants.front()); }};
    fakes::FakeScreens screens;
    fakes::RecordingPanels panels;
    TakeoverWindowController controller{queue, screens, panels};
    LocalCalendar calendar = fakes::calendarIn(zone);
    RescueLog rescueLog{RescueLogStore(folder.filePath(QStringLiteral("rescues.json"))),
                        [this] { return queue.now(); }, [this] { return calendar; }};
    fakes::RecordingWorkspace workspace;
    std::shared_ptr<StoreCalendar> work = std::make_shared<StoreCalendar>();
    std::unique_ptr<TakeoverTriggerScheduler> scheduler =
        std::make_unique<TakeoverTriggerScheduler>(
            store, query, preferences, copyProvider, controller, rescueLog, queue,
            [this] { return calendar; }, workspace);
};

} // namespace vantrel
