#include "SchedulerFixture.h"

namespace vantrel {
namespace {

class TakeoverSnoozeTest : public SchedulerFixture {};

TEST_F(TakeoverSnoozeTest, BringsASnoozedTakeoverBackHoweverLateItIs) {
    preferences.setLeadTimeSeconds(0);
    preferences.setSnoozeDurationMinutes(5);
    add("Planning", local("2026-03-02T08:30:00"));
    startScheduler();
    runTo("2026-03-02T08:30:30");
    pressSnooze();
    runTo("2026-03-02T08:35:29.999");
    EXPECT_EQ(titles(), Titles{});
    runTo("2026-03-02T08:35:30");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    EXPECT_EQ(today().snoozes, 1);
}

TEST_F(TakeoverSnoozeTest, SnoozesAgainAndAgain) {
    preferences.setSnoozeDurationMinutes(15);
    add("Planning", local("2026-03-02T08:10:00"), Seconds{600});
    startScheduler();
    runTo("2026-03-02T08:09:00");
    pressSnooze();
    runTo("2026-03-02T08:24:00");
    EXPECT_EQ(titles().size(), 1U);
    pressSnooze();
    runTo("2026-03-02T08:39:00");
    EXPECT_EQ(titles().size(), 1U);
    EXPECT_EQ(today().snoozes, 2);
    dismiss();
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverSnoozeTest, BringsASnoozedTakeoverBackOutsideTheWorkHours) {
    preferences.setWorkHoursEnabled(true);
    preferences.setWorkHoursStartMinute(480);
    preferences.setWorkHoursEndMinute(520);
    preferences.setSnoozeDurationMinutes(2);
    add("Planning", local("2026-03-02T08:40:00"));
    startScheduler();
    runTo("2026-03-02T08:39:00");
    pressSnooze();
    queue.advance(Seconds{120});
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverSnoozeTest, SnoozesForTheTimeThatIsSetWhenSnoozeIsPressed) {
    add("Planning", local("2026-03-02T08:40:00"));
    startScheduler();
    runTo("2026-03-02T08:39:00");
    preferences.setSnoozeDurationMinutes(3);
    pressSnooze();
    preferences.setSnoozeDurationMinutes(10);
    queue.advance(Seconds{179});
    EXPECT_EQ(titles(), Titles{});
    queue.advance(Seconds{1});
    EXPECT_EQ(titles().size(), 1U);
}

TEST_F(TakeoverSnoozeTest, BringsASnoozedTakeoverBackAtOnceWhenThePlanIsMadeAnew) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    pressSnooze();
    runTo("2026-03-02T08:59:30");
    EXPECT_EQ(titles(), Titles{});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    dismiss();
    runTo("2026-03-02T09:05:00");
    EXPECT_EQ(titles(), Titles{});
}

TEST_F(TakeoverSnoozeTest, EndsASnoozeAtOnceWhenThePlanIsMadeAnewWithinFiveMinutesOfTheStart) {
    preferences.setSnoozeDurationMinutes(5);
    add("Planning", local("2026-03-02T08:40:00"));
    startScheduler();
    runTo("2026-03-02T08:39:00");
    pressSnooze();
    runTo("2026-03-02T08:41:00");
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverSnoozeTest, LosesASnoozeWhenThePlanIsMadeAnewLaterThanThat) {
    preferences.setSnoozeDurationMinutes(15);
    add("Planning", local("2026-03-02T08:40:00"));
    startScheduler();
    runTo("2026-03-02T08:39:00");
    pressSnooze();
    runTo("2026-03-02T08:45:01");
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverSnoozeTest, LosesASnoozeThatEndsWhileAnotherTakeoverIsUp) {
    preferences.setSnoozeDurationMinutes(5);
    preferences.setAutoCloseSeconds(0);
    add("Planning", local("2026-03-02T08:20:00"));
    add("Retro", local("2026-03-02T08:24:30"));
    startScheduler();
    runTo("2026-03-02T08:19:00");
    pressSnooze();
    runTo("2026-03-02T08:25:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Retro")});
    dismiss();
    queue.advance(Seconds{1200});
    EXPECT_EQ(titles(), Titles{});
}

TEST_F(TakeoverSnoozeTest, EndsASnoozeWithAPause) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    pressSnooze();
    preferences.setIsPaused(true);
    queue.advance(Seconds{3000});
    EXPECT_EQ(titles(), Titles{});
}

} // namespace
} // namespace vantrel
