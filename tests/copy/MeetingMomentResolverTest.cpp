#include <copy/MeetingMomentResolver.h>
#include <fakes/Times.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;
using Resolver = MeetingMomentResolver;
using TimeOfDay = MeetingMoment::TimeOfDay;
using DayType = MeetingMoment::DayType;
using DayPosition = MeetingMoment::DayPosition;
using GapBefore = MeetingMoment::GapBefore;

const Instant start = at("2026-03-04T10:00:00");

DayEventSummary meeting(const char *from, const char *to) {
    return {at(from), at(to)};
}

DayEventSummary endingBeforeStart(Seconds gap) {
    return {start - gap - Seconds{1800.0}, start - gap};
}

struct HourCase {
    const char *time;
    TimeOfDay expected;
};

class TimeOfDayTest : public testing::TestWithParam<HourCase> {};

TEST_P(TimeOfDayTest, FollowsFromTheHour) {
    EXPECT_EQ(Resolver::timeOfDay(at(GetParam().time), calendarIn()), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(AllHours, TimeOfDayTest,
                         testing::Values(HourCase{"2026-03-04T00:00:00", TimeOfDay::earlyMorning},
                                         HourCase{"2026-03-04T00:30:00", TimeOfDay::earlyMorning},
                                         HourCase{"2026-03-04T07:59:59.999",
                                                  TimeOfDay::earlyMorning},
                                         HourCase{"2026-03-04T08:00:00", TimeOfDay::morning},
                                         HourCase{"2026-03-04T10:59:59", TimeOfDay::morning},
                                         HourCase{"2026-03-04T11:00:00", TimeOfDay::midday},
                                         HourCase{"2026-03-04T13:59:59", TimeOfDay::midday},
                                         HourCase{"2026-03-04T14:00:00", TimeOfDay::afternoon},
                                         HourCase{"2026-03-04T16:59:59", TimeOfDay::afternoon},
                                         HourCase{"2026-03-04T17:00:00", TimeOfDay::lateAfternoon},
                                         HourCase{"2026-03-04T18:59:59", TimeOfDay::lateAfternoon},
                                         HourCase{"2026-03-04T19:00:00", TimeOfDay::evening},
                                         HourCase{"2026-03-04T23:00:00", TimeOfDay::evening},
                                         HourCase{"2026-03-04T23:59:59", TimeOfDay::evening}));

TEST(MeetingMomentResolver, ReadsHourAndWeekdayInTheZoneOfTheCalendar) {
    const Instant sundayNightInUtc = at("2026-03-01T23:30:00");
    EXPECT_EQ(Resolver::timeOfDay(sundayNightInUtc, calendarIn("Asia/Tokyo")), TimeOfDay::morning);
    EXPECT_EQ(Resolver::dayType(sundayNightInUtc, calendarIn("Asia/Tokyo")), DayType::monday);
    EXPECT_EQ(Resolver::timeOfDay(sundayNightInUtc, calendarIn("America/New_York")),
              TimeOfDay::lateAfternoon);
    EXPECT_EQ(Resolver::dayType(sundayNightInUtc, calendarIn("America/New_York")),
              DayType::weekend);
}

TEST(MeetingMomentResolver, ReadsTheWallClockOnBothSidesOfADaylightSavingChange) {
    const LocalCalendar zurich = calendarIn("Europe/Zurich");
    EXPECT_EQ(Resolver::timeOfDay(at("2026-03-28T07:30:00"), zurich), TimeOfDay::morning);
    EXPECT_EQ(Resolver::timeOfDay(at("2026-03-28T06:30:00"), zurich), TimeOfDay::earlyMorning);
    EXPECT_EQ(Resolver::timeOfDay(at("2026-03-29T06:30:00"), zurich), TimeOfDay::morning);
}

struct WeekdayCase {
    const char *day;
    DayType expected;
};

class DayTypeTest : public testing::TestWithParam<WeekdayCase> {};

TEST_P(DayTypeTest, FollowsFromTheWeekday) {
    EXPECT_EQ(Resolver::dayType(at(GetParam().day), calendarIn()), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(AllWeekdays, DayTypeTest,
                         testing::Values(WeekdayCase{"2026-03-01T10:00:00", DayType::weekend},
                                         WeekdayCase{"2026-03-02T10:00:00", DayType::monday},
                                         WeekdayCase{"2026-03-03T10:00:00", DayType::midweek},
                                         WeekdayCase{"2026-03-04T10:00:00", DayType::midweek},
                                         WeekdayCase{"2026-03-05T10:00:00", DayType::midweek},
                                         WeekdayCase{"2026-03-06T10:00:00", DayType::friday},
                                         WeekdayCase{"2026-03-07T10:00:00", DayType::weekend}));

TEST(MeetingMomentResolver, IsAloneAndFreshWhenThereAreNoOthers) {
    EXPECT_EQ(Resolver::dayPosition(start, {}), DayPosition::onlyOfDay);
    EXPECT_EQ(Resolver::gapBefore(start, {}), GapBefore::freshStart);
}

TEST(MeetingMomentResolver, IsFirstWithOnlyLaterOthers) {
    EXPECT_EQ(Resolver::dayPosition(start, {meeting("2026-03-04T10:00:01", "2026-03-04T11:00:00")}),
              DayPosition::firstOfDay);
}

TEST(MeetingMomentResolver, IsLastWithOnlyEarlierOthers) {
    EXPECT_EQ(Resolver::dayPosition(start, {meeting("2026-03-04T09:59:59", "2026-03-04T12:00:00")}),
              DayPosition::lastOfDay);
}

TEST(MeetingMomentResolver, IsInTheMiddleWithOthersOnBothSides) {
    EXPECT_EQ(Resolver::dayPosition(start, {meeting("2026-03-04T12:00:00", "2026-03-04T13:00:00"),
                                            meeting("2026-03-04T08:00:00", "2026-03-04T09:00:00")}),
              DayPosition::middleOfDay);
}

TEST(MeetingMomentResolver, IsInTheMiddleWhenAllOthersStartAtTheSameInstant) {
    EXPECT_EQ(Resolver::dayPosition(start, {meeting("2026-03-04T10:00:00", "2026-03-04T11:00:00"),
                                            meeting("2026-03-04T10:00:00", "2026-03-04T10:15:00")}),
              DayPosition::middleOfDay);
}

TEST(MeetingMomentResolver, DoesNotCountOneAtTheSameInstantBesideALaterOne) {
    EXPECT_EQ(Resolver::dayPosition(start, {meeting("2026-03-04T10:00:00", "2026-03-04T11:00:00"),
                                            meeting("2026-03-04T15:00:00", "2026-03-04T16:00:00")}),
              DayPosition::firstOfDay);
}

TEST(MeetingMomentResolver, CountsAMeetingUnderWayAsEarlierButNotForTheGap) {
    const DayEventSummary underWay = meeting("2026-03-04T09:00:00", "2026-03-04T10:30:00");
    const DayEventSummary later = meeting("2026-03-04T15:00:00", "2026-03-04T16:00:00");
    EXPECT_EQ(Resolver::dayPosition(start, {underWay}), DayPosition::lastOfDay);
    EXPECT_EQ(Resolver::dayPosition(start, {underWay, later}), DayPosition::middleOfDay);
    EXPECT_EQ(Resolver::gapBefore(start, {underWay, later}), GapBefore::freshStart);
}

TEST(MeetingMomentResolver, TakesAnAllDayEventAsEarlierAndNeverForTheGap) {
    const DayEventSummary allDay = meeting("2026-03-04T00:00:00", "2026-03-05T00:00:00");
    EXPECT_EQ(Resolver::dayPosition(start, {allDay}), DayPosition::lastOfDay);
    EXPECT_EQ(Resolver::gapBefore(start, {allDay}), GapBefore::freshStart);
}

struct GapCase {
    double seconds;
    GapBefore expected;
};

class GapBeforeTest : public testing::TestWithParam<GapCase> {};

TEST_P(GapBeforeTest, FollowsFromTheSecondsSinceThePreviousEnd) {
    EXPECT_EQ(Resolver::gapBefore(start, {endingBeforeStart(Seconds{GetParam().seconds})}),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Bounds, GapBeforeTest,
    testing::Values(GapCase{0.0, GapBefore::backToBack}, GapCase{299.0, GapBefore::backToBack},
                    GapCase{299.5, GapBefore::backToBack}, GapCase{300.0, GapBefore::shortGap},
                    GapCase{7200.0, GapBefore::shortGap}, GapCase{7200.5, GapBefore::longGap},
                    GapCase{7201.0, GapBefore::longGap}));

TEST(MeetingMomentResolver, MeasuresTheGapFromTheLatestEndWhateverTheOrder) {
    std::vector<DayEventSummary> others{endingBeforeStart(Seconds{9000.0}),
                                        endingBeforeStart(Seconds{60.0}),
                                        endingBeforeStart(Seconds{600.0})};
    EXPECT_EQ(Resolver::gapBefore(start, others), GapBefore::backToBack);
    std::reverse(others.begin(), others.end());
    EXPECT_EQ(Resolver::gapBefore(start, others), GapBefore::backToBack);
}

TEST(MeetingMomentResolver, LeavesOneStillRunningOutOfTheGap) {
    EXPECT_EQ(Resolver::gapBefore(
                  start, {endingBeforeStart(Seconds{-1.0}), endingBeforeStart(Seconds{600.0})}),
              GapBefore::shortGap);
}

} // namespace
} // namespace vantrel
