#include "ExpansionTable.h"

namespace vantrel {
namespace {

using namespace tests;

QByteArray override(const QByteArray &uid, const QByteArray &recurrenceId,
                    const QByteArray &properties) {
    return event(uid, "RECURRENCE-ID" + recurrenceId + "\n" + properties);
}

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

class Override : public ::testing::TestWithParam<Row> {};

TEST_P(Override, ShowsWhatTheRowSays) {
    expectRow(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Table, Override, ::testing::ValuesIn(overrides), nameOf);

} // namespace
} // namespace vantrel
