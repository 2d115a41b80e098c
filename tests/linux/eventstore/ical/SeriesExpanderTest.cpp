#include "CalendarFiles.h"
#include "ExpandedText.h"

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

} // namespace
} // namespace vantrel
