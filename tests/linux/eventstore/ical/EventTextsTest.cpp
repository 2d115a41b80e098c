#include "StoreFixture.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using namespace tests;

/// What the store makes of one event with those properties.
class EventTexts : public StoreFixture {
protected:
    StoreEvent eventWith(const QByteArray &properties) {
        files.write(QStringLiteral("one.ics"),
                    calendarText(event("x", "DTSTART:20260302T090000Z\n" + properties)));
        const auto store = load({QStringLiteral("one.ics")});
        const auto found = events(*store);
        return found.size() == 1 ? found.front() : StoreEvent();
    }
};

TEST_F(EventTexts, AreUnescaped) {
    const StoreEvent event = eventWith("SUMMARY:a\\, b\\; c\\\\ d\\ne\\Nf\nLOCATION:x\\\n");
    EXPECT_EQ(event.title, QStringLiteral("a, b; c\\ d\ne\nf"));
    EXPECT_EQ(event.location, QStringLiteral("x\\"));
}

TEST_F(EventTexts, AreUtf8AndElseLatin1) {
    EXPECT_EQ(eventWith("SUMMARY:\xE4\xBC\x9A\xE8\xAD\xB0 \xF0\x9F\x90\xBE\n").title,
              QString::fromUtf8("\xE4\xBC\x9A\xE8\xAD\xB0 \xF0\x9F\x90\xBE"));
    EXPECT_EQ(eventWith("SUMMARY:Z\xFCrich\n").title, QString::fromUtf8("Z\xC3\xBCrich"));
}

TEST_F(EventTexts, LoseControlCharactersButTabAndLineFeed) {
    EXPECT_EQ(eventWith("SUMMARY:a\x01\x1b[31m\tb\\nc\n").title, QStringLiteral("a[31m\tb\nc"));
}

TEST_F(EventTexts, KeepMarkupAsItIs) {
    EXPECT_EQ(eventWith("SUMMARY:<b>x</b> &amp;\n").title, QStringLiteral("<b>x</b> &amp;"));
}

TEST_F(EventTexts, ThatAreMissingAreAbsentAndEmptyOnesAreEmpty) {
    const StoreEvent none = eventWith("");
    EXPECT_FALSE(none.title);
    EXPECT_FALSE(none.location);
    EXPECT_FALSE(none.notes);
    EXPECT_FALSE(none.url);
    EXPECT_EQ(none.attendees, nullptr);
    EXPECT_EQ(none.status, StoreEventStatus::none);
    const StoreEvent empty = eventWith("SUMMARY:\nLOCATION:\nDESCRIPTION:\nURL:\n");
    EXPECT_EQ(empty.title, QString());
    ASSERT_TRUE(empty.title);
    EXPECT_TRUE(empty.location);
    EXPECT_TRUE(empty.notes);
    EXPECT_FALSE(empty.url);
}

TEST_F(EventTexts, OfAnAlarmAreNotTheEvents) {
    const StoreEvent event = eventWith("BEGIN:VALARM\nSUMMARY:alarm\nDESCRIPTION:alarm\n"
                                       "ATTENDEE:mailto:me@example.com\nDURATION:PT9H\n"
                                       "END:VALARM\nSUMMARY:event\n");
    EXPECT_EQ(event.title, QStringLiteral("event"));
    EXPECT_FALSE(event.notes);
    EXPECT_EQ(event.attendees, nullptr);
    EXPECT_EQ(event.endDate, event.startDate);
}

TEST_F(EventTexts, CountTheFirstOfAProperty) {
    EXPECT_EQ(eventWith("SUMMARY:first\nSUMMARY:second\n").title, QStringLiteral("first"));
}

TEST_F(EventTexts, NameTheStatus) {
    EXPECT_EQ(eventWith("STATUS:CONFIRMED\n").status, StoreEventStatus::confirmed);
    EXPECT_EQ(eventWith("STATUS:tentative\n").status, StoreEventStatus::tentative);
    EXPECT_EQ(eventWith("STATUS:CANCELLED\n").status, StoreEventStatus::cancelled);
    EXPECT_EQ(eventWith("STATUS:whatever\n").status, StoreEventStatus::none);
}

