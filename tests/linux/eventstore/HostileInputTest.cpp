#include "StoreFixture.h"

#include <gmock/gmock.h>

#include <chrono>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAreArray;

QByteArray repeated(const QByteArray &text, int count) {
    return text.repeated(count);
}

/// A file with something wrong in it, beside a sound one in the same calendar.
struct Row {
    const char *name;
    QByteArray text;
    const char *reason;              ///< A part of the line in the log; empty when there is none.
    std::vector<std::string> titles; ///< What shows of the file nevertheless.
};

void PrintTo(const Row &row, std::ostream *out) {
    *out << row.name;
}

class HostileInput : public StoreFixture, public ::testing::WithParamInterface<Row> {};

TEST_P(HostileInput, CostsNothingElseAndIsLogged) {
    const Row &row = GetParam();
    files.write(QStringLiteral("calendar/bad.ics"), row.text);
    files.write(QStringLiteral("calendar/good.ics"), calendarText(noonEvent("good")));
    const auto begin = std::chrono::steady_clock::now();
    const auto store = load({QStringLiteral("calendar")});
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;

    std::vector<std::string> expected = row.titles;
    expected.push_back("good");
    EXPECT_THAT(titles(*store), UnorderedElementsAreArray(expected)) << log.text();
    if (*row.reason != '\0') {
        EXPECT_TRUE(log.has("bad.ics", row.reason)) << log.text();
    } else {
        EXPECT_EQ(log.text(), "");
    }
    EXPECT_FALSE(log.has("good.ics", "")) << log.text();
    EXPECT_LE(log.lines().size(), 10U);
    EXPECT_LT(took.count(), 30.0);
}

const QByteArray start = "DTSTART:20260302T090000Z\n";

