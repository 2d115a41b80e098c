#include "CoordinatorFixture.h"

#include <fakes/CapturedLog.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {
namespace {

using fakes::at;

using Status = CalendarAccess::Status;

const auto selectionKey = QStringLiteral("Vantrel.selectedCalendarIDs");

const auto unfinishedKey = QStringLiteral("Vantrel.unfinishedDefaultCalendarIDs");

class AppCoordinatorTest : public CoordinatorFixture {
protected:
    void select(const std::set<QString> &identifiers) {
        preferences->setSelectedCalendarIDs(identifiers);
    }

    /// The stored selection by identifier; "-" when none is stored.
    std::string selection() const {
        const auto stored = defaults.stringArray(selectionKey);
        return stored ? stored->join(u' ').toStdString() : "-";
    }

    auto writesOfSelection() const {
        return std::count(defaults.writes.begin(), defaults.writes.end(), selectionKey);
    }
};

// The default selection

TEST_F(AppCoordinatorTest, SelectsTheOrdinaryCalendarsOnceWhenTheUserNeverChose) {
    start();
    EXPECT_EQ(selection(), "work");
    announceChange();
    startAgain();
    EXPECT_EQ(writesOfSelection(), 1);
    EXPECT_FALSE(defaults.hasObject(unfinishedKey));
}

TEST_F(AppCoordinatorTest, LeavesASelectionOfNothingAlone) {
    select({});
    start();
    announceChange();
    EXPECT_EQ(selection(), "");
    EXPECT_EQ(writesOfSelection(), 1);
}

TEST_F(AppCoordinatorTest, AddsNothingToACompleteDefault) {
    start();
    store.storedCalendars.push_back(calendar("new"));
    announceChange();
    startAgain();
    EXPECT_EQ(selection(), "work");
}

TEST_F(AppCoordinatorTest, StoresNoChoiceWhileThereIsNoCalendarToChoose) {
    const auto calendars = std::exchange(store.storedCalendars, {});
    start();
    announceChange();
    EXPECT_EQ(selection(), "-");
    store.storedCalendars = calendars;
    announceChange();
    EXPECT_EQ(selection(), "work");
}

TEST_F(AppCoordinatorTest, StoresAChoiceOfNothingWhereNothingIsOrdinary) {
    remove("work");
    start();
    EXPECT_EQ(selection(), "");
}

TEST_F(AppCoordinatorTest, WaitsForAnOrdinaryCalendarWhileMoreMayCome) {
    remove("work");
    store.isComplete = false;
    start();
    EXPECT_EQ(selection(), "-");
    store.storedCalendars.push_back(calendar("late"));
    store.isComplete = true;
    announceChange();
    EXPECT_EQ(selection(), "late");
}

TEST_F(AppCoordinatorTest, WatchesWhatIsThereAtOnceAndAddsWhatASlowSourceBringsLater) {
    store.isComplete = false;
    start();
    EXPECT_EQ(selection(), "work");
    store.storedCalendars.push_back(calendar("account"));
    store.storedCalendars.push_back(calendar("fixtures", StoreCalendarType::subscription));
    announceChange();
    EXPECT_EQ(selection(), "account work");
    store.storedCalendars.push_back(calendar("second"));
    store.isComplete = true;
    announceChange();
    EXPECT_EQ(selection(), "account second work");
    EXPECT_FALSE(defaults.hasObject(unfinishedKey));
    store.storedCalendars.push_back(calendar("third"));
    announceChange();
    EXPECT_EQ(selection(), "account second work");
}

TEST_F(AppCoordinatorTest, CompletesADefaultAfterANewStart) {
    store.isComplete = false;
    start();
    startAgain();
    EXPECT_EQ(selection(), "work");
    store.storedCalendars.push_back(calendar("account"));
    store.isComplete = true;
    startAgain();
    EXPECT_EQ(selection(), "account work");
    EXPECT_FALSE(defaults.hasObject(unfinishedKey));
}

TEST_F(AppCoordinatorTest, KeepsWhatIsOutOfReachInAnUnfinishedDefault) {
    store.storedCalendars.push_back(calendar("usb"));
    store.isComplete = false;
    start();
    remove("usb");
    store.outOfReach = {QStringLiteral("usb")};
    store.storedCalendars.push_back(calendar("account"));
    announceChange();
    EXPECT_EQ(selection(), "account usb work");
}

TEST_F(AppCoordinatorTest, DropsADeletedCalendarFromAnUnfinishedDefaultAndGoesOnWithIt) {
    store.storedCalendars.push_back(calendar("old"));
    store.isComplete = false;
    start();
    remove("old");
    announceChange();
    EXPECT_EQ(selection(), "work");
    store.storedCalendars.push_back(calendar("account"));
    announceChange();
    EXPECT_EQ(selection(), "account work");
}

TEST_F(AppCoordinatorTest, AddsNothingOnceTheUserHasChangedAnUnfinishedDefault) {
    store.storedCalendars.push_back(calendar("private"));
    store.isComplete = false;
    start();
    preferences->setSelected(QStringLiteral("private"), false);
    store.storedCalendars.push_back(calendar("account"));
    announceChange();
    EXPECT_EQ(selection(), "work");
    EXPECT_FALSE(defaults.hasObject(unfinishedKey));
    startAgain();
    EXPECT_EQ(selection(), "work");
}

TEST_F(AppCoordinatorTest, SeesThatTheUserChangedAnUnfinishedDefaultBetweenTwoRuns) {
    store.isComplete = false;
    start();
    coordinator.reset();
    defaults.setStringArray(selectionKey, {});
    store.storedCalendars.push_back(calendar("account"));
    startAgain();
    EXPECT_EQ(selection(), "");
}

// Calendars that go

TEST_F(AppCoordinatorTest, DropsADeletedCalendarAndPlansWithoutItInTheSamePass) {
    store.storedCalendars.push_back(calendar("private"));
    select({QStringLiteral("work"), QStringLiteral("private")});
    addMeeting("standup", at("2026-03-02T09:00:30"));
    addMeeting("later", at("2026-03-02T09:10:00"));
    start();
    ASSERT_EQ(panels.shown().size(), 1U);
    remove("work");
    announceChange();
    EXPECT_EQ(selection(), "private");
    EXPECT_EQ(coordinator->calendarSnapshot().groups.at(0).calendars.size(), 3U);
    queue.advanceTo(at("2026-03-02T09:20:00"));
    EXPECT_EQ(panels.panels.size(), 1U);
}

TEST_F(AppCoordinatorTest, DropsWhatWasDeletedBeforeTheStart) {
    select({QStringLiteral("work"), QStringLiteral("long gone")});
    const fakes::CapturedLog log;
    start();
    announceChange();
    EXPECT_EQ(selection(), "work");
    const auto names = [](const auto &line) {
        return line.text.contains(QStringLiteral("long gone"));
    };
    EXPECT_EQ(std::count_if(log.lines().begin(), log.lines().end(), names), 1);
}

TEST_F(AppCoordinatorTest, KeepsACalendarThatIsOutOfReach) {
    select({QStringLiteral("work"), QStringLiteral("usb")});
    store.outOfReach = {QStringLiteral("usb")};
    start();
    announceChange();
    EXPECT_EQ(selection(), "usb work");
    EXPECT_EQ(writesOfSelection(), 1);
}

TEST_F(AppCoordinatorTest, WritesNoSelectionThatIsAsBefore) {
    select({QStringLiteral("work")});
    start();
    announceChange();
    EXPECT_EQ(writesOfSelection(), 1);
}

TEST_F(AppCoordinatorTest, KeepsTheSelectionWhenAccessIsTakenAway) {
    select({QStringLiteral("work")});
    start();
    store.authorization = StoreAuthorization::denied;
    announceChange();
    EXPECT_EQ(selection(), "work");
    EXPECT_EQ(coordinator->calendarAccessStatus(), Status::denied);
    EXPECT_TRUE(coordinator->calendarSnapshot().groups.empty());
}

// Access

TEST_F(AppCoordinatorTest, AsksForAccessAtTheStartWhenNobodyWasAsked) {
    store.authorization = StoreAuthorization::notDetermined;
    start();
    ASSERT_EQ(store.accessRequests.size(), 1U);
    EXPECT_EQ(coordinator->calendarAccessStatus(), Status::notDetermined);
    EXPECT_EQ(selection(), "-");

    store.authorization = StoreAuthorization::fullAccess;
    store.accessRequests.front()(true, {});
    EXPECT_EQ(coordinator->calendarAccessStatus(), Status::fullAccess);
    EXPECT_EQ(coordinator->calendarSnapshot().groups.size(), 1U);
    EXPECT_EQ(selection(), "work");
}

TEST_F(AppCoordinatorTest, SelectsWhenTheStoreHasReadWhatItWasGranted) {
    store.authorization = StoreAuthorization::notDetermined;
    start();
    store.authorization = StoreAuthorization::fullAccess;
    const auto calendars = std::exchange(store.storedCalendars, {});
    store.isComplete = false;
    store.accessRequests.front()(true, {});
    EXPECT_EQ(selection(), "-");
    store.storedCalendars = calendars;
    store.isComplete = true;
    announceChange();
    EXPECT_EQ(selection(), "work");
}

TEST_F(AppCoordinatorTest, LeavesAnEarlierSelectionAloneWhenAccessIsGranted) {
    select({});
    store.authorization = StoreAuthorization::notDetermined;
    start();
    store.authorization = StoreAuthorization::fullAccess;
    store.accessRequests.front()(true, {});
    announceChange();
    EXPECT_EQ(selection(), "");
}

TEST_F(AppCoordinatorTest, ShowsNothingAndStoresNothingWhenTheUserRefuses) {
    store.authorization = StoreAuthorization::notDetermined;
    start();
    store.authorization = StoreAuthorization::denied;
    store.accessRequests.front()(false, {});
    announceChange();
    EXPECT_EQ(coordinator->calendarAccessStatus(), Status::denied);
    EXPECT_TRUE(coordinator->calendarSnapshot().groups.empty());
    EXPECT_EQ(selection(), "-");
}

TEST_F(AppCoordinatorTest, AsksNobodyAtTheStartWhoHasAnswered) {
    for (const auto authorization : {StoreAuthorization::denied, StoreAuthorization::restricted,
                                     StoreAuthorization::writeOnly}) {
        store.authorization = authorization;
        startAgain();
        EXPECT_TRUE(store.accessRequests.empty());
        EXPECT_EQ(selection(), "-");
    }
    store.authorization = StoreAuthorization::denied;
    startAgain();
    coordinator->requestCalendarAccess();
    EXPECT_EQ(store.accessRequests.size(), 1U);
}

TEST_F(AppCoordinatorTest, SelectsWhenAccessComesByAnotherWayThanTheRequest) {
    store.authorization = StoreAuthorization::restricted;
    start();
    announceChange();
    EXPECT_EQ(selection(), "-");
    store.authorization = StoreAuthorization::fullAccess;
    announceChange();
    EXPECT_EQ(coordinator->calendarAccessStatus(), Status::fullAccess);
    EXPECT_EQ(selection(), "work");
}

TEST_F(AppCoordinatorTest, TakesNoAnswerAfterItsEnd) {
    store.authorization = StoreAuthorization::notDetermined;
    start();
    coordinator.reset();
    store.authorization = StoreAuthorization::fullAccess;
    store.accessRequests.front()(true, {});
    EXPECT_EQ(selection(), "-");
}

TEST_F(AppCoordinatorTest, TellsObserversOfSnapshotAndStatusBeforeTheyAreStored) {
    start();
    std::vector<std::size_t> counts;
    std::vector<Status> statuses;
    const auto first = coordinator->observeCalendarSnapshot([&](const auto &snapshot) {
        counts.push_back(snapshot.groups.size());
        EXPECT_EQ(coordinator->calendarSnapshot().groups.size(), 1U);
    });
    const auto second = coordinator->observeCalendarAccessStatus([&](const Status &status) {
        statuses.push_back(status);
        EXPECT_EQ(coordinator->calendarAccessStatus(), Status::fullAccess);
    });
    store.authorization = StoreAuthorization::denied;
    announceChange();
    EXPECT_EQ(counts, (std::vector<std::size_t>{1, 0}));
    EXPECT_EQ(statuses, (std::vector<Status>{Status::fullAccess, Status::denied}));
}

// Takeovers

TEST_F(AppCoordinatorTest, TakesOverForAMeetingThatStoodInTheCalendarAtTheStart) {
    addMeeting("standup", at("2026-03-02T10:00:00"));
    start();
    queue.advanceTo(at("2026-03-02T09:58:59"));
    EXPECT_TRUE(panels.shown().empty());
    queue.advanceTo(at("2026-03-02T09:59:00"));
    EXPECT_EQ(panels.shown().size(), 1U);
}

TEST_F(AppCoordinatorTest, PlansAMeetingThatIsAddedLaterHalfASecondAfterTheChange) {
    start();
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
    start();
    ASSERT_EQ(panels.shown().size(), 1U);
    coordinator->stop();
    queue.advance(Seconds{3600});
    EXPECT_TRUE(panels.shown().empty());
    EXPECT_EQ(panels.panels.size(), 1U);
}

TEST_F(AppCoordinatorTest, PausesAndResumesWhenAskedFromOutside) {
    start();
    coordinator->takeRequest(ActivationRequest::togglePause);
    EXPECT_TRUE(preferences->isPaused());
    coordinator->takeRequest(ActivationRequest::togglePause);
    EXPECT_FALSE(preferences->isPaused());
    for (int time = 0; time < 2; ++time) {
        coordinator->takeRequest(ActivationRequest::pause);
        EXPECT_TRUE(preferences->isPaused());
    }
    for (int time = 0; time < 2; ++time) {
        coordinator->takeRequest(ActivationRequest::resume);
        EXPECT_FALSE(preferences->isPaused());
    }
    EXPECT_EQ(terminations, 0);
}

TEST_F(AppCoordinatorTest, ShowsTheRecapAndAPreviewWhenAskedFromOutside) {
    start();
    coordinator->takeRequest(ActivationRequest::showRecap);
    EXPECT_EQ(windows.windows.size(), 1U);
    coordinator->takeRequest(ActivationRequest::preview);
    EXPECT_EQ(panels.shown().size(), 1U);
}

TEST_F(AppCoordinatorTest, TellsHowItIs) {
    addMeeting("Second", at("2026-03-02T12:00:00"));
    addMeeting("First", at("2026-03-02T10:00:00"));
    start();
    statusBar.items.at(0)->place = StatusItemPlace::host;
    AgentStatus status = coordinator->status();
    EXPECT_EQ(status.statusItem, StatusItemPlace::host);
    EXPECT_EQ(status.access, CalendarAccess::Status::fullAccess);
    EXPECT_EQ(status.calendars, 3);
    EXPECT_EQ(status.watched, 1);
    EXPECT_FALSE(status.isPaused);
    EXPECT_EQ(status.nextFires,
              (std::vector<Instant>{at("2026-03-02T09:59:00"), at("2026-03-02T11:59:00")}));
    queue.advance(Seconds{3600.0});
    EXPECT_EQ(coordinator->status().nextFires, (std::vector<Instant>{at("2026-03-02T11:59:00")}));
    preferences->setIsPaused(true);
    queue.runDue();
    status = coordinator->status();
    EXPECT_TRUE(status.isPaused);
    EXPECT_TRUE(status.nextFires.empty());
}

TEST_F(AppCoordinatorTest, EndsTheProgramWhenAskedFromOutside) {
    start();
    coordinator->takeRequest(ActivationRequest::quit);
    EXPECT_EQ(terminations, 1);
}

} // namespace
} // namespace vantrel
