#include "StoreFixture.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using fakes::at;
using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LocalEventStoreTest : public StoreFixture {};

TEST_F(LocalEventStoreTest, AnswersTheEventOfASingleFile) {
    files.write(QStringLiteral("meeting.ics"),
                calendarText(event("one", "DTSTART;TZID=Europe/Zurich:20260302T090000\n"
                                          "DTEND;TZID=Europe/Zurich:20260302T093000\n"
                                          "SUMMARY:Stand-up\\, daily\n"
                                          "LOCATION:Room 4\n"
                                          "DESCRIPTION:https://meet.example/one\n")));
    const auto store = load({QStringLiteral("meeting.ics")});
    EXPECT_TRUE(store->isLoaded());
    const auto found = events(*store);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].title, QStringLiteral("Stand-up, daily"));
    EXPECT_EQ(found[0].location, QStringLiteral("Room 4"));
    EXPECT_EQ(found[0].notes, QStringLiteral("https://meet.example/one"));
    EXPECT_EQ(found[0].startDate, at("2026-03-02T09:00:00", "Europe/Zurich"));
    EXPECT_EQ(found[0].endDate, at("2026-03-02T09:30:00", "Europe/Zurich"));
    EXPECT_FALSE(found[0].isAllDay);
    EXPECT_EQ(found[0].calendar->title, QStringLiteral("meeting"));
}

TEST_F(LocalEventStoreTest, AnswersTenThousandEventsOfOneFile) {
    QByteArray text;
    for (int index = 0; index < 10'000; ++index)
        text += event(QByteArray::number(index), "DTSTART:20260302T090000Z\n");
    files.write(QStringLiteral("all.ics"), calendarText(text));
    const auto store = load({QStringLiteral("all.ics")});
    EXPECT_EQ(events(*store).size(), 10'000U);
}

TEST_F(LocalEventStoreTest, AnswersTheNamedCalendarsAlone) {
    files.write(QStringLiteral("home/one/a.ics"), calendarText(noonEvent("one")));
    files.write(QStringLiteral("home/two/a.ics"), calendarText(noonEvent("two")));
    const auto store = load({QStringLiteral("home")});
    const auto all = identifiers(*store);
    ASSERT_EQ(all.size(), 2U);
    const auto from = at("2026-03-02T00:00:00");
    const auto to = at("2026-03-03T00:00:00");
    EXPECT_EQ(store->events(from, to, {all[1]}).front().title, QStringLiteral("two"));
    EXPECT_EQ(store->events(from, to, {all[1], all[0], QStringLiteral("unknown")}).size(), 2U);
    EXPECT_EQ(store->events(from, to, {all[0], all[0]}).size(), 1U);
    EXPECT_THAT(store->events(from, to, {}), IsEmpty());
    EXPECT_THAT(store->events(from, to, {QStringLiteral("unknown")}), IsEmpty());
}

TEST_F(LocalEventStoreTest, OrdersByStartAndEqualStartsByCalendar) {
    files.write(QStringLiteral("home/b/1.ics"), calendarText(noonEvent("b")));
    files.write(QStringLiteral("home/a/1.ics"), calendarText(noonEvent("z") + noonEvent("y")));
    files.write(QStringLiteral("home/c/1.ics"),
                calendarText(event("e", "DTSTART:20260302T100000Z\nSUMMARY:early\n")));
    const auto store = load({QStringLiteral("home")});
    EXPECT_THAT(titles(*store), ElementsAre("early", "y", "z", "b"));
}

TEST_F(LocalEventStoreTest, HasOneIdentifierForASeriesAndAnotherForAnOverride) {
    files.write(QStringLiteral("one.ics"),
                calendarText(event("s", "DTSTART:20260302T090000Z\nDURATION:PT1H\n"
                                        "RRULE:FREQ=DAILY;COUNT=3\nSUMMARY:plain\n") +
                             event("s", "RECURRENCE-ID;TZID=Europe/Zurich:20260303T100000\n"
                                        "DTSTART:20260303T150000Z\nSUMMARY:moved\n")));
    const auto store = load({QStringLiteral("one.ics")});
    const auto found = events(*store);
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].eventIdentifier, found[2].eventIdentifier);
    EXPECT_NE(found[0].eventIdentifier, found[1].eventIdentifier);
    EXPECT_TRUE(found[1].eventIdentifier->endsWith(QLatin1String("/s/20260303T090000Z")));
    EXPECT_TRUE(found[1].hasRecurrenceRules);
    EXPECT_EQ(store->eventWithIdentifier(*found[1].eventIdentifier)->title,
              QStringLiteral("moved"));
    EXPECT_FALSE(store->eventWithIdentifier(*found[0].eventIdentifier + QLatin1String("/x")));
    EXPECT_FALSE(store->eventWithIdentifier(QStringLiteral("nothing")));
    EXPECT_FALSE(store->eventWithIdentifier(QString()));
}

