#include "CalendarFiles.h"
#include "ExpandedText.h"

#include <QStringEncoder>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QByteArray start = "DTSTART:20260302T090000Z\n";

std::vector<std::string> linesOf(const QByteArray &text) {
    return ExpandedText(text, "2026-03-02T00:00:00", "2026-03-04T00:00:00", "Asia/Tokyo").lines;
}

StoreEvent onlyEventOf(const QByteArray &text) {
    ZoneRegistry zones;
    const CalendarText read = readCalendarText(text, zones);
    return read.events.size() == 1 ? eventOf(read.events.front(), {}) : StoreEvent();
}

QString urlOf(const QByteArray &properties) {
    const StoreEvent read = onlyEventOf(calendarText(event("a", start + properties)));
    return read.url ? read.url->absoluteString() : QString();
}

TEST(ComponentReader, ReadsWhatIsWrittenInTwoBytesACharacter) {
    const QString text = QString::fromUtf8(calendarText(event("a", start + "SUMMARY:Zürich\n")));
    for (const auto encoding :
         {QStringEncoder::Utf16LE, QStringEncoder::Utf16BE, QStringEncoder::Utf8}) {
        QStringEncoder encode(encoding, QStringEncoder::Flag::WriteBom);
        const QByteArray bytes = encode(text);
        EXPECT_EQ(onlyEventOf(bytes).title, QStringLiteral("Zürich")) << encoding;
    }
}

TEST(ComponentReader, FindsAZoneWhoseNameHoldsAColonWithoutQuotes) {
    for (const QByteArray name : {"GMT+08:00", "UTC+8", "UTC+0800", "\"GMT+08:00\"", "+08:00"})
        EXPECT_THAT(
            linesOf(calendarText(event("a", "DTSTART;TZID=" + name + ":20260302T090000\n"))),
            ElementsAre("2026-03-02 01:00/01:00"))
            << name.constData();
    const QByteArray list = "RDATE;TZID=GMT-05:00:20260302T100000,20260302T110000\n";
    EXPECT_THAT(
        linesOf(calendarText(event("a", start + list))),
        ElementsAre("2026-03-02 09:00/09:00", "2026-03-02 15:00/15:00", "2026-03-02 16:00/16:00"));
}

TEST(ComponentReader, FindsAZoneThatIsNamedInQuotesWhereItIsDescribed) {
    const QByteArray zone = "BEGIN:VTIMEZONE\nTZID:\"Own Zone\"\nBEGIN:STANDARD\n"
                            "DTSTART:19700101T000000\nTZOFFSETFROM:+0500\nTZOFFSETTO:+0500\n"
                            "END:STANDARD\nEND:VTIMEZONE\n";
    EXPECT_THAT(
        linesOf(calendarText(zone + event("a", "DTSTART;TZID=\"Own Zone\":20260302T090000\n"))),
        ElementsAre("2026-03-02 04:00/04:00"));
}

TEST(ComponentReader, TakesMidnightForTheEndOfADay) {
    EXPECT_THAT(linesOf(calendarText(event("a", start + "DTEND:20260302T240000Z\n"))),
                ElementsAre("2026-03-02 09:00/2026-03-03 00:00"));
}

TEST(ComponentReader, HasWhatAMessageCancelsCancelled) {
    const QByteArray cancelled = calendarText("METHOD:CANCEL\n" + event("a", start));
    EXPECT_EQ(onlyEventOf(cancelled).status, StoreEventStatus::cancelled);
    const QByteArray asked = calendarText("METHOD:REQUEST\n" + event("a", start));
    EXPECT_EQ(onlyEventOf(asked).status, StoreEventStatus::none);
    ZoneRegistry zones;
    const CalendarText both = readCalendarText(cancelled + asked, zones);
    ASSERT_EQ(both.events.size(), 2U);
    EXPECT_EQ(eventOf(both.events.back(), {}).status, StoreEventStatus::none);
}

TEST(ComponentReader, TakesNoAnswerToAnInvitationForAnEvent) {
    for (const QByteArray method : {"REPLY", "counter", "REFRESH", "DECLINECOUNTER"})
        EXPECT_THAT(linesOf(calendarText("METHOD:" + method + "\n" + event("a", start))), IsEmpty())
            << method.constData();
}

TEST(ComponentReader, KnowsBothSpellingsOfCancelled) {
    EXPECT_EQ(onlyEventOf(calendarText(event("a", start + "STATUS:CANCELED\n"))).status,
              StoreEventStatus::cancelled);
}

TEST(ComponentReader, TakesTheConferenceThatABrowserCanOpen) {
    EXPECT_EQ(urlOf("CONFERENCE;VALUE=URI;FEATURE=AUDIO:tel:+41445551234\n"
                    "CONFERENCE;VALUE=URI;FEATURE=VIDEO:https://zoom.us/j/1\n"),
              QStringLiteral("https://zoom.us/j/1"));
    EXPECT_EQ(urlOf("X-MICROSOFT-SKYPETEAMSMEETINGURL:https://teams.microsoft.com/l/1\n"),
              QStringLiteral("https://teams.microsoft.com/l/1"));
    EXPECT_EQ(urlOf("CONFERENCE:tel:+41445551234\n"), QString());
    EXPECT_EQ(urlOf("X-GOOGLE-CONFERENCE:https://meet.google.com/a\nURL:https://a.example/\n"),
              QStringLiteral("https://a.example/"));
}

} // namespace
} // namespace vantrel
