#include "SchedulerFixture.h"

#include <ostream>

namespace vantrel {
namespace {

using fakes::at;

/// The work hours look at the moment of the fire, one minute before the start.
class WorkHoursTest : public SchedulerFixture {
protected:
    WorkHoursTest() {
        preferences.setWorkHoursEnabled(true);
        preferences.setWorkHoursWeekdays({1, 2, 3, 4, 5, 6, 7});
    }

    void setWindow(std::int64_t startMinute, std::int64_t endMinute) {
        preferences.setWorkHoursStartMinute(startMinute);
        preferences.setWorkHoursEndMinute(endMinute);
    }

    /// Whether a takeover is planned for a meeting that fires at that local time.
    bool keepsFireAt(const char *fireTime) {
        store.storedEvents.clear();
        add("Planning", local(fireTime) + Seconds{60});
        scheduler->refresh();
        return queue.pendingCount() == 1;
    }
};

struct WindowRow {
    const char *name;
    std::int64_t startMinute;
    std::int64_t endMinute;
    const char *fireTime;
    bool keeps;
};

void PrintTo(const WindowRow &row, std::ostream *out) {
    *out << row.name;
}

class WorkHoursWindowTest : public WorkHoursTest, public testing::WithParamInterface<WindowRow> {};

TEST_P(WorkHoursWindowTest, KeepsOrDropsTheFire) {
    setWindow(GetParam().startMinute, GetParam().endMinute);
    EXPECT_EQ(keepsFireAt(GetParam().fireTime), GetParam().keeps);
}

INSTANTIATE_TEST_SUITE_P(
    Windows, WorkHoursWindowTest,
    testing::Values(WindowRow{"DayJustBeforeTheStart", 540, 1020, "2026-03-02T08:59:00", false},
                    WindowRow{"DayLastMillisecondBefore", 540, 1020, "2026-03-02T08:59:59.999",
                              false},
                    WindowRow{"DayAtTheStart", 540, 1020, "2026-03-02T09:00:00", true},
                    WindowRow{"DayInTheLastMinute", 540, 1020, "2026-03-02T16:59:59", true},
                    WindowRow{"DayAtTheEnd", 540, 1020, "2026-03-02T17:00:00", false},
                    WindowRow{"NightJustBeforeTheStart", 1320, 360, "2026-03-02T21:59:59", false},
                    WindowRow{"NightAtTheStart", 1320, 360, "2026-03-02T22:00:00", true},
                    WindowRow{"NightBeforeMidnight", 1320, 360, "2026-03-02T23:30:00", true},
                    WindowRow{"NightAtMidnight", 1320, 360, "2026-03-03T00:00:00", true},
                    WindowRow{"NightInTheLastMinute", 1320, 360, "2026-03-03T05:59:00", true},
                    WindowRow{"NightAtTheEnd", 1320, 360, "2026-03-03T06:00:00", false},
                    WindowRow{"NightAtNoon", 1320, 360, "2026-03-02T12:00:00", false},
                    WindowRow{"EmptyAtItsMinute", 600, 600, "2026-03-02T10:00:00", false},
                    WindowRow{"EmptyBefore", 600, 600, "2026-03-02T09:59:00", false},
                    WindowRow{"EmptyAfter", 600, 600, "2026-03-02T10:01:00", false},
                    WindowRow{"EmptyAtMidnight", 0, 0, "2026-03-03T00:00:00", false},
                    WindowRow{"WholeDayButItsLastMinute", 0, 1439, "2026-03-02T23:59:00", false},
                    WindowRow{"WholeDay", 0, 1439, "2026-03-02T23:58:59", true},
                    WindowRow{"OneMinute", 600, 601, "2026-03-02T10:00:59", true}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(WorkHoursTest, MeanNothingWhileTheyAreOff) {
    preferences.setWorkHoursEnabled(false);
    preferences.setWorkHoursWeekdays({});
    setWindow(600, 600);
    EXPECT_TRUE(keepsFireAt("2026-03-02T20:00:00"));
}

TEST_F(WorkHoursTest, LookAtTheWeekdayOfTheFireAndNotOfTheStart) {
    setWindow(0, 1439);
    preferences.setWorkHoursStartMinute(1);
    preferences.setWorkHoursEndMinute(0);
    queue.jumpWallTo(local("2026-03-08T20:00:00")); // A Sunday.
    add("Midnight", local("2026-03-09T00:00:30"));
    preferences.setWorkHoursWeekdays({2});
    scheduler->refresh();
    EXPECT_EQ(queue.pendingCount(), 0U);
    preferences.setWorkHoursWeekdays({1});
    scheduler->refresh();
    EXPECT_EQ(queue.pendingCount(), 1U);
}

struct WeekdayRow {
    const char *fireTime;
    std::int64_t weekday;
};

void PrintTo(const WeekdayRow &row, std::ostream *out) {
    *out << row.fireTime;
}

class WorkHoursWeekdayTest : public WorkHoursTest,
                             public testing::WithParamInterface<WeekdayRow> {};

TEST_P(WorkHoursWeekdayTest, KeepsTheFireOnItsOwnWeekdayOnly) {
    setWindow(0, 1439);
    queue.jumpWallTo(local(GetParam().fireTime) - Seconds{3600});
    for (std::int64_t weekday = 1; weekday <= 7; ++weekday) {
        preferences.setWorkHoursWeekdays({weekday});
        EXPECT_EQ(keepsFireAt(GetParam().fireTime), weekday == GetParam().weekday) << weekday;
    }
    preferences.setWorkHoursWeekdays({});
    EXPECT_FALSE(keepsFireAt(GetParam().fireTime));
}

INSTANTIATE_TEST_SUITE_P(
    Week, WorkHoursWeekdayTest,
    testing::Values(WeekdayRow{"2026-03-08T12:00:00", 1}, WeekdayRow{"2026-03-09T12:00:00", 2},
                    WeekdayRow{"2026-03-10T12:00:00", 3}, WeekdayRow{"2026-03-11T12:00:00", 4},
                    WeekdayRow{"2026-03-12T12:00:00", 5}, WeekdayRow{"2026-03-13T12:00:00", 6},
                    WeekdayRow{"2026-03-14T12:00:00", 7}));

TEST_F(WorkHoursTest, LookAtTheClockWhenTheFireIsAlreadyDue) {
    setWindow(540, 1020);
    queue.jumpWallTo(local("2026-03-02T08:59:45"));
    add("Planning", local("2026-03-02T09:00:30"));
    scheduler->refresh();
    EXPECT_EQ(queue.pendingCount(), 0U);
    queue.advance(Seconds{15});
    scheduler->refresh();
    EXPECT_EQ(queue.pendingCount(), 1U);
}

TEST_F(WorkHoursTest, DoNotDropAFireForTheFractionsOfTheClock) {
    setWindow(540, 1020);
    queue.advance(Seconds{0.123456});
    EXPECT_TRUE(keepsFireAt("2026-03-02T09:00:00"));
    queue.advance(Seconds{0.1});
    EXPECT_FALSE(keepsFireAt("2026-03-02T17:00:00"));
}

TEST_F(WorkHoursTest, FollowTheUsersTimeZone) {
    setWindow(540, 1020);
    EXPECT_TRUE(keepsFireAt("2026-03-02T09:30:00"));
    calendar = fakes::calendarIn("America/New_York");
    EXPECT_FALSE(keepsFireAt("2026-03-02T09:30:00"));
    EXPECT_TRUE(keepsFireAt("2026-03-02T15:30:00"));
}

TEST_F(WorkHoursTest, ReadTheClockOnTheWallOnTheDayItGoesForward) {
    queue.jumpWallTo(local("2026-03-29T00:30:00"));
    setWindow(180, 240); // 03:00 follows at once on 01:59.
    EXPECT_FALSE(keepsFireAt("2026-03-29T01:59:59"));
    EXPECT_TRUE(keepsFireAt("2026-03-29T03:00:00"));
    EXPECT_FALSE(keepsFireAt("2026-03-29T04:00:00"));
}

TEST_F(WorkHoursTest, CoverTheHourThatComesTwiceOnTheDayItGoesBack) {
    queue.jumpWallTo(local("2026-10-25T00:30:00"));
    setWindow(150, 180);                              // 02:30 to 03:00
    const Instant summer = at("2026-10-25T00:35:00"); // 02:35 in summer time
    for (const Instant fire : {summer, summer + Seconds{3600}}) {
        store.storedEvents.clear();
        add("Planning", fire + Seconds{60});
        scheduler->refresh();
        EXPECT_EQ(queue.pendingCount(), 1U);
        store.storedEvents.clear();
        add("Planning", fire - Seconds{600} + Seconds{60});
        scheduler->refresh();
        EXPECT_EQ(queue.pendingCount(), 0U);
    }
}

TEST_F(WorkHoursTest, LeaveTheFireTimeAloneOnTheDayTheClockChanges) {
    setWindow(540, 1020);
    queue.jumpWallTo(local("2026-03-28T20:00:00"));
    add("Planning", local("2026-03-29T09:01:00"));
    scheduler->refresh();
    runTo("2026-03-29T08:59:59");
    EXPECT_EQ(takeoverCount(), 0U);
    runTo("2026-03-29T09:00:00");
    EXPECT_EQ(takeoverCount(), 1U);
}

} // namespace
} // namespace vantrel
