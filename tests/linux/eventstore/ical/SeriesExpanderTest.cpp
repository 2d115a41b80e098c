#include "CalendarFiles.h"
#include "ExpandedText.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Lines = std::vector<std::string>;

struct Row {
    const char *name;
    QByteArray components;
    const char *from;
    const char *to;
    const char *userZone;
    Lines expected;
};

void PrintTo(const Row &row, std::ostream *out) {
    *out << row.name;
}

class SeriesExpanderTable : public ::testing::TestWithParam<Row> {};

TEST_P(SeriesExpanderTable, ShowsWhatTheRowSays) {
    const Row &row = GetParam();
    const ExpandedText text(calendarText(row.components), row.from, row.to, row.userZone);
    EXPECT_EQ(text.lines, row.expected);
    EXPECT_THAT(text.problems, IsEmpty());
}

QByteArray override(const QByteArray &uid, const QByteArray &recurrenceId,
                    const QByteArray &properties) {
    return event(uid, "RECURRENCE-ID" + recurrenceId + "\n" + properties);
}

const QByteArray zurichNine = "DTSTART;TZID=Europe/Zurich:20260302T090000\n"
                              "DTEND;TZID=Europe/Zurich:20260302T100000\n";

const Row singles[] = {
    {"SingleInAZone",
     event("a", zurichNine),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00"}},
    {"SingleInUtc",
     event("a", "DTSTART:20260302T090000Z\nDTEND:20260302T093000Z\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "America/New_York",
     {"2026-03-02 09:00/09:30"}},
    {"FloatingTimeIsInTheUsersZone",
     event("a", "DTSTART:20260302T090000\nDTEND:20260302T093000\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "Asia/Kolkata",
     {"2026-03-02 03:30/04:00"}},
    {"DurationInsteadOfEnd",
     event("a", "DTSTART:20260302T090000Z\nDURATION:PT1H30M\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 09:00/10:30"}},
    {"NeitherEndNorDurationTakesNoTime",
     event("a", "DTSTART:20260302T090000Z\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 09:00/09:00"}},
    {"BothEndAndDurationEndAtTheEnd",
     event("a", "DTSTART:20260302T090000Z\nDURATION:PT5H\nDTEND:20260302T100000Z\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 09:00/10:00"}},
    {"EndInAnotherZoneThanTheStart",
     event("a", "DTSTART;TZID=Europe/Zurich:20260302T090000\n"
                "DTEND;TZID=America/New_York:20260302T120000\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 08:00/17:00"}},
    {"FloatingEndIsInTheZoneOfTheStart",
     event("a", "DTSTART;TZID=America/New_York:20260302T090000\nDTEND:20260302T100000\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 14:00/15:00"}},
    {"EndOnADayIsItsMidnightInTheZoneOfTheStart",
     event("a", "DTSTART;TZID=America/New_York:20260302T090000\nDTEND;VALUE=DATE:20260303\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 14:00/2026-03-03 05:00"}},
    {"WholeDayInTheUsersZone",
     event("a", "DTSTART;VALUE=DATE:20260302\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "Europe/Zurich",
     {"2026-03-01 23:00/2026-03-02 23:00"}},
    {"WholeDaysUpToTheirEndDay",
     event("a", "DTSTART;VALUE=DATE:20260302\nDTEND;VALUE=DATE:20260305\n"),
     "2026-03-04T00:00:00",
     "2026-03-05T00:00:00",
     "UTC",
     {"2026-03-02 00:00/2026-03-05 00:00"}},
    {"WholeDayThatEndsOnItself",
     event("a", "DTSTART;VALUE=DATE:20260302\nDTEND;VALUE=DATE:20260302\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 00:00/2026-03-03 00:00"}},
    {"WholeDayWithoutMidnightBeginsAtItsFirstInstant",
     event("a", "DTSTART;VALUE=DATE:20250907\n"),
     "2025-09-07T12:00:00",
     "2025-09-07T13:00:00",
     "America/Santiago",
     {"2025-09-07 04:00/2025-09-08 03:00"}},
    {"UnderWayWhenTheWindowBegins",
     event("a", "DTSTART:20260301T230000Z\nDTEND:20260302T010000Z\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-01 23:00/2026-03-02 01:00"}},
    {"EndsAsTheWindowBegins",
     event("a", "DTSTART:20260301T230000Z\nDTEND:20260302T000000Z\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {}},
    {"BeginsAsTheWindowEnds",
     event("a", "DTSTART:20260303T000000Z\nDTEND:20260303T010000Z\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {}},
    {"InTheGapOfTheClockAsMuchLater",
     event("a", "DTSTART;TZID=Europe/Zurich:20260329T023000\nDURATION:PT1H\n"),
     "2026-03-29T00:00:00",
     "2026-03-30T00:00:00",
     "UTC",
     {"2026-03-29 01:30/02:30"}},
    {"InTheOverlapOfTheClockTheFirstTime",
     event("a", "DTSTART;TZID=Europe/Zurich:20261025T023000\nDURATION:PT1H\n"),
     "2026-10-25T00:00:00",
     "2026-10-26T00:00:00",
     "UTC",
     {"2026-10-25 00:30/01:30"}},
    {"DayOfDurationOverAClockChangeHas23Hours",
     event("a", "DTSTART;TZID=Europe/Zurich:20260328T120000\nDURATION:P1D\n"),
     "2026-03-28T00:00:00",
     "2026-03-30T00:00:00",
     "UTC",
     {"2026-03-28 11:00/2026-03-29 10:00"}},
    {"HoursOfDurationOverAClockChangeAreExact",
     event("a", "DTSTART;TZID=Europe/Zurich:20260328T120000\nDURATION:PT24H\n"),
     "2026-03-28T00:00:00",
     "2026-03-30T00:00:00",
     "UTC",
     {"2026-03-28 11:00/2026-03-29 11:00"}},
    {"SingleEventWithAnExceptionAtItsStart",
     event("a", zurichNine + "EXDATE;TZID=Europe/Zurich:20260302T090000\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {}},
};

const Row rules[] = {
    {"WeeklyKeepsItsLocalTimeOverTheClockChange",
     event("a", "DTSTART;TZID=Europe/Zurich:20260323T090000\nDURATION:PT1H\nRRULE:FREQ=WEEKLY\n"),
     "2026-03-23T00:00:00",
     "2026-04-10T00:00:00",
     "UTC",
     {"2026-03-23 08:00/09:00", "2026-03-30 07:00/08:00", "2026-04-06 07:00/08:00"}},
    {"WeeklyInUtcKeepsItsUtcTime",
     event("a", "DTSTART:20260323T080000Z\nRRULE:FREQ=WEEKLY\n"),
     "2026-03-23T00:00:00",
     "2026-04-01T00:00:00",
     "Europe/Zurich",
     {"2026-03-23 08:00/08:00", "2026-03-30 08:00/08:00"}},
    {"DailyThroughTheGapStandsLaterThatDayAlone",
     event("a", "DTSTART;TZID=Europe/Zurich:20260328T023000\nRRULE:FREQ=DAILY\n"),
     "2026-03-28T00:00:00",
     "2026-03-31T00:00:00",
     "UTC",
     {"2026-03-28 01:30/01:30", "2026-03-29 01:30/01:30", "2026-03-30 00:30/00:30"}},
    {"DailyFromWithinTheGapIsBackAtItsTimeTheNextDay",
     event("a", "DTSTART;TZID=Europe/Zurich:20260329T023000\nRRULE:FREQ=DAILY;COUNT=2\n"),
     "2026-03-28T00:00:00",
     "2026-03-31T00:00:00",
     "UTC",
     {"2026-03-29 01:30/01:30", "2026-03-30 00:30/00:30"}},
    {"DailyThroughTheOverlapStandsOnce",
     event("a", "DTSTART;TZID=Europe/Zurich:20261024T023000\nRRULE:FREQ=DAILY\n"),
     "2026-10-24T00:00:00",
     "2026-10-27T00:00:00",
     "UTC",
     {"2026-10-24 00:30/00:30", "2026-10-25 00:30/00:30", "2026-10-26 01:30/01:30"}},
    {"EndOfASeriesOverTheClockChangeKeepsTheExactLength",
     event("a", "DTSTART;TZID=Europe/Zurich:20260327T220000\n"
                "DTEND;TZID=Europe/Zurich:20260328T060000\nRRULE:FREQ=DAILY;COUNT=2\n"),
     "2026-03-27T00:00:00",
     "2026-03-31T00:00:00",
     "UTC",
     {"2026-03-27 21:00/2026-03-28 05:00", "2026-03-28 21:00/2026-03-29 05:00"}},
    {"CountIncludesTheFirst",
     event("a", "DTSTART:20260302T090000Z\nRRULE:FREQ=DAILY;COUNT=3\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 09:00/09:00", "2026-03-03 09:00/09:00", "2026-03-04 09:00/09:00"}},
    {"CountThatBeganLongBeforeTheWindow",
     event("a", "DTSTART:20250106T090000Z\nRRULE:FREQ=WEEKLY;COUNT=61\n"),
     "2026-02-20T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-02-23 09:00/09:00", "2026-03-02 09:00/09:00"}},
    {"CountOfOne",
     event("a", "DTSTART:20260302T090000Z\nRRULE:FREQ=DAILY;COUNT=1\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 09:00/09:00"}},
    {"UntilIsInclusive",
     event("a", "DTSTART;TZID=Europe/Zurich:20260302T090000\n"
                "RRULE:FREQ=DAILY;UNTIL=20260304T080000Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/08:00", "2026-03-03 08:00/08:00", "2026-03-04 08:00/08:00"}},
    {"UntilASecondBeforeAnOccurrence",
     event("a", "DTSTART;TZID=Europe/Zurich:20260302T090000\n"
                "RRULE:FREQ=DAILY;UNTIL=20260304T075959Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/08:00", "2026-03-03 08:00/08:00"}},
    {"UntilADayIncludesAllOfThatDay",
     event("a", "DTSTART;TZID=America/New_York:20260302T210000\n"
                "RRULE:FREQ=DAILY;UNTIL=20260303\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-03 02:00/02:00", "2026-03-04 02:00/02:00"}},
    {"UntilBeforeTheStartLeavesTheStart",
     event("a", "DTSTART:20260302T090000Z\nRRULE:FREQ=DAILY;UNTIL=20200101T000000Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 09:00/09:00"}},
    {"UntilOfWholeDays",
     event("a", "DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;UNTIL=20260303\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 00:00/2026-03-03 00:00", "2026-03-03 00:00/2026-03-04 00:00"}},
    {"WholeDaySeriesHasNoHours",
     event("a", "DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;COUNT=2;BYHOUR=9;BYMINUTE=30\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 00:00/2026-03-03 00:00", "2026-03-03 00:00/2026-03-04 00:00"}},
    {"WholeDaySeriesOverTheClockChangeBeginsAtMidnight",
     event("a", "DTSTART;VALUE=DATE:20260328\nRRULE:FREQ=DAILY;COUNT=3\n"),
     "2026-03-28T00:00:00",
     "2026-04-03T00:00:00",
     "Europe/Zurich",
     {"2026-03-27 23:00/2026-03-28 23:00", "2026-03-28 23:00/2026-03-29 22:00",
      "2026-03-29 22:00/2026-03-30 22:00"}},
    {"FloatingSeriesFollowsTheUsersZone",
     event("a", "DTSTART:20260307T090000\nRRULE:FREQ=DAILY;COUNT=2\n"),
     "2026-03-07T00:00:00",
     "2026-03-10T00:00:00",
     "America/New_York",
     {"2026-03-07 14:00/14:00", "2026-03-08 13:00/13:00"}},
    {"TwoRulesTogether",
     event("a", "DTSTART:20260302T090000Z\nRRULE:FREQ=WEEKLY;BYDAY=MO\n"
                "RRULE:FREQ=WEEKLY;BYDAY=MO,WE\n"),
     "2026-03-02T00:00:00",
     "2026-03-10T00:00:00",
     "UTC",
     {"2026-03-02 09:00/09:00", "2026-03-04 09:00/09:00", "2026-03-09 09:00/09:00"}},
    {"EveryOtherWeekKeepsItsParityFarFromTheStart",
     event("a", "DTSTART:20200106T090000Z\nRRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,FR\n"),
     "2026-03-01T00:00:00",
     "2026-03-29T00:00:00",
     "UTC",
     {"2026-03-09 09:00/09:00", "2026-03-13 09:00/09:00", "2026-03-23 09:00/09:00",
      "2026-03-27 09:00/09:00"}},
    {"LastWorkdayOfTheMonth",
     event("a", "DTSTART:20200131T090000Z\nRRULE:FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1\n"),
     "2026-02-01T00:00:00",
     "2026-04-10T00:00:00",
     "UTC",
     {"2026-02-27 09:00/09:00", "2026-03-31 09:00/09:00"}},
    {"SecondTuesdayOfTheMonth",
     event("a", "DTSTART:20200114T090000Z\nRRULE:FREQ=MONTHLY;BYDAY=2TU\n"),
     "2026-02-01T00:00:00",
     "2026-04-01T00:00:00",
     "UTC",
     {"2026-02-10 09:00/09:00", "2026-03-10 09:00/09:00"}},
    {"LastDayOfTheMonth",
     event("a", "DTSTART:20200131T090000Z\nRRULE:FREQ=MONTHLY;BYMONTHDAY=-1\n"),
     "2026-02-01T00:00:00",
     "2026-04-01T00:00:00",
     "UTC",
     {"2026-02-28 09:00/09:00", "2026-03-31 09:00/09:00"}},
    {"ThirtyFirstSkipsShortMonths",
     event("a", "DTSTART:20260131T090000Z\nRRULE:FREQ=MONTHLY\n"),
     "2026-02-01T00:00:00",
     "2026-06-01T00:00:00",
     "UTC",
     {"2026-03-31 09:00/09:00", "2026-05-31 09:00/09:00"}},
    {"LeapDayEachFourthYear",
     event("a", "DTSTART;VALUE=DATE:20200229\nRRULE:FREQ=YEARLY\n"),
     "2024-01-01T00:00:00",
     "2028-12-31T00:00:00",
     "UTC",
     {"2024-02-29 00:00/2024-03-01 00:00", "2028-02-29 00:00/2028-03-01 00:00"}},
    {"BirthdayOfUnknownYear",
     event("a", "DTSTART;VALUE=DATE:16040302\nRRULE:FREQ=YEARLY\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 00:00/2026-03-03 00:00"}},
    {"WeekNumberOfTheYear",
     event("a", "DTSTART:20200511T090000Z\nRRULE:FREQ=YEARLY;BYWEEKNO=20;BYDAY=MO\n"),
     "2026-05-01T00:00:00",
     "2026-05-30T00:00:00",
     "UTC",
     {"2026-05-11 09:00/09:00"}},
    {"HourlyWithinAWindow",
     event("a", "DTSTART:20240101T003000Z\nRRULE:FREQ=HOURLY;INTERVAL=8\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 00:30/00:30", "2026-03-02 08:30/08:30", "2026-03-02 16:30/16:30"}},
    {"HalfHourlyForAMorning",
     event("a", "DTSTART:20260302T090000Z\nRRULE:FREQ=MINUTELY;INTERVAL=30;COUNT=3\n"),
     "2026-03-02T00:00:00",
     "2026-03-03T00:00:00",
     "UTC",
     {"2026-03-02 09:00/09:00", "2026-03-02 09:30/09:30", "2026-03-02 10:00/10:00"}},
    {"StartThatTheRuleWouldNotYieldIsTheFirst",
     event("a", "DTSTART:20260303T090000Z\nRRULE:FREQ=WEEKLY;BYDAY=MO;COUNT=3\n"),
     "2026-03-01T00:00:00",
     "2026-04-01T00:00:00",
     "UTC",
     {"2026-03-03 09:00/09:00", "2026-03-09 09:00/09:00", "2026-03-16 09:00/09:00"}},
    {"OccurrenceUnderWayWhenTheWindowBegins",
     event("a", "DTSTART:20260101T230000Z\nDURATION:PT2H\nRRULE:FREQ=DAILY\n"),
     "2026-03-02T00:30:00",
     "2026-03-02T12:00:00",
     "UTC",
     {"2026-03-01 23:00/2026-03-02 01:00"}},
    {"OccurrencesOfManyDaysUnderWay",
     event("a", "DTSTART;VALUE=DATE:20260101\nDURATION:P10D\nRRULE:FREQ=WEEKLY\n"),
     "2026-03-02T10:00:00",
     "2026-03-02T12:00:00",
     "UTC",
     {"2026-02-26 00:00/2026-03-08 00:00"}},
    {"RuleThatNeverComesTrueLeavesTheStart",
     event("a", "DTSTART:20260302T090000Z\nRRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 09:00/09:00"}},
    {"ExceptionRuleTakesAway",
     event("a", "DTSTART:20260302T090000Z\nRRULE:FREQ=DAILY;COUNT=4\n"
                "EXRULE:FREQ=DAILY;INTERVAL=2\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-03 09:00/09:00", "2026-03-05 09:00/09:00"}},
};

const QByteArray fourMondays = zurichNine + "RRULE:FREQ=WEEKLY;COUNT=4\n";

const Row datesAndExceptions[] = {
    {"AddedDates",
     event("a", zurichNine + "RDATE;TZID=Europe/Zurich:20260304T110000,20260305T110000\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00", "2026-03-04 10:00/11:00", "2026-03-05 10:00/11:00"}},
    {"AddedDateThatIsThereAlready",
     event("a", fourMondays + "RDATE:20260309T080000Z\nRDATE;TZID=Europe/Zurich:20260302T090000\n"),
     "2026-03-01T00:00:00",
     "2026-03-12T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00", "2026-03-09 08:00/09:00"}},
    {"AddedPeriodWithItsOwnLength",
     event("a", zurichNine + "RDATE;VALUE=PERIOD:20260304T100000Z/PT15M,20260305T100000Z/"
                             "20260305T130000Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00", "2026-03-04 10:00/10:15", "2026-03-05 10:00/13:00"}},
    {"AddedDayOfATimedSeriesHasItsTime",
     event("a", zurichNine + "RDATE;VALUE=DATE:20260330\n"),
     "2026-03-01T00:00:00",
     "2026-04-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00", "2026-03-30 07:00/08:00"}},
    {"AddedDayOfWholeDays",
     event("a", "DTSTART;VALUE=DATE:20260302\nRDATE;VALUE=DATE:20260310\n"),
     "2026-03-01T00:00:00",
     "2026-04-20T00:00:00",
     "UTC",
     {"2026-03-02 00:00/2026-03-03 00:00", "2026-03-10 00:00/2026-03-11 00:00"}},
    {"ExceptionInTheSameZone",
     event("a", fourMondays + "EXDATE;TZID=Europe/Zurich:20260309T090000\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00", "2026-03-16 08:00/09:00"}},
    {"ExceptionInAnotherZone",
     event("a", fourMondays + "EXDATE;TZID=America/New_York:20260309T040000\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00", "2026-03-16 08:00/09:00"}},
    {"ExceptionInUtc",
     event("a", fourMondays + "EXDATE:20260309T080000Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00", "2026-03-16 08:00/09:00"}},
    {"FloatingExceptionIsInTheSeriesZone",
     event("a", fourMondays + "EXDATE:20260309T090000\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "Asia/Tokyo",
     {"2026-03-02 08:00/09:00", "2026-03-16 08:00/09:00"}},
    {"ExceptionOfADayTakesThatDayInTheSeriesZone",
     event("a", "DTSTART;TZID=America/Los_Angeles:20260302T200000\nRRULE:FREQ=DAILY;COUNT=3\n"
                "EXDATE;VALUE=DATE:20260303\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-03 04:00/04:00", "2026-03-05 04:00/04:00"}},
    {"ExceptionOfAWholeDay",
     event("a", "DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;COUNT=3\n"
                "EXDATE;VALUE=DATE:20260303\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "Europe/Zurich",
     {"2026-03-01 23:00/2026-03-02 23:00", "2026-03-03 23:00/2026-03-04 23:00"}},
    {"ExceptionOfAWholeDayWrittenAsATime",
     event("a", "DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;COUNT=3\n"
                "EXDATE:20260303T000000\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 00:00/2026-03-03 00:00", "2026-03-04 00:00/2026-03-05 00:00"}},
    {"ExceptionOfTheFirst",
     event("a", fourMondays + "EXDATE;TZID=Europe/Zurich:20260302T090000\n"),
     "2026-03-01T00:00:00",
     "2026-03-12T00:00:00",
     "UTC",
     {"2026-03-09 08:00/09:00"}},
    {"ExceptionsInOneListAndInSeveralLines",
     event("a",
           fourMondays + "EXDATE:20260302T080000Z,20260309T080000Z\nEXDATE:20260316T080000Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-25T00:00:00",
     "UTC",
     {"2026-03-23 08:00/09:00"}},
    {"ExceptionInAFloatingSeriesGivenInUtc",
     event("a", "DTSTART:20260302T090000\nRRULE:FREQ=DAILY;COUNT=2\nEXDATE:20260303T080000Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-25T00:00:00",
     "Europe/Zurich",
     {"2026-03-02 08:00/08:00"}},
    {"ExceptionOfAnAddedDate",
     event("a", zurichNine + "RDATE:20260304T100000Z\nEXDATE:20260304T100000Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-25T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00"}},
};

const Row overrides[] = {
    {"OverrideAtAnotherTimeOfTheDay",
     event("a", fourMondays + "SUMMARY:plain\n") +
         override("a", ";TZID=Europe/Zurich:20260309T090000",
                  "DTSTART:20260309T130000Z\nDURATION:PT30M\nSUMMARY:moved\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00 plain", "2026-03-09 13:00/13:30 moved",
      "2026-03-16 08:00/09:00 plain"}},
    {"OverrideBeforeItsMasterInTheText",
     override("a", ":20260309T080000Z", "DTSTART:20260309T130000Z\nSUMMARY:moved\n") +
         event("a", fourMondays + "SUMMARY:plain\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {"2026-03-09 13:00/13:00 moved"}},
    {"OverrideWhoseRecurrenceIdIsInAnotherZone",
     event("a", fourMondays) + override("a", ";TZID=America/New_York:20260309T040000",
                                        "DTSTART;TZID=Asia/Tokyo:20260310T090000\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {"2026-03-10 00:00/00:00"}},
    {"OverrideMovedOutOfTheWindow",
     event("a", fourMondays) + override("a", ":20260309T080000Z", "DTSTART:20260320T080000Z\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {}},
    {"OverrideMovedIntoTheWindow",
     event("a", fourMondays) + override("a", ":20260323T080000Z", "DTSTART:20260310T080000Z\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {"2026-03-09 08:00/09:00", "2026-03-10 08:00/08:00"}},
    {"OverrideMovedToBeforeTheSeries",
     event("a", fourMondays) + override("a", ":20260323T080000Z", "DTSTART:20260210T080000Z\n"),
     "2026-02-08T00:00:00",
     "2026-02-15T00:00:00",
     "UTC",
     {"2026-02-10 08:00/08:00"}},
    {"OverrideOfAnOccurrenceThatDoesNotExist",
     event("a", fourMondays) + override("a", ":20260310T080000Z", "DTSTART:20260310T090000Z\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {"2026-03-09 08:00/09:00", "2026-03-10 09:00/09:00"}},
    {"OverrideWithoutMaster",
     override("a", ":20260310T080000Z", "DTSTART:20260310T090000Z\nDURATION:PT1H\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {"2026-03-10 09:00/10:00"}},
    {"OverrideOfAWholeDay",
     event("a", "DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=DAILY;COUNT=3\n") +
         override("a", ";VALUE=DATE:20260303", "DTSTART;TZID=Europe/Zurich:20260303T120000\n"),
     "2026-03-01T00:00:00",
     "2026-03-20T00:00:00",
     "Europe/Zurich",
     {"2026-03-01 23:00/2026-03-02 23:00", "2026-03-03 11:00/11:00",
      "2026-03-03 23:00/2026-03-04 23:00"}},
    {"OverrideOfATimedOccurrenceNamedByItsDay",
     event("a", fourMondays) + override("a", ";VALUE=DATE:20260309", "DTSTART:20260309T150000Z\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {"2026-03-09 15:00/15:00"}},
    {"OverrideInAFloatingSeries",
     event("a", "DTSTART:20260302T090000\nRRULE:FREQ=WEEKLY;COUNT=2\n") +
         override("a", ":20260309T090000", "DTSTART:20260309T110000\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "Asia/Tokyo",
     {"2026-03-09 02:00/02:00"}},
    {"OverrideAndExceptionOfTheSameOccurrence",
     event("a", fourMondays + "EXDATE:20260309T080000Z\n") +
         override("a", ":20260309T080000Z", "DTSTART:20260309T150000Z\n"),
     "2026-03-08T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {"2026-03-09 15:00/15:00"}},
    {"OverrideOfAnAddedDate",
     event("a", zurichNine + "RDATE:20260304T100000Z\n") +
         override("a", ":20260304T100000Z", "DTSTART:20260304T150000Z\n"),
     "2026-03-03T00:00:00",
     "2026-03-15T00:00:00",
     "UTC",
     {"2026-03-04 15:00/15:00"}},
    {"OverrideOfTheFirst",
     event("a", fourMondays) + override("a", ":20260302T080000Z", "DTSTART:20260302T150000Z\n"),
     "2026-03-01T00:00:00",
     "2026-03-10T00:00:00",
     "UTC",
     {"2026-03-02 15:00/15:00", "2026-03-09 08:00/09:00"}},
    {"ThisAndFutureMovesAndRenamesTheRest",
     event("a", fourMondays + "SUMMARY:old\n") +
         override("a", ";RANGE=THISANDFUTURE:20260309T080000Z",
                  "DTSTART;TZID=Europe/Zurich:20260310T103000\nDURATION:PT15M\nSUMMARY:new\n"),
     "2026-03-01T00:00:00",
     "2026-04-20T00:00:00",
     "UTC",
     {"2026-03-02 08:00/09:00 old", "2026-03-10 09:30/09:45 new", "2026-03-17 09:30/09:45 new",
      "2026-03-24 09:30/09:45 new"}},
    {"ThisAndFutureKeepsLaterOverrides",
     event("a", fourMondays + "SUMMARY:old\n") +
         override("a", ";RANGE=THISANDFUTURE:20260309T080000Z",
                  "DTSTART:20260309T090000Z\nSUMMARY:new\n") +
         override("a", ":20260316T080000Z", "DTSTART:20260316T200000Z\nSUMMARY:late\n"),
     "2026-03-08T00:00:00",
     "2026-04-20T00:00:00",
     "UTC",
     {"2026-03-09 09:00/09:00 new", "2026-03-16 20:00/20:00 late", "2026-03-23 09:00/09:00 new"}},
    {"ThisAndFutureTwice",
     event("a", fourMondays + "SUMMARY:old\n") +
         override("a", ";RANGE=THISANDFUTURE:20260309T080000Z",
                  "DTSTART:20260309T090000Z\nSUMMARY:second\n") +
         override("a", ";RANGE=THISANDFUTURE:20260316T080000Z",
                  "DTSTART:20260316T100000Z\nSUMMARY:third\n"),
     "2026-03-08T00:00:00",
     "2026-04-20T00:00:00",
     "UTC",
     {"2026-03-09 09:00/09:00 second", "2026-03-16 10:00/10:00 third",
      "2026-03-23 10:00/10:00 third"}},
};

std::string nameOf(const ::testing::TestParamInfo<Row> &info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Singles, SeriesExpanderTable, ::testing::ValuesIn(singles), nameOf);
INSTANTIATE_TEST_SUITE_P(Rules, SeriesExpanderTable, ::testing::ValuesIn(rules), nameOf);
INSTANTIATE_TEST_SUITE_P(DatesAndExceptions, SeriesExpanderTable,
                         ::testing::ValuesIn(datesAndExceptions), nameOf);
INSTANTIATE_TEST_SUITE_P(Overrides, SeriesExpanderTable, ::testing::ValuesIn(overrides), nameOf);

TEST(SeriesExpander, RefusesHoursOfWholeDays) {
    const ExpandedText text(
        calendarText(event("a", "DTSTART;VALUE=DATE:20260302\nRRULE:FREQ=HOURLY;COUNT=3\n")),
        "2026-03-01T00:00:00", "2026-03-20T00:00:00", "UTC");
    EXPECT_THAT(text.lines, ElementsAre("2026-03-02 00:00/2026-03-03 00:00"));
    EXPECT_EQ(text.problems.size(), 1U);
}

TEST(SeriesExpander, SaysWhenASingleEventIsDue) {
    const ExpandedText text(calendarText(event("a", "DTSTART:20260320T090000Z\n")),
                            "2026-03-01T00:00:00", "2026-03-10T00:00:00", "UTC");
    EXPECT_THAT(text.lines, IsEmpty());
    EXPECT_EQ(text.due(), "2026-03-20 09:00");
}

TEST(SeriesExpander, SaysThatAPastEventIsNeverDue) {
    const ExpandedText text(calendarText(event("a", "DTSTART:20260220T090000Z\n")),
                            "2026-03-01T00:00:00", "2026-03-10T00:00:00", "UTC");
    EXPECT_EQ(text.due(), "never");
}

TEST(SeriesExpander, HasASeriesDueWithTheNextWindowUntilItsRuleIsOver) {
    const auto due = [](const QByteArray &rule) {
        return ExpandedText(calendarText(event("a", "DTSTART:20260220T090000Z\n" + rule)),
                            "2026-03-01T00:00:00", "2026-03-10T00:00:00", "UTC")
            .due();
    };
    EXPECT_EQ(due("RRULE:FREQ=YEARLY\n"), "2026-03-10 00:00");
    EXPECT_EQ(due("RRULE:FREQ=DAILY;UNTIL=20260311T000000Z\n"), "2026-03-10 00:00");
    EXPECT_EQ(due("RRULE:FREQ=DAILY;UNTIL=20260309T000000Z\n"), "never");
    EXPECT_EQ(due("RRULE:FREQ=DAILY;UNTIL=20260310T120000Z\n"), "2026-03-10 09:00");
    EXPECT_EQ(due("RRULE:FREQ=DAILY;COUNT=18\n"), "never");
    EXPECT_EQ(due("RRULE:FREQ=DAILY;COUNT=19\n"), "2026-03-10 09:00");
    EXPECT_EQ(due("RRULE:FREQ=DAILY;COUNT=3\n"), "never");
    EXPECT_EQ(due("RDATE:20260401T090000Z\n"), "2026-04-01 09:00");
}

TEST(SeriesExpander, ShowsTheLaterRevisionOfTwoMasters) {
    const ExpandedText text(
        calendarText(event("a", "DTSTART:20260302T090000Z\nSEQUENCE:2\nSUMMARY:second\n") +
                     event("a", "DTSTART:20260302T100000Z\nSEQUENCE:1\nSUMMARY:first\n") +
                     event("b", "DTSTART:20260302T110000Z\nDTSTAMP:20260101T000000Z\n") +
                     event("b", "DTSTART:20260302T120000Z\nDTSTAMP:20260102T000000Z\n")),
        "2026-03-02T00:00:00", "2026-03-03T00:00:00", "UTC");
    EXPECT_THAT(text.lines, ElementsAre("2026-03-02 09:00/09:00 second", "2026-03-02 12:00/12:00"));
    EXPECT_THAT(text.problems,
                ElementsAre("second event with one UID; the later revision is shown",
                            "second event with one UID; the later revision is shown"));
}

TEST(SeriesExpander, ClampsAnEndBeforeTheStart) {
    const ExpandedText text(
        calendarText(event("a", "DTSTART:20260302T090000Z\nDTEND:20260302T080000Z\n")),
        "2026-03-02T00:00:00", "2026-03-03T00:00:00", "UTC");
    EXPECT_THAT(text.lines, ElementsAre("2026-03-02 09:00/09:00"));
    EXPECT_THAT(text.problems, ElementsAre("event that ends before it starts"));
}

} // namespace
} // namespace vantrel
