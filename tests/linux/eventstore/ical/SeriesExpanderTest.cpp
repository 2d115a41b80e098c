#include "CalendarFiles.h"
#include "ExpandedText.h"

#include <linux/eventstore/ical/RuleReadings.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

TEST(SeriesExpander, ShowsEachOfHundredsOfSeriesThatHaveBeenCountedForYears) {
    QByteArray events;
    for (int number = 0; number < 600; ++number) {
        const QByteArray rule =
            number % 2 == 0 ? "DAILY;COUNT=5000" : "WEEKLY;BYDAY=MO,TU,WE,TH,FR;COUNT=4000";
        events += event("series" + QByteArray::number(number),
                        "DTSTART:20200106T090000Z\nRRULE:FREQ=" + rule + "\n");
    }
    const ExpandedText text(calendarText(events), "2026-03-02T00:00:00", "2026-03-03T00:00:00",
                            "UTC");
    EXPECT_EQ(text.lines.size(), 600U);
    EXPECT_THAT(text.problems, IsEmpty());
}

TEST(SeriesExpander, CountsUpToTheLastOfAWeeklyRuleThatBeganInMidWeek) {
    // A Wednesday; the 13th is the Monday of the sixth week.
    const QByteArray series = event("a", "DTSTART:20260107T090000Z\n"
                                         "RRULE:FREQ=WEEKLY;BYDAY=MO,WE,FR;COUNT=15\n");
    const ExpandedText text(calendarText(series), "2026-02-02T00:00:00", "2026-03-30T00:00:00",
                            "UTC");
    EXPECT_THAT(text.lines, ElementsAre("2026-02-02 09:00/09:00", "2026-02-04 09:00/09:00",
                                        "2026-02-06 09:00/09:00", "2026-02-09 09:00/09:00"));
}

TEST(SeriesExpander, GivesWhatThereIsOfTheBudgetToTheFirstSeriesOfAText) {
    QByteArray events;
    for (int number = 0; number < 60; ++number)
        events += event("series" + QByteArray::number(number),
                        "DTSTART:19850107T090000Z\nSUMMARY:" + QByteArray::number(1000 + number) +
                            "\nRRULE:FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR;COUNT=20000\n");
    const ExpandedText text(calendarText(events), "2026-03-02T00:00:00", "2026-03-03T00:00:00",
                            "UTC");
    ASSERT_GT(text.lines.size(), 10U);
    ASSERT_LT(text.lines.size(), 60U);
    for (std::size_t number = 0; number < text.lines.size(); ++number)
        EXPECT_EQ(text.lines[number], "2026-03-02 09:00/09:00 " + std::to_string(1000 + number));
}

TEST(SeriesExpander, TakesLongListsOfDaysForMoreWork) {
    const auto work = [](const QByteArray &text) {
        QString problem;
        const auto rule = RecurrenceRule::parse(text, problem);
        EXPECT_TRUE(rule) << problem.toStdString();
        int steps = 1'000'000;
        std::vector<CivilSeconds> found;
        RuleReadings(*rule, 0, std::nullopt).collect(0, 100 * secondsPerDay, steps, found);
        return 1'000'000 - steps;
    };
    const QByteArray one = "FREQ=DAILY;BYYEARDAY=366";
    EXPECT_GT(work(one + QByteArray(",366").repeated(799)), 50 * work(one));
}

} // namespace
} // namespace vantrel