TEST_F(LocalEventStoreTest, ShowsACancelledOverrideAsCancelled) {
    files.write(QStringLiteral("one.ics"),
                calendarText(event("s", "DTSTART:20260302T090000Z\nRRULE:FREQ=DAILY;COUNT=2\n") +
                             event("s", "RECURRENCE-ID:20260303T090000Z\nSTATUS:CANCELLED\n"
                                        "DTSTART:20260303T090000Z\n")));
    const auto found = events(*load({QStringLiteral("one.ics")}));
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].status, StoreEventStatus::none);
    EXPECT_EQ(found[1].status, StoreEventStatus::cancelled);
}

TEST_F(LocalEventStoreTest, FindsTheOccurrenceNearestToNow) {
    files.write(QStringLiteral("one.ics"),
                calendarText(event("s", "DTSTART:20260302T090000Z\nDURATION:PT1H\n"
                                        "RRULE:FREQ=DAILY;COUNT=3\n")));
    const auto store = load({QStringLiteral("one.ics")});
    const QString identifier = *events(*store).front().eventIdentifier;
    const auto startAt = [&](const char *now) {
        queue.jumpWallTo(at(now));
        return store->eventWithIdentifier(identifier)->startDate;
    };
    EXPECT_EQ(startAt("2026-03-02T08:00:00"), at("2026-03-02T09:00:00"));
    EXPECT_EQ(startAt("2026-03-02T09:30:00"), at("2026-03-02T09:00:00"));
    EXPECT_EQ(startAt("2026-03-02T10:00:00"), at("2026-03-03T09:00:00"));
    EXPECT_EQ(startAt("2026-03-09T00:00:00"), at("2026-03-04T09:00:00"));
}

TEST_F(LocalEventStoreTest, KeepsIdentifiersFromRunToRun) {
    files.write(QStringLiteral("home/one/a.ics"), calendarText(noonEvent("x")));
    const auto first = load({QStringLiteral("home")});
    const auto second = load({QStringLiteral("home")});
    EXPECT_EQ(identifiers(*first), identifiers(*second));
    EXPECT_EQ(events(*first).front().eventIdentifier, events(*second).front().eventIdentifier);
    const auto alone = load({QStringLiteral("home/one/../one/")});
    EXPECT_EQ(identifiers(*first), identifiers(*alone));
}

TEST_F(LocalEventStoreTest, AnswersWholeDaysInTheUsersZone) {
    files.write(QStringLiteral("one.ics"),
                calendarText(event("d", "DTSTART;VALUE=DATE:20260303\n")));
    const auto store = load({QStringLiteral("one.ics")});
    const auto found = events(*store);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].isAllDay);
    EXPECT_EQ(found[0].startDate, at("2026-03-03T00:00:00", "Europe/Zurich"));
    EXPECT_EQ(found[0].endDate, at("2026-03-04T00:00:00", "Europe/Zurich"));
}

TEST_F(LocalEventStoreTest, KeepsToTheWindowOfItsConfiguration) {
    files.write(QStringLiteral("one.ics"),
                calendarText(event("s", "DTSTART:20200302T090000Z\nRRULE:FREQ=DAILY\n")));
    StoreConfiguration configuration;
    configuration.roots.push_back({files.path(QStringLiteral("one.ics")), {}, false});
    configuration.fixedWindow = {at("2031-01-01T00:00:00"), at("2031-01-08T00:00:00")};
    LocalEventStore store(
        queue, configuration, [] { return fakes::calendarIn("UTC"); }, StoreAccess::granted());
    store.loadNow();
    EXPECT_EQ(store.events(at("2030-01-01T00:00:00"), at("2032-01-01T00:00:00"), identifiers(store))
                  .size(),
              7U);
}

TEST_F(LocalEventStoreTest, BearsAWindowWithoutMeasure) {
    files.write(QStringLiteral("one.ics"),
                calendarText(event("s", "DTSTART:20260302T090000Z\nRRULE:FREQ=YEARLY\n") +
                             event("t", "DTSTART:20260302T090000Z\nRRULE:FREQ=DAILY\n")));
    StoreConfiguration configuration;
    configuration.roots.push_back({files.path(QStringLiteral("one.ics")), {}, false});
    configuration.fixedWindow = {Instant{Seconds{-1e300}}, Instant{Seconds{1e300}}};
    LocalEventStore store(
        queue, configuration, [] { return fakes::calendarIn("UTC"); }, StoreAccess::granted());
    store.loadNow();
    const auto found =
        store.events(Instant{Seconds{-1e300}}, Instant{Seconds{1e300}}, identifiers(store));
    EXPECT_GT(found.size(), 10'000U);
    EXPECT_TRUE(log.has("one.ics", "too many occurrences")) << log.text();
}

} // namespace
} // namespace vantrel
