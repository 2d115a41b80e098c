#include "SchedulerFixture.h"

namespace vantrel {
namespace {

/// The plan is made anew, and the calendars change under it.
class TakeoverReplanningTest : public SchedulerFixture {};

TEST_F(TakeoverReplanningTest, ArmsEachMeetingOnceHoweverOftenItPlans) {
    add("Planning", local("2026-03-02T09:00:00"));
    add("Retro", local("2026-03-02T10:00:00"));
    startScheduler();
    scheduler->refresh();
    scheduler->refresh();
    EXPECT_EQ(armed(), 2U);
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverReplanningTest, ForgetsAMeetingThatWasTakenOutOfTheCalendar) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    remove("Planning");
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverReplanningTest, FollowsAMeetingThatWasMoved) {
    StoreEvent &event = add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    event.startDate = local("2026-03-02T10:00:00");
    event.endDate = local("2026-03-02T10:30:00");
    scheduler->refresh();
    runTo("2026-03-02T09:58:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T09:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverReplanningTest, ShowsAMeetingAgainThatWasMovedAfterItsTakeover) {
    StoreEvent &event = add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();
    event.startDate = local("2026-03-02T10:00:00");
    event.endDate = local("2026-03-02T10:30:00");
    scheduler->refresh();
    runTo("2026-03-02T09:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverReplanningTest, DoesNotShowAMeetingTwice) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();
    for (int minute = 0; minute < 40; ++minute) {
        scheduler->refresh();
        EXPECT_EQ(armed(), 0U);
        queue.advance(Seconds{60});
    }
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverReplanningTest, RemembersWhatItShowedUntilTheMeetingIsOver) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();

    queue.jumpWallTo(local("2026-03-02T09:29:59"));
    scheduler->refresh();
    queue.jumpWallTo(local("2026-03-02T08:30:00"));
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);

    queue.jumpWallTo(local("2026-03-02T09:30:00"));
    scheduler->refresh();
    queue.jumpWallTo(local("2026-03-02T08:30:00"));
    scheduler->refresh();
    EXPECT_EQ(armed(), 1U);
}

TEST_F(TakeoverReplanningTest, TellsTheOccurrencesOfASeriesApart) {
    add("Standup", local("2026-03-02T09:00:00"));
    add("Standup", local("2026-03-02T11:00:00"));
    startScheduler();
    EXPECT_EQ(armed(), 2U);
    runTo("2026-03-02T08:59:00");
    dismiss();
    scheduler->refresh();
    EXPECT_EQ(armed(), 1U);
    runTo("2026-03-02T10:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Standup")});
}

TEST_F(TakeoverReplanningTest, CatchesUpAfterASleepBeforeTheStart) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    queue.suspend(Seconds{3570});
    queue.runDue();
    EXPECT_EQ(titles(), Titles{});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverReplanningTest, FollowsAClockThatWasSetBack) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:30:00");
    queue.jumpWallTo(local("2026-03-02T08:00:00"));
    scheduler->refresh();
    runTo("2026-03-02T08:58:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(takeoverCount(), 1U);
}

TEST_F(TakeoverReplanningTest, SurvivesAPlanMadeAnewInTheMidstOfFiring) {
    add("Planning", local("2026-03-02T09:00:00"));
    add("Retro", local("2026-03-02T10:00:00"));
    startScheduler();
    store.whileFetching = [this] {
        store.whileFetching = nullptr;
        scheduler->refresh();
    };
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    dismiss();
    EXPECT_EQ(armed(), 1U);
    runTo("2026-03-02T09:59:00");
    EXPECT_EQ(takeoverCount(), 2U);
}

TEST_F(TakeoverReplanningTest, SkipsAMeetingThatVanishedAndCountsItAsShown) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    remove("Planning");
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(takeoverCount(), 0U);
    add("Planning", local("2026-03-02T09:00:00"));
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverReplanningTest, AsksTheStoreForWhatStandsAheadOfTheBar) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(store.askedFor, Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverReplanningTest, ShowsNothingForAMeetingWithoutIdentifier) {
    add("Planning", local("2026-03-02T09:00:00")).eventIdentifier.reset();
    startScheduler();
    runTo("2026-03-02T08:59:30");
    EXPECT_EQ(takeoverCount(), 0U);
    EXPECT_EQ(store.askedFor.size(), 1U);
}

} // namespace
} // namespace vantrel
