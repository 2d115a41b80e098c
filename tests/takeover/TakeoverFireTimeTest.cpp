#include "SchedulerFixture.h"

#include <ostream>
#include <utility>

namespace vantrel {
namespace {

/// When a takeover comes, and that it comes once.
class TakeoverFireTimeTest : public SchedulerFixture {};

struct LeadRow {
    const char *name;
    std::int64_t leadTimeSeconds;
    const char *lastMomentBefore;
    const char *fireTime;
};

void PrintTo(const LeadRow &row, std::ostream *out) {
    *out << row.name;
}

class LeadTimeTest : public SchedulerFixture, public testing::WithParamInterface<LeadRow> {};

TEST_P(LeadTimeTest, FiresTheLeadBeforeTheStartAndNoEarlier) {
    preferences.setLeadTimeSeconds(GetParam().leadTimeSeconds);
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo(GetParam().lastMomentBefore);
    EXPECT_EQ(titles(), Titles{});
    runTo(GetParam().fireTime);
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

INSTANTIATE_TEST_SUITE_P(
    Leads, LeadTimeTest,
    testing::Values(LeadRow{"None", 0, "2026-03-02T08:59:59.999", "2026-03-02T09:00:00"},
                    LeadRow{"AMinute", 60, "2026-03-02T08:58:59.999", "2026-03-02T08:59:00"},
                    LeadRow{"FiveMinutes", 300, "2026-03-02T08:54:59.999", "2026-03-02T08:55:00"}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(TakeoverFireTimeTest, FiresAtOnceWhenTheLeadHasBegun) {
    add("Planning", queue.now() + Seconds{30});
    startScheduler();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverFireTimeTest, FiresAtOnceForAMeetingThatStartsThisMoment) {
    add("Planning", queue.now());
    startScheduler();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

struct LateRow {
    const char *name;
    double sinceStart;
    double length;
    bool fires;
};

void PrintTo(const LateRow &row, std::ostream *out) {
    *out << row.name;
}

class LateStartTest : public SchedulerFixture, public testing::WithParamInterface<LateRow> {};

TEST_P(LateStartTest, FiresAtOnceOrNever) {
    add("Planning", queue.now() - Seconds{GetParam().sinceStart}, Seconds{GetParam().length});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles().size(), GetParam().fires ? 1U : 0U);
    queue.advance(Seconds{7200});
    EXPECT_EQ(takeoverCount(), GetParam().fires ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(Lateness, LateStartTest,
                         testing::Values(LateRow{"WithinTheAllowance", 299, 1800, true},
                                         LateRow{"AtTheEndOfTheAllowance", 300, 1800, true},
                                         LateRow{"JustBeyondTheAllowance", 300.001, 1800, false},
                                         LateRow{"BeyondTheAllowance", 301, 1800, false},
                                         LateRow{"StillRunning", 119, 120, true},
                                         LateRow{"JustOver", 120, 120, false},
                                         LateRow{"Over", 121, 120, false},
                                         LateRow{"WithoutLength", 0, 0, false}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(TakeoverFireTimeTest, TakesOverAMeetingWithoutLengthAheadOfItsStart) {
    add("Reminder", local("2026-03-02T09:00:00"), Seconds{0});
    startScheduler();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Reminder")});
}

TEST_F(TakeoverFireTimeTest, ShowsOneMeetingAfterTheOther) {
    add("Planning", local("2026-03-02T09:00:00"));
    add("Retro", local("2026-03-02T09:30:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    dismiss();
    runTo("2026-03-02T09:29:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Retro")});
}

TEST_F(TakeoverFireTimeTest, LeavesOutADayAheadUntilTheHourlyTickReachesIt) {
    add("Tomorrow", local("2026-03-03T08:00:00"));
    startScheduler();
    EXPECT_EQ(armed(), 0U);
    queue.advance(Seconds{3599});
    EXPECT_EQ(armed(), 0U);
    queue.advance(Seconds{1});
    EXPECT_EQ(armed(), 1U);
    runTo("2026-03-03T07:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("Tomorrow")});
}

TEST_F(TakeoverFireTimeTest, ReachesUpToADayAhead) {
    add("Tomorrow", queue.now() + Seconds{86400.0 - 0.001});
    startScheduler();
    EXPECT_EQ(armed(), 1U);
}

TEST_F(TakeoverFireTimeTest, FindsAtTheHourlyTickWhatNobodyAnnounced) {
    startScheduler();
    add("Planning", local("2026-03-02T11:00:00"));
    queue.advance(Seconds{3600});
    EXPECT_EQ(armed(), 1U);
}

TEST_F(TakeoverFireTimeTest, MarksTheSecondOfTwoMeetingsAtOneMomentAsShown) {
    add("First", local("2026-03-02T09:00:00"));
    add("Second", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    EXPECT_EQ(titles(), Titles{QStringLiteral("First")});
    dismiss();
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{});
    EXPECT_EQ(armed(), 0U);
}

TEST_F(TakeoverFireTimeTest, ShowsAMeetingThatBeganBeforeTheProgramDid) {
    add("Planning", queue.now() - Seconds{240});
    startScheduler();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverFireTimeTest, ShowsAMeetingThatBeganWhileTheMachineSlept) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:50:00");
    queue.suspend(Seconds{14 * 60});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
}

TEST_F(TakeoverFireTimeTest, DoesNotShowAnAnsweredTakeoverAgainWhileItsMeetingIsYoung) {
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:00");
    dismiss();
    runTo("2026-03-02T09:03:00");
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(titles(), Titles{});
}

TEST_F(TakeoverFireTimeTest, ShowsAMeetingThatFellDueWithoutAMonitorOnceAndCountsItsAnswer) {
    const auto monitors = std::exchange(screens.connected, {});
    add("Planning", local("2026-03-02T09:00:00"));
    startScheduler();
    runTo("2026-03-02T08:59:30");
    scheduler->refresh();
    EXPECT_EQ(armed(), 0U);
    screens.connected = monitors;
    screens.changed.announce();
    EXPECT_EQ(titles(), Titles{QStringLiteral("Planning")});
    press(Key::space);
    EXPECT_EQ(today().rescuesFromTakeover, 1);
    queue.advance(Seconds{2});
    scheduler->refresh();
    queue.runDue();
    EXPECT_EQ(takeoverCount(), 1U);
}

} // namespace
} // namespace vantrel
