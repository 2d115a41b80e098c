#include "SleepyMachine.h"

namespace vantrel {
namespace {

using namespace tests;

class WakeTest : public SleepyMachine {};

TEST_F(WakeTest, MakesOnePlanWithinASecondOfWaking) {
    addMeeting("Later", "20260302T150000");
    start();
    const int before = store->plans;
    sleepUntil("2026-03-02T14:00:00");
    EXPECT_EQ(store->plans, before) << "a burst of notices is waited for";
    run(Seconds{1.0} - betweenNotices);
    EXPECT_EQ(store->plans, before + 1);
    run(Seconds{60.0});
    EXPECT_EQ(store->plans, before + 1);
    runTo("2026-03-02T14:58:59");
    EXPECT_EQ(takeovers, Lines{});
    runTo("2026-03-02T14:59:00");
    EXPECT_EQ(takeovers, Lines{"14:59:00 Later"});
}

TEST_F(WakeTest, TakesOverTheNextMorning) {
    add("Daily", "DTSTART;TZID=Europe/Zurich:20260302T090000\nDURATION:PT30M\nRRULE:FREQ=DAILY\n");
    start();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(takeovers, Lines{"08:59:00 Daily"});
    dismiss();
    const int before = store->plans;
    sleepUntil("2026-03-03T08:30:00");
    run(Seconds{1.0} - betweenNotices);
    EXPECT_EQ(store->plans, before + 1);
    runTo("2026-03-03T09:20:00");
    EXPECT_EQ(takeovers, (Lines{"08:59:00 Daily", "08:59:00 Daily"}));
}

TEST_F(WakeTest, TakesOverForWhatHasJustBegunAfterWeeksOfSleep) {
    addMeeting("Over", "20260401T085400");
    addMeeting("Begun", "20260401T085700");
    start();
    sleepUntil("2026-04-01T09:00:00");
    await([this] { return !takeovers.empty(); }, "the window has moved there");
    run(Seconds{1.0});
    ASSERT_EQ(takeovers.size(), 1U);
    EXPECT_EQ(takeovers.front().substr(0, 7), "09:00:0");
    EXPECT_EQ(takeovers.front().substr(9), "Begun");
    dismiss();
    run(Seconds{3600.0});
    EXPECT_EQ(takeovers.size(), 1U);
}

TEST_F(WakeTest, FiresNothingTwice) {
    addMeeting("Standup", "20260302T090000");
    addMeeting("Review", "20260302T100000");
    start();
    runTo("2026-03-02T08:59:00");
    ASSERT_EQ(takeovers, Lines{"08:59:00 Standup"});
    dismiss();
    sleepUntil("2026-03-02T09:02:00");
    run(Seconds{3.0});
    sleepUntil("2026-03-02T09:04:00");
    run(Seconds{3.0});
    EXPECT_EQ(takeovers, Lines{"08:59:00 Standup"});
    // Due while it sleeps: its timer, armed before, comes hours late.
    sleepUntil("2026-03-02T09:59:30");
    run(Seconds{1.0});
    const Lines both{"08:59:00 Standup", "09:59:30 Review"};
    EXPECT_EQ(takeovers, both);
    dismiss();
    run(Seconds{3 * 3600.0});
    EXPECT_EQ(takeovers, both);
}

TEST_F(WakeTest, FiresNothingThatBeganMoreThanFiveMinutesAgo) {
    addMeeting("Over", "20260302T090000");
    addMeeting("Begun", "20260302T090200");
    start();
    sleepUntil("2026-03-02T09:06:00");
    run(Seconds{1.0});
    EXPECT_EQ(takeovers, Lines{"09:06:00 Begun"});
    dismiss();
    run(Seconds{3600.0});
    EXPECT_EQ(takeovers, Lines{"09:06:00 Begun"});
}

TEST_F(WakeTest, SeesWhatOthersWroteRightBeforeTheSleep) {
    start();
    addMeeting("Added", "20260302T140000");
    sleepUntil("2026-03-02T13:59:30");
    await([this] { return !takeovers.empty(); }, "the file is read");
    run(Seconds{2.0});
    ASSERT_EQ(takeovers.size(), 1U);
    EXPECT_EQ(takeovers.front().substr(9), "Added");
}

class ClockTest : public SleepyMachine {};

TEST_F(ClockTest, IsPlannedByAnewWhenItIsSetForward) {
    addMeeting("Over", "20260302T085000");
    addMeeting("Ahead", "20260302T090000");
    start();
    const int before = store->plans;
    setClock("2026-03-02T08:57:00");
    run(Seconds{1.0});
    EXPECT_EQ(store->plans, before + 1);
    EXPECT_EQ(takeovers, Lines{});
    runTo("2026-03-02T11:00:00");
    EXPECT_EQ(takeovers, Lines{"08:59:00 Ahead"});
}

TEST_F(ClockTest, IsPlannedByAnewWhenItIsSetBack) {
    addMeeting("Ahead", "20260302T090000");
    start();
    runTo("2026-03-02T08:30:00");
    const int before = store->plans;
    setClock("2026-03-02T07:30:00");
    run(Seconds{1.0});
    EXPECT_EQ(store->plans, before + 1);
    runTo("2026-03-02T08:58:59");
    EXPECT_EQ(takeovers, Lines{});
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(takeovers, Lines{"08:59:00 Ahead"});
}

TEST_F(ClockTest, BringsNoTakeoverBackWhenItIsSetBack) {
    addMeeting("Standup", "20260302T090000");
    start();
    runTo("2026-03-02T09:10:00");
    ASSERT_EQ(takeovers, Lines{"08:59:00 Standup"});
    dismiss();
    setClock("2026-03-02T08:50:00");
    runTo("2026-03-02T10:00:00");
    EXPECT_EQ(takeovers, Lines{"08:59:00 Standup"});
}

class ZoneTest : public SleepyMachine {};

TEST_F(ZoneTest, MovesMeetingsThatAreAtAnHourOfTheDayWhereverTheUserIs) {
    add("Floating", "DTSTART:20260302T090000\nDURATION:PT30M\n");
    addMeeting("Fixed", "20260302T100000");
    start();
    runTo("2026-03-02T08:30:00");
    setZone("America/New_York");
    const auto floating = [this] {
        const auto found = store->events(local("2026-03-02T08:30:00"), local("2026-03-02T23:00:00"),
                                         {store->calendars().front().calendarIdentifier});
        return found.back().startDate;
    };
    settle([&] { return floating() == fakes::at("2026-03-02T09:00:00", "America/New_York"); },
           "the calendar is read anew");
    runTo("2026-03-02T09:30:00");
    EXPECT_EQ(takeovers, Lines{});
    runTo("2026-03-02T16:00:00");
    EXPECT_EQ(takeovers, (Lines{"09:59:00 Fixed", "14:59:00 Floating"}));
}

TEST_F(ZoneTest, IsPlannedByOnceAndFiresNothingTwice) {
    addMeeting("Standup", "20260302T090000");
    start();
    runTo("2026-03-02T09:01:00");
    ASSERT_EQ(takeovers, Lines{"08:59:00 Standup"});
    dismiss();
    const int before = store->plans;
    setZone("Asia/Tokyo");
    run(Seconds{1.0});
    EXPECT_EQ(store->plans, before + 1);
    runTo("2026-03-02T10:00:00");
    EXPECT_EQ(takeovers, Lines{"08:59:00 Standup"});
}

} // namespace
} // namespace vantrel