const Row texts[] = {
    {"EmptyFile", "", "no calendar", {}},
    {"BinaryJunk",
     QByteArray("\x7f\x45\x4c\x46\x00\xff\xfe\x01:\r\n\x00;=:\n", 16),
     "no calendar",
     {}},
    {"MegabytesOfJunk",
     repeated(QByteArray("\xff\x00:\x0a\x3b\x22", 6), 500'000),
     "no calendar",
     {}},
    {"TruncatedInAnEvent",
     "BEGIN:VCALENDAR\n" + noonEvent("whole") + "BEGIN:VEVENT\nUID:x\nDTSTART:2026030",
     "event that does not end",
     {"whole"}},
    {"TruncatedBehindAnEvent",
     "BEGIN:VCALENDAR\n" + noonEvent("whole"),
     "calendar that does not end",
     {"whole"}},
    {"EventThatNeverEndsBeforeAnother",
     calendarText("BEGIN:VEVENT\nUID:x\n" + start + "SUMMARY:open\n" + noonEvent("next")),
     "event that does not end",
     {"next"}},
    {"NulBytes", calendarText(event("x", start + QByteArray("SUMMARY:a\0b\n", 12))), "", {"ab"}},
    {"LineFeedsAlone", calendarText(noonEvent("x")).replace("\r\n", "\n"), "", {"x"}},
    {"CarriageReturnsAlone",
     calendarText(noonEvent("x")).replace("\r\n", "\n").replace('\n', '\r'),
     "",
     {"x"}},
    {"ByteOrderMark", "\xEF\xBB\xBF" + calendarText(noonEvent("x")), "", {"x"}},
    {"Latin1Bytes", calendarText(event("x", start + "SUMMARY:Caf\xE9\n")), "", {"Caf\xC3\xA9"}},
    {"LowerCaseNames",
     "begin:vcalendar\nbegin:vevent\nuid:x\ndtstart:20260302T090000Z\nsummary:x\nend:vevent\n"
     "end:vcalendar\n",
     "",
     {"x"}},
    {"LinesThatAreNoProperties",
     calendarText("nonsense\n" + noonEvent("x") + "more nonsense\n"),
     "2 lines that are no properties",
     {"x"}},
    {"NoUid",
     calendarText("BEGIN:VEVENT\n" + start + "SUMMARY:x\nEND:VEVENT\n"),
     "event without UID",
     {"x"}},
    {"EmptyUid", calendarText(event("", start + "SUMMARY:x\n")), "event without UID", {"x"}},
    {"NoStart",
     calendarText(event("x", "SUMMARY:x\n") + noonEvent("y")),
     "event without a start",
     {"y"}},
    {"ImpossibleStart",
     calendarText(event("x", "DTSTART:20241399T256161Z\n") + noonEvent("y")),
     "impossible date or time",
     {"y"}},
    {"ImpossibleEnd",
     calendarText(event("x", start + "DTEND:20260231T000000Z\nSUMMARY:x\n")),
     "impossible date or time",
     {"x"}},
    {"EndBeforeStart",
     calendarText(event("x", start + "DTEND:20250302T090000Z\nSUMMARY:x\n")),
     "ends before it starts",
     {"x"}},
    {"NegativeDuration",
     calendarText(event("x", start + "DURATION:-PT1H\nSUMMARY:x\n")),
     "impossible duration",
     {"x"}},
    {"OverflowingDuration",
     calendarText(event("x", start + "DURATION:P99999999999999999999W\nSUMMARY:x\n")),
     "impossible duration",
     {"x"}},
    {"UnknownZone",
     calendarText(event("x", "DTSTART;TZID=Nowhere/At All:20260302T090000\nSUMMARY:x\n")),
     "unknown time zone",
     {"x"}},
    {"ZoneNameThatLeavesTheDatabase",
     calendarText(event("x", "DTSTART;TZID=../../../dev/zero:20260302T090000\nSUMMARY:x\n")),
     "unknown time zone",
     {"x"}},
};

const Row hugeTexts[] = {
    {"LineOfMegabytes",
     calendarText(noonEvent("before") +
                  event("x", start + "X-JUNK:" + repeated("x", 20'000'000) + "\nSUMMARY:x\n") +
                  noonEvent("after")),
     "longer than 64 KB",
     {"before", "x", "after"}},
    {"AttachmentOfMegabytesIsOrdinary",
     calendarText(event("x", start + "ATTACH;ENCODING=BASE64;VALUE=BINARY:" +
                                 repeated("QUFB\r\n ", 1'000'000) + "\nSUMMARY:x\n")),
     "",
     {"x"}},
    {"DescriptionIsCutAndTheEventStays",
     calendarText(
         event("x", start + "DESCRIPTION:" + repeated("\xC3\xA9", 100'000) + "\nSUMMARY:x\n")),
     "longer than 64 KB",
     {"x"}},
    {"HugeParameterList",
     calendarText(event("x", start + "ATTENDEE" + repeated(";X-P=\"a:b;c\"", 20'000) +
                                 ":mailto:a@b.example\nSUMMARY:x\n")),
     "longer than 64 KB",
     {"x"}},
    {"ParameterListThatFits",
     calendarText(event("x", start + "ATTENDEE" + repeated(";X-P=1", 10'000) +
                                 ":mailto:a@b.example\nSUMMARY:x\n")),
     "",
     {"x"}},
    {"NestedComponents",
     calendarText(repeated("BEGIN:X-NEST\n", 100'000) + repeated("END:X-NEST\n", 100'000) +
                  noonEvent("x")),
     "nested too deeply",
     {"x"}},
    {"NestedComponentsThatNeverEnd",
     calendarText(repeated("BEGIN:VALARM\n", 100'000) + noonEvent("x")),
     "nested too deeply",
     {"x"}},
    {"NestedCalendars",
     repeated("BEGIN:VCALENDAR\n", 100'000) + noonEvent("x"),
     "calendar that does not end",
     {"x"}},
    {"NestedEvents",
     calendarText(repeated("BEGIN:VEVENT\n", 100'000) + "END:VEVENT\n" + noonEvent("x")),
     "more problems",
     {"x"}},
    {"ZoneOfManyLines",
     calendarText("BEGIN:VTIMEZONE\nTZID:Own\n" +
                  repeated("BEGIN:STANDARD\nDTSTART:19700101T000000\nTZOFFSETFROM:+0100\n"
                           "TZOFFSETTO:+0100\nRRULE:FREQ=YEARLY\nEND:STANDARD\n",
                           10'000) +
                  "END:VTIMEZONE\n" + event("x", "DTSTART;TZID=Own:20260302T090000\nSUMMARY:x\n")),
     "",
     {"x"}},
    {"ZoneWithARuleForEverySecond",
     calendarText("BEGIN:VTIMEZONE\nTZID:Own\nBEGIN:STANDARD\nDTSTART:00010101T000000\n"
                  "TZOFFSETFROM:+0100\nTZOFFSETTO:+0100\nRRULE:FREQ=SECONDLY\nEND:STANDARD\n"
                  "BEGIN:DAYLIGHT\nDTSTART:00010101T000000\nTZOFFSETFROM:+0100\n"
                  "TZOFFSETTO:+0100\nRRULE:FREQ=DAILY\nEND:DAYLIGHT\nEND:VTIMEZONE\n" +
                  event("x", "DTSTART;TZID=Own:20260302T090000\nSUMMARY:x\n")),
     "",
     {"x"}},
};

QByteArray many(int count, const QByteArray &properties) {
    QByteArray text;
    for (int index = 0; index < count; ++index)
        text += event("m" + QByteArray::number(index), properties);
    return text;
}

QByteArray tenThousandOverrides() {
    QByteArray text = event("x", "DTSTART:20000101T090000Z\nRRULE:FREQ=DAILY\nSUMMARY:plain\n");
    for (int day = 0; day < 10'000; ++day) {
        const QByteArray id =
            QDate(2000, 1, 2).addDays(day).toString(QStringLiteral("yyyyMMdd")).toLatin1();
        text += event("x", "RECURRENCE-ID:" + id + "T090000Z\nDTSTART:" + id +
                               "T100000Z\nSUMMARY:override\n");
    }
    return calendarText(text);
}

const Row rules[] = {
    {"EverySecondWithoutEnd",
     calendarText(event("x", start + "RRULE:FREQ=SECONDLY\nSUMMARY:x\n")),
     "too many occurrences",
     {"x"}},
    {"EverySecondSinceTheYearOne",
     calendarText(event("x", "DTSTART:00010101T000000Z\nRRULE:FREQ=SECONDLY\nSUMMARY:x\n")),
     "too many occurrences",
     {}},
    {"CountWithoutMeasure",
     calendarText(event("x", start + "RRULE:FREQ=SECONDLY;COUNT=2147483647\nSUMMARY:x\n")),
     "too many occurrences",
     {"x"}},
    {"HourlyOnADayThatNeverComes",
     calendarText(event("x", "DTSTART:00010101T000000Z\n"
                             "RRULE:FREQ=HOURLY;COUNT=5;BYMONTH=2;BYMONTHDAY=30\nSUMMARY:x\n")),
     "too many occurrences",
     {}},
    {"MinutelyOnADayThatNeverComes",
     calendarText(event("x", start + "RRULE:FREQ=MINUTELY;BYMONTH=2;BYMONTHDAY=30\nSUMMARY:x\n")),
     "",
     {"x"}},
    {"MonthlyAtAPositionThatIsNever",
     calendarText(event("x", start + "RRULE:FREQ=MONTHLY;BYDAY=MO;BYSETPOS=10\nSUMMARY:x\n")),
     "",
     {"x"}},
    {"UntilBeforeTheStart",
     calendarText(event("x", start + "RRULE:FREQ=DAILY;UNTIL=20250101T000000Z\nSUMMARY:x\n")),
     "",
     {"x"}},
    {"RuleThatCannotBeRead",
     calendarText(event("x", start + "RRULE:FREQ=FORTNIGHTLY\nSUMMARY:x\n")),
     "recurrence rule that cannot be read",
     {"x"}},
    {"RuleOfMegabytes",
     calendarText(event("x", start + "RRULE:FREQ=DAILY;BYHOUR=" + repeated("1,", 500'000) +
                                 "1\nSUMMARY:x\n")),
     "recurrence rule that cannot be read",
     {"x"}},
    {"EveryMomentOfEveryDay",
     calendarText(event("x", start +
                                 "RRULE:FREQ=YEARLY;BYDAY=SU,MO,TU,WE,TH,FR,SA;BYHOUR=0,1,2,3,"
                                 "4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23;"
                                 "BYMINUTE=0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,"
                                 "21,22,23,24,25,26,27,28,29;BYSETPOS=-1\nSUMMARY:x\n")),
     "too many occurrences",
     {"x"}},
    {"ThousandsOfEndlessRules",
     calendarText(many(5'000, "DTSTART:20250302T090000Z\nRRULE:FREQ=SECONDLY\n") + noonEvent("x")),
     "too many occurrences",
     {"x"}},
    {"ThousandsOfRulesThatNeverComeTrue",
     calendarText(many(5'000, "DTSTART:00010302T090000Z\n"
                              "RRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30;COUNT=3\n") +
                  noonEvent("x")),
     "too many occurrences",
     {"x"}},
    {"EndlessRulesDoNotStarveAnOrdinarySeries",
     calendarText(many(500, "DTSTART:20250302T090000Z\nRRULE:FREQ=SECONDLY\n") +
                  event("x", "DTSTART:20250303T090000Z\nRRULE:FREQ=WEEKLY\nSUMMARY:weekly\n")),
     "too many occurrences",
     {"weekly", "weekly"}},
    {"TenThousandOverrides", tenThousandOverrides(), "", std::vector<std::string>(14, "override")},
    {"OverrideThatDoesNotSayOfWhat",
     calendarText(event("x", start + "RECURRENCE-ID:nonsense\nSUMMARY:x\n")),
     "does not say which",
     {"x"}},
    {"TwoMastersOfOneUid",
     calendarText(event("x", start + "SEQUENCE:1\nSUMMARY:later\n") +
                  event("x", start + "SUMMARY:earlier\n")),
     "second event with one UID",
     {"later"}},
    {"SeriesMovedByCenturies",
     calendarText(event("x", start + "RRULE:FREQ=DAILY;COUNT=2\nSUMMARY:x\n") +
                  event("x", "RECURRENCE-ID;RANGE=THISANDFUTURE:20260303T090000Z\n"
                             "DTSTART:25260303T090000Z\nSUMMARY:far\n")),
     "moved by more than ten years",
     {"x"}},
};

std::string nameOf(const ::testing::TestParamInfo<Row> &info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileInput, ::testing::ValuesIn(texts), nameOf);
INSTANTIATE_TEST_SUITE_P(HugeTexts, HostileInput, ::testing::ValuesIn(hugeTexts), nameOf);
INSTANTIATE_TEST_SUITE_P(Rules, HostileInput, ::testing::ValuesIn(rules), nameOf);

class HostileFiles : public StoreFixture {};

TEST_F(HostileFiles, AFileBeyondTheLimitIsReadUpToIt) {
    files.write(QStringLiteral("calendar/huge.ics"),
                "BEGIN:VCALENDAR\n" + noonEvent("before") +
                    event("x", start + "DESCRIPTION:" + repeated("x", 50'000'000) + "\n") +
                    noonEvent("behind") + "END:VCALENDAR\n");
    const auto store = load({QStringLiteral("calendar")});
    EXPECT_THAT(titles(*store), ElementsAre("before"));
    EXPECT_TRUE(log.has("huge.ics", "only the first 32 MB of the file are read")) << log.text();
}

TEST_F(HostileFiles, TwoFilesWithOneUidShowTheLaterRevision) {
    files.write(QStringLiteral("calendar/one.ics"),
                calendarText(event("x", start + "SEQUENCE:3\nSUMMARY:later\n")));
    files.write(QStringLiteral("calendar/two.ics"),
                calendarText(event("x", start + "SEQUENCE:2\nSUMMARY:earlier\n")));
    files.write(QStringLiteral("calendar/good.ics"), calendarText(noonEvent("good")));
    const auto store = load({QStringLiteral("calendar")});
    EXPECT_THAT(titles(*store), ElementsAre("later", "good"));
    EXPECT_TRUE(log.has("one.ics", "two.ics")) << log.text();
    EXPECT_TRUE(log.has("one.ics", "second event with one UID")) << log.text();
}

TEST_F(HostileFiles, AMasterAndItsOverrideInTwoFilesBelongTogether) {
    files.write(QStringLiteral("calendar/master.ics"),
                calendarText(event("x", start + "RRULE:FREQ=DAILY;COUNT=2\nSUMMARY:plain\n")));
    files.write(QStringLiteral("calendar/override.ics"),
                calendarText(event("x", "RECURRENCE-ID:20260303T090000Z\n"
                                        "DTSTART:20260303T100000Z\nSUMMARY:moved\n")));
    const auto store = load({QStringLiteral("calendar")});
    EXPECT_THAT(titles(*store), ElementsAre("plain", "moved"));
    EXPECT_EQ(log.text(), "");
}

TEST_F(HostileFiles, TwoCalendarsMayHoldTheSameUid) {
    files.write(QStringLiteral("home/one/a.ics"), calendarText(noonEvent("x")));
    files.write(QStringLiteral("home/two/a.ics"), calendarText(noonEvent("x")));
    const auto store = load({QStringLiteral("home")});
    EXPECT_THAT(titles(*store), ElementsAre("x", "x"));
    EXPECT_EQ(log.text(), "");
}

TEST_F(HostileFiles, TheSameTenThousandEventsTwiceShowOnce) {
    QByteArray text;
    for (int index = 0; index < 10'000; ++index)
        text += event(QByteArray::number(index), index == 0 ? start : "DTSTART:20300101T000000Z\n");
    files.write(QStringLiteral("calendar/one.ics"), calendarText(text));
    files.write(QStringLiteral("calendar/two.ics"), calendarText(text));
    const auto store = load({QStringLiteral("calendar")});
    EXPECT_EQ(events(*store).size(), 1U);
    EXPECT_TRUE(log.has("one.ics", "two.ics"));
    EXPECT_LE(log.lines().size(), 20U);
}

TEST_F(HostileFiles, AnIdentifierHoldsNoPipeWhateverTheUid) {
    files.write(
        QStringLiteral("calendar/one.ics"),
        calendarText(event("a|b/c%7C", start + "RRULE:FREQ=DAILY;COUNT=2\nSUMMARY:plain\n") +
                     event("a|b/c%7C", "RECURRENCE-ID:20260303T090000Z\n"
                                       "DTSTART:20260303T100000Z\nSUMMARY:moved\n") +
                     event("a%7Cb/c%7C", start + "SUMMARY:other\n")));
    const auto store = load({QStringLiteral("calendar")});
    std::set<QString> identifiers;
    for (const StoreEvent &event : events(*store)) {
        EXPECT_FALSE(event.eventIdentifier->contains(u'|'));
        identifiers.insert(*event.eventIdentifier);
        const auto again = store->eventWithIdentifier(*event.eventIdentifier);
        ASSERT_TRUE(again);
        EXPECT_EQ(again->title, event.title);
    }
    EXPECT_EQ(identifiers.size(), 3U);
}

TEST_F(HostileFiles, WhatIsNoFileIsLeftAlone) {
    files.write(QStringLiteral("calendar/good.ics"), calendarText(noonEvent("good")));
    files.write(QStringLiteral("calendar/half.ics.tmp"), calendarText(noonEvent("tmp")));
    files.write(QStringLiteral("calendar/.hidden.ics"), calendarText(noonEvent("hidden")));
    files.write(QStringLiteral("calendar/note"), calendarText(noonEvent("note")));
    files.write(QStringLiteral("calendar/readme.txt"), calendarText(noonEvent("readme")));
    ASSERT_EQ(::system(qPrintable(QStringLiteral("mkfifo '%1/pipe.ics' && "
                                                 "mkdir '%1/folder.ics' && "
                                                 "ln -s nowhere '%1/broken.ics' && "
                                                 "ln -s . '%1/loop'")
                                      .arg(files.path(QStringLiteral("calendar"))))),
              0);
    const auto store = load({QStringLiteral("calendar")});
    EXPECT_THAT(titles(*store), ElementsAre("good"));
    EXPECT_EQ(store->calendars().size(), 1U);
    EXPECT_EQ(log.text(), "");
}

} // namespace
} // namespace vantrel
