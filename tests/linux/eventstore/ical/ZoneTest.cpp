#include "CalendarFiles.h"
#include "ExpandedText.h"

#include <linux/eventstore/ical/Zone.h>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> linesOf(const QByteArray &zoneName, const QByteArray &zoneBlock,
                                 const QByteArray &start = "20260702T090000") {
    const ExpandedText text(
        calendarText(event("a", "DTSTART;TZID=" + zoneName + ":" + start + "\n") + zoneBlock),
        "2026-01-01T00:00:00", "2027-01-01T00:00:00", "Asia/Tokyo");
    EXPECT_THAT(text.problems, IsEmpty()) << zoneName.constData();
    return text.lines;
}

struct NameRow {
    const char *tzid;
    const char *expected;
};

class ZoneNames : public ::testing::TestWithParam<NameRow> {};

TEST_P(ZoneNames, AreFoundInTheSystem) {
    EXPECT_THAT(linesOf(GetParam().tzid, {}), ElementsAre(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Table, ZoneNames,
    ::testing::Values(
        NameRow{"Europe/Zurich", "2026-07-02 07:00/07:00"},
        NameRow{"\"Europe/Zurich\"", "2026-07-02 07:00/07:00"},
        NameRow{"/freeassociation.sourceforge.net/Europe/Zurich", "2026-07-02 07:00/07:00"},
        NameRow{"/mozilla.org/20070129_1/Europe/Berlin", "2026-07-02 07:00/07:00"},
        NameRow{"/citadel.org/20211028_1/America/Argentina/Buenos_Aires", "2026-07-02 12:00/12:00"},
        NameRow{"W. Europe Standard Time", "2026-07-02 07:00/07:00"},
        NameRow{"Eastern Standard Time", "2026-07-02 13:00/13:00"},
        NameRow{"US/Eastern", "2026-07-02 13:00/13:00"}, NameRow{"UTC", "2026-07-02 09:00/09:00"},
        NameRow{"Etc/UTC", "2026-07-02 09:00/09:00"},
        NameRow{"Asia/Kolkata", "2026-07-02 03:30/03:30"}));

const QByteArray ownZone = "BEGIN:VTIMEZONE\nTZID:Headquarters\n"
                           "BEGIN:STANDARD\nDTSTART:19701025T030000\nTZOFFSETFROM:+0200\n"
                           "TZOFFSETTO:+0100\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\n"
                           "END:STANDARD\n"
                           "BEGIN:DAYLIGHT\nDTSTART:19700329T020000\nTZOFFSETFROM:+0100\n"
                           "TZOFFSETTO:+0200\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\n"
                           "END:DAYLIGHT\nEND:VTIMEZONE\n";

TEST(ZoneOfTheText, IsUsedWhenTheSystemKnowsNone) {
    EXPECT_THAT(linesOf("Headquarters", ownZone), ElementsAre("2026-07-02 07:00/07:00"));
    EXPECT_THAT(linesOf("Headquarters", ownZone, "20260102T090000"),
                ElementsAre("2026-01-02 08:00/08:00"));
}

TEST(ZoneOfTheText, ChangesItsClockLikeTheSystemsZone) {
    for (const char *start :
         {"20260329T015959", "20260329T020000", "20260329T023000", "20260329T030000",
          "20261025T015959", "20261025T020000", "20261025T025959", "20261025T030000"})
        EXPECT_EQ(linesOf("Headquarters", ownZone, start), linesOf("Europe/Zurich", {}, start))
            << start;
}

TEST(ZoneOfTheText, GivesWayToTheSystemsZoneOfThatName) {
    const QByteArray wrong = "BEGIN:VTIMEZONE\nTZID:Europe/Zurich\nBEGIN:STANDARD\n"
                             "DTSTART:19700101T000000\nTZOFFSETFROM:+0500\nTZOFFSETTO:+0500\n"
                             "END:STANDARD\nEND:VTIMEZONE\n";
    EXPECT_THAT(linesOf("Europe/Zurich", wrong), ElementsAre("2026-07-02 07:00/07:00"));
}

TEST(ZoneOfTheText, MayNameTheSystemsZoneInItsLocation) {
    const QByteArray named = "BEGIN:VTIMEZONE\nTZID:Somewhere\nX-LIC-LOCATION:Europe/Zurich\n"
                             "BEGIN:STANDARD\nDTSTART:19700101T000000\nTZOFFSETFROM:+0500\n"
                             "TZOFFSETTO:+0500\nEND:STANDARD\nEND:VTIMEZONE\n";
    EXPECT_THAT(linesOf("Somewhere", named), ElementsAre("2026-07-02 07:00/07:00"));
}

TEST(ZoneOfTheText, MayChangeOnListedDays) {
    const QByteArray listed = "BEGIN:VTIMEZONE\nTZID:Listed\n"
                              "BEGIN:STANDARD\nDTSTART:20250101T000000\nTZOFFSETFROM:+0000\n"
                              "TZOFFSETTO:+0000\nEND:STANDARD\n"
                              "BEGIN:DAYLIGHT\nDTSTART:20260601T000000\nTZOFFSETFROM:+0000\n"
                              "TZOFFSETTO:+0330\nRDATE:20270601T000000\nEND:DAYLIGHT\n"
                              "END:VTIMEZONE\n";
    EXPECT_THAT(linesOf("Listed", listed), ElementsAre("2026-07-02 05:30/05:30"));
    EXPECT_THAT(linesOf("Listed", listed, "20260502T090000"),
                ElementsAre("2026-05-02 09:00/09:00"));
}

TEST(ZoneOfTheText, HoldsUntilItsRuleEnds) {
    const QByteArray ended = "BEGIN:VTIMEZONE\nTZID:Ended\n"
                             "BEGIN:STANDARD\nDTSTART:20001029T030000\nTZOFFSETFROM:+0200\n"
                             "TZOFFSETTO:+0100\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\n"
                             "END:STANDARD\n"
                             "BEGIN:DAYLIGHT\nDTSTART:20000326T020000\nTZOFFSETFROM:+0100\n"
                             "TZOFFSETTO:+0200\n"
                             "RRULE:FREQ=YEARLY;UNTIL=20250330T010000Z;BYMONTH=3;BYDAY=-1SU\n"
                             "END:DAYLIGHT\nEND:VTIMEZONE\n";
    EXPECT_THAT(linesOf("Ended", ended), ElementsAre("2026-07-02 08:00/08:00"));
}

TEST(ZoneOfTheText, WithoutAnythingUsableMakesTimesLocal) {
    const ExpandedText text(
        calendarText("BEGIN:VTIMEZONE\nTZID:Empty\nBEGIN:STANDARD\nDTSTART:junk\n"
                     "TZOFFSETFROM:soon\nTZOFFSETTO:+9999\nEND:STANDARD\nEND:VTIMEZONE\n" +
                     event("a", "DTSTART;TZID=Empty:20260702T090000\n")),
        "2026-01-01T00:00:00", "2027-01-01T00:00:00", "Asia/Tokyo");
    EXPECT_THAT(text.lines, ElementsAre("2026-07-02 00:00/00:00"));
    EXPECT_THAT(text.problems, ElementsAre("unknown time zone; its times are taken as local"));
}

TEST(Zone, AgreesWithTheSystemInBothDirectionsAroundEveryChange) {
    for (const char *name : {"Europe/Zurich", "America/New_York", "Australia/Lord_Howe",
                             "America/Santiago", "Asia/Kolkata", "Africa/Casablanca"}) {
        const QTimeZone system{QByteArray(name)};
        const Zone zone(system);
        UtcSeconds utc = 1'767'225'600; // 2026-01-01
        for (int step = 0; step < 365 * 8; ++step, utc += 3 * 3600) {
            const CivilSeconds civil = zone.toCivil(utc);
            ASSERT_EQ(civil - utc,
                      system.offsetFromUtc(QDateTime::fromSecsSinceEpoch(utc, Qt::UTC)));
            // The second of two equal readings leads back to the first.
            const UtcSeconds back = zone.toUtc(civil);
            ASSERT_EQ(zone.toCivil(back), civil) << name << ' ' << utc;
            ASSERT_TRUE(back == utc || (back < utc && utc - back <= 3600)) << name << ' ' << utc;
        }
    }
}

} // namespace
} // namespace vantrel