TEST_F(EventTexts, GiveTheUrlElseTheConference) {
    EXPECT_EQ(eventWith("URL;VALUE=URI:https://a.example/x?y=1\n").url->absoluteString(),
              QStringLiteral("https://a.example/x?y=1"));
    EXPECT_EQ(
        eventWith("CONFERENCE;VALUE=URI;FEATURE=VIDEO:https://c.example/1\n").url->absoluteString(),
        QStringLiteral("https://c.example/1"));
    EXPECT_EQ(eventWith("X-GOOGLE-CONFERENCE:https://g.example/1\n").url->absoluteString(),
              QStringLiteral("https://g.example/1"));
    EXPECT_EQ(eventWith("CONFERENCE:https://c.example/1\nURL:https://u.example/1\n")
                  .url->absoluteString(),
              QStringLiteral("https://u.example/1"));
    EXPECT_FALSE(eventWith("URL:not a url\n").url);
}

struct ParticipantRow {
    const char *partstat;
    StoreParticipantStatus status;
};

class ParticipantStatuses : public EventTexts,
                            public ::testing::WithParamInterface<ParticipantRow> {};

TEST_P(ParticipantStatuses, AreRead) {
    const StoreEvent event =
        eventWith("ATTENDEE" + QByteArray(GetParam().partstat) + ":mailto:someone@example.com\n");
    ASSERT_TRUE(event.attendees);
    ASSERT_EQ(event.attendees->size(), 1U);
    EXPECT_EQ(event.attendees->front().participantStatus, GetParam().status);
    EXPECT_FALSE(event.attendees->front().isCurrentUser);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ParticipantStatuses,
    ::testing::Values(ParticipantRow{"", StoreParticipantStatus::pending},
                      ParticipantRow{";PARTSTAT=NEEDS-ACTION", StoreParticipantStatus::pending},
                      ParticipantRow{";PARTSTAT=ACCEPTED", StoreParticipantStatus::accepted},
                      ParticipantRow{";CN=x;PARTSTAT=declined", StoreParticipantStatus::declined},
                      ParticipantRow{";PARTSTAT=TENTATIVE", StoreParticipantStatus::tentative},
                      ParticipantRow{";PARTSTAT=DELEGATED", StoreParticipantStatus::delegated},
                      ParticipantRow{";PARTSTAT=COMPLETED", StoreParticipantStatus::completed},
                      ParticipantRow{";PARTSTAT=IN-PROCESS", StoreParticipantStatus::inProcess},
                      ParticipantRow{";PARTSTAT=X-OTHER", StoreParticipantStatus::unknown}));

TEST_F(EventTexts, FindTheUserAmongTheAttendees) {
    const StoreEvent event = eventWith("ATTENDEE:mailto:other@example.com\n"
                                       "ATTENDEE;PARTSTAT=DECLINED:MAILTO:Me@Example.com\n"
                                       "ATTENDEE;EMAIL=me@example.com:urn:uuid:42\n"
                                       "ATTENDEE:me@example.com\n");
    ASSERT_TRUE(event.attendees);
    std::vector<bool> isUser;
    for (const StoreParticipant &participant : *event.attendees)
        isUser.push_back(participant.isCurrentUser);
    EXPECT_THAT(isUser, ::testing::ElementsAre(false, true, true, true));
}

TEST_F(EventTexts, SayWhetherTheEventIsOfASeries) {
    EXPECT_FALSE(eventWith("").hasRecurrenceRules);
    EXPECT_TRUE(eventWith("RRULE:FREQ=YEARLY\n").hasRecurrenceRules);
    EXPECT_TRUE(eventWith("RDATE:20270101T000000Z\n").hasRecurrenceRules);
    EXPECT_TRUE(
        eventWith("DURATION:PT1H\nRRULE:FREQ=YEARLY\nSTATUS:CANCELLED\n").hasRecurrenceRules);
}

} // namespace
} // namespace vantrel
