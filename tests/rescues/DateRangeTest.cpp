#include <fakes/Times.h>
#include <rescues/DateRange.h>

#include <QStringList>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;

QStringList lastDays(int count, const char *endingOn, const char *zone = "UTC") {
    const DateRange range = DateRange::lastDays(count, at(endingOn, zone), calendarIn(zone));
    return QStringList(range.asDays()->begin(), range.asDays()->end());
}

QStringList keys(const char *text) {
    return QString::fromLatin1(text).split(u' ');
}

TEST(DateRange, IsEitherAllTimeOrAListOfDays) {
    EXPECT_EQ(DateRange::allTime().asDays(), nullptr);
    ASSERT_NE(DateRange::days({}).asDays(), nullptr);
    EXPECT_NE(DateRange::allTime(), DateRange::days({}));
    EXPECT_EQ(DateRange::days({QStringLiteral("2026-03-02")}),
              DateRange::days({QStringLiteral("2026-03-02")}));
}

TEST(DateRange, CountsBackFromTheDayOfTheDateNewestFirst) {
    EXPECT_EQ(lastDays(7, "2026-03-02T23:59:59"),
              keys("2026-03-02 2026-03-01 2026-02-28 2026-02-27 2026-02-26 2026-02-25 "
                   "2026-02-24"));
    EXPECT_EQ(lastDays(1, "2026-03-02T00:00:00"), keys("2026-03-02"));
}

TEST(DateRange, CrossesALeapDayAndTheTurnOfTheYear) {
    EXPECT_EQ(lastDays(3, "2028-03-01T12:00:00"), keys("2028-03-01 2028-02-29 2028-02-28"));
    EXPECT_EQ(lastDays(2, "2026-01-01T12:00:00"), keys("2026-01-01 2025-12-31"));
}

TEST(DateRange, IsEmptyForACountBelowOne) {
    EXPECT_EQ(lastDays(0, "2026-03-02T12:00:00"), QStringList());
    EXPECT_EQ(lastDays(-7, "2026-03-02T12:00:00"), QStringList());
}

TEST(DateRange, CountsBackInTheZoneOfTheCalendar) {
    const Instant lateInUtc = at("2026-03-02T23:30:00");
    EXPECT_EQ(DateRange::lastDays(1, lateInUtc, calendarIn("Asia/Tokyo")),
              DateRange::days({QStringLiteral("2026-03-03")}));
}

struct ChangeCase {
    const char *endingOn;
    const char *zone;
    const char *expected;
};

class DaylightSavingTest : public testing::TestWithParam<ChangeCase> {};

TEST_P(DaylightSavingTest, YieldsSevenConsecutiveDays) {
    EXPECT_EQ(lastDays(7, GetParam().endingOn, GetParam().zone), keys(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Changes, DaylightSavingTest,
    testing::Values(
        // Early and late in the day: a step of 86,400 seconds would leave out or repeat a day.
        ChangeCase{"2026-03-31T00:15:00", "Europe/Zurich",
                   "2026-03-31 2026-03-30 2026-03-29 2026-03-28 2026-03-27 2026-03-26 2026-03-25"},
        ChangeCase{"2026-03-31T23:45:00", "Europe/Zurich",
                   "2026-03-31 2026-03-30 2026-03-29 2026-03-28 2026-03-27 2026-03-26 2026-03-25"},
        ChangeCase{"2026-10-27T00:15:00", "Europe/Zurich",
                   "2026-10-27 2026-10-26 2026-10-25 2026-10-24 2026-10-23 2026-10-22 2026-10-21"},
        ChangeCase{"2026-10-27T23:45:00", "Europe/Zurich",
                   "2026-10-27 2026-10-26 2026-10-25 2026-10-24 2026-10-23 2026-10-22 2026-10-21"},
        // The day of the change has no midnight.
        ChangeCase{"2025-09-09T00:15:00", "America/Santiago",
                   "2025-09-09 2025-09-08 2025-09-07 2025-09-06 2025-09-05 2025-09-04 "
                   "2025-09-03"}));

TEST(DateRange, SkipsADateThatTheZoneLeftOut) {
    // Samoa went from the 29th straight to the 31st when it changed sides of the date line.
    EXPECT_EQ(lastDays(4, "2012-01-01T12:00:00", "Pacific/Apia"),
              keys("2012-01-01 2011-12-31 2011-12-29"));
}

} // namespace
} // namespace vantrel
