#include <fakes/Times.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;

TEST(LocalCalendar, ReadsHourMinuteAndWeekdayInItsOwnZone) {
    const Instant sundayEvening = at("2026-03-01T23:30:00");
    EXPECT_EQ(calendarIn("UTC").hour(sundayEvening), 23);
    EXPECT_EQ(calendarIn("UTC").weekday(sundayEvening), 1);
    EXPECT_EQ(calendarIn("Asia/Kolkata").hour(sundayEvening), 5);
    EXPECT_EQ(calendarIn("Asia/Kolkata").minuteOfDay(sundayEvening), 5 * 60);
    EXPECT_EQ(calendarIn("Asia/Kolkata").weekday(sundayEvening), 2);
}

TEST(LocalCalendar, NumbersWeekdaysFromSundayToSaturday) {
    const LocalCalendar calendar = calendarIn();
    const Instant sunday = at("2026-03-01T12:00:00");
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(calendar.weekday(sunday + std::chrono::days(day)), day + 1);
}

TEST(LocalCalendar, CountsDaysByTheCalendarOverADaylightSavingChange) {
    const LocalCalendar calendar = calendarIn("Europe/Zurich");
    const Instant saturday = at("2026-03-28T15:00:00", "Europe/Zurich");
    EXPECT_EQ(calendar.startOfDay(saturday), at("2026-03-28T00:00:00", "Europe/Zurich"));
    EXPECT_EQ(calendar.startOfDay(saturday, 2), at("2026-03-30T00:00:00", "Europe/Zurich"));
    EXPECT_EQ(calendar.startOfDay(saturday, 2) - calendar.startOfDay(saturday),
              std::chrono::hours(47));
}

TEST(LocalCalendar, BeginsADayWithoutMidnightAtItsFirstInstant) {
    const LocalCalendar calendar = calendarIn("America/Santiago");
    const Instant noon = at("2025-09-07T12:00:00", "America/Santiago");
    EXPECT_EQ(calendar.startOfDay(noon), at("2025-09-07T04:00:00"));
    EXPECT_EQ(calendar.hour(calendar.startOfDay(noon)), 1);
}

TEST(LocalCalendar, RoundsAFractionOfAMillisecondDown) {
    const Instant almostNine = at("2026-03-02T09:00:00") - Seconds{0.0005};
    EXPECT_EQ(calendarIn().hour(almostNine), 8);
    EXPECT_EQ(calendarIn().minuteOfDay(almostNine), 9 * 60 - 1);
}

} // namespace
} // namespace vantrel
