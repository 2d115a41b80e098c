#include <app/AppCoordinator.h>
#include <fakes/FakeEventStore.h>
#include <fakes/FakeScreens.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/RecordingPanels.h>
#include <fakes/RecordingWorkspace.h>
#include <fakes/Times.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using fakes::at;

const auto selectionKey = QStringLiteral("Vantrel.selectedCalendarIDs");

class AppCoordinatorTest : public testing::Test {
protected:
    AppCoordinatorTest() {
        screens.connected = {{QStringLiteral("L"), QRect(0, 0, 1920, 1080)}};
        store.storedCalendars = {calendar("work", StoreCalendarType::local),
                                 calendar("holidays", StoreCalendarType::subscription),
                                 calendar("birthdays", StoreCalendarType::birthday)};
    }

    static StoreCalendar calendar(const char *identifier, StoreCalendarType type) {
        StoreCalendar calendar;
        calendar.calendarIdentifier = QString::fromLatin1(identifier);
        calendar.type = type;
        return calendar;
    }

    void addMeeting(const char *identifier, Instant start) {
        StoreEvent event;
        event.eventIdentifier = QString::fromLatin1(identifier);
        event.startDate = start;
        event.endDate = start + Seconds{1800};
        event.calendar = std::make_shared<StoreCalendar>(store.storedCalendars.front());
        store.storedEvents.push_back(event);
    }

    QTemporaryDir folder;
    fakes::ManualMainQueue queue{at("2026-03-02T09:00:00")};
    fakes::FakeEventStore store{[this] { return queue.now(); }};
    fakes::InMemoryUserDefaults defaults;
    fakes::RecordingWorkspace workspace;
    fakes::FakeScreens screens;
    fakes::RecordingPanels panels;
    PreferencesStore preferences{defaults};
    AppCoordinator coordinator{
        preferences,
        {queue, store, defaults, workspace, screens, panels, [] { return fakes::calendarIn(); }},
        folder.filePath(QStringLiteral("rescues.json"))};
};

TEST_F(AppCoordinatorTest, SelectsTheOrdinaryCalendarsWhenTheUserNeverChose) {
    coordinator.start();
    EXPECT_EQ(defaults.stringArray(selectionKey), QStringList{QStringLiteral("work")});
}

TEST_F(AppCoordinatorTest, LeavesASelectionOfNothingAlone) {
    preferences.setSelectedCalendarIDs({});
    coordinator.start();
    EXPECT_EQ(defaults.stringArray(selectionKey), QStringList());
}

TEST_F(AppCoordinatorTest, StoresNoChoiceWhileThereIsNoCalendarToChoose) {
    const auto calendars = std::exchange(store.storedCalendars, {});
    coordinator.start();
    EXPECT_FALSE(defaults.hasObject(selectionKey));

    store.storedCalendars = calendars;
    store.changed.announce();
    queue.advance(Seconds{1});
    EXPECT_EQ(defaults.stringArray(selectionKey), QStringList{QStringLiteral("work")});
}

TEST_F(AppCoordinatorTest, TakesOverForAMeetingThatStoodInTheCalendarAtTheStart) {
    addMeeting("standup", at("2026-03-02T10:00:00"));
    coordinator.start();
    queue.advanceTo(at("2026-03-02T09:58:59"));
    EXPECT_TRUE(panels.shown().empty());
    queue.advanceTo(at("2026-03-02T09:59:00"));
    EXPECT_EQ(panels.shown().size(), 1U);
}

TEST_F(AppCoordinatorTest, PlansAMeetingThatIsAddedLaterHalfASecondAfterTheChange) {
    coordinator.start();
    queue.runDue();
    addMeeting("now", at("2026-03-02T09:00:30"));
    store.changed.announce();
    queue.advance(Seconds{0.4});
    EXPECT_TRUE(panels.shown().empty());
    queue.advance(Seconds{0.2});
    EXPECT_EQ(panels.shown().size(), 1U);
}

TEST_F(AppCoordinatorTest, TakesEverythingDownWhenStopped) {
    addMeeting("now", at("2026-03-02T09:00:30"));
    addMeeting("later", at("2026-03-02T09:30:00"));
    coordinator.start();
    queue.runDue();
    ASSERT_EQ(panels.shown().size(), 1U);
    coordinator.stop();
    queue.advance(Seconds{3600});
    EXPECT_TRUE(panels.shown().empty());
    EXPECT_EQ(panels.panels.size(), 1U);
}

} // namespace
} // namespace vantrel
