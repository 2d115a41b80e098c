#include "SampleEvents.h"

#include <calendar/UpcomingEventsQuery.h>
#include <fakes/FakeEventStore.h>

#include <QStringList>

#include <gtest/gtest.h>

#include <chrono>
#include <limits>

namespace vantrel {
namespace {

using fakes::at;

/// A store that keeps the order in which it was given its events, whatever their starts.
class UpcomingEventsQueryTest : public testing::Test {
protected:
    UpcomingEventsQueryTest() {
        store.storedCalendars = {samples::calendar(QStringLiteral("home")),
                                 samples::calendar(QStringLiteral("work"))};
    }

    void add(const char *identifier, Instant start, Seconds length = Seconds{1800.0},
             const char *calendar = "work") {
        StoreEvent event = samples::event();
        event.eventIdentifier = QLatin1String(identifier);
        event.startDate = start;
        event.endDate = start + length;
        event.calendar =
            std::make_shared<StoreCalendar>(samples::calendar(QLatin1String(calendar)));
        store.storedEvents.push_back(event);
    }

    QStringList fetched(const std::set<QString> &selection = {QStringLiteral("work")}) {
        QStringList identifiers;
        for (const UpcomingEvent &event : query.fetchUpcoming(selection, now, horizon))
            identifiers.append(event.id.section(u'|', 0, 0));
        return identifiers;
    }

    const Instant now = at("2026-03-02T09:00:00");
    const Seconds horizon{86400.0};
    fakes::FakeEventStore store{[this] { return now; }};
    const UpcomingEventsQuery query{store};
};

TEST_F(UpcomingEventsQueryTest, AnswersNothingForAnEmptySelectionAndLeavesTheStoreAlone) {
    add("a", now);
    EXPECT_EQ(fetched({}), QStringList());
    EXPECT_EQ(store.fetchCount, 0);
}

TEST_F(UpcomingEventsQueryTest, AnswersNothingForUnknownCalendarsAndFetchesNoEvents) {
    add("a", now);
    EXPECT_EQ(fetched({QStringLiteral("gone"), QStringLiteral("Work")}), QStringList());
    EXPECT_EQ(store.fetchCount, 1);
}

TEST_F(UpcomingEventsQueryTest, FetchesOnceAndIgnoresUnknownCalendarsBesideKnownOnes) {
    add("a", now);
    EXPECT_EQ(fetched({QStringLiteral("gone"), QStringLiteral("work")}),
              QStringList{QStringLiteral("a")});
    EXPECT_EQ(store.fetchCount, 2);
}

TEST_F(UpcomingEventsQueryTest, TakesOnlyTheSelectedCalendars) {
    add("a", now, Seconds{60.0}, "home");
    add("b", now, Seconds{60.0}, "work");
    EXPECT_EQ(fetched({QStringLiteral("home")}), QStringList{QStringLiteral("a")});
    EXPECT_EQ(fetched({QStringLiteral("work")}), QStringList{QStringLiteral("b")});
    EXPECT_EQ(fetched({QStringLiteral("home"), QStringLiteral("work")}),
              (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(UpcomingEventsQueryTest, TakesWhatStartsNowAndNotWhatStartedASecondAgo) {
    add("under way", now - Seconds{1.0});
    add("now", now);
    EXPECT_EQ(fetched(), QStringList{QStringLiteral("now")});
}

TEST_F(UpcomingEventsQueryTest, TakesWhatStartsWithinTheHorizonHoweverLongItLasts) {
    add("long", now + horizon - Seconds{1.0}, std::chrono::hours(48));
    add("beyond", now + horizon + Seconds{1.0});
    EXPECT_EQ(fetched(), QStringList{QStringLiteral("long")});
}

TEST_F(UpcomingEventsQueryTest, TakesAMeetingWithoutLengthThatStartsNow) {
    add("instant", now, Seconds{0.0});
    EXPECT_EQ(fetched(), QStringList{QStringLiteral("instant")});
}

TEST_F(UpcomingEventsQueryTest, LeavesOutAllDayCancelledAndDeclinedEvents) {
    for (const char *identifier : {"all-day", "cancelled", "declined", "tentative"})
        add(identifier, now);
    store.storedEvents[0].isAllDay = true;
    store.storedEvents[1].status = StoreEventStatus::cancelled;
    store.storedEvents[2].attendees =
        samples::attendees({samples::user(StoreParticipantStatus::declined)});
    store.storedEvents[3].attendees =
        samples::attendees({samples::user(StoreParticipantStatus::tentative)});
    EXPECT_EQ(fetched(), QStringList{QStringLiteral("tentative")});
}

TEST_F(UpcomingEventsQueryTest, SortsByStartAndKeepsTheStoresOrderAmongEqualStarts) {
    add("late", now + Seconds{3600.0});
    add("z", now + Seconds{60.0});
    add("a", now + Seconds{60.0});
    add("m", now + Seconds{60.0});
    add("early", now);
    EXPECT_EQ(fetched(),
              (QStringList{QStringLiteral("early"), QStringLiteral("z"), QStringLiteral("a"),
                           QStringLiteral("m"), QStringLiteral("late")}));
}

TEST_F(UpcomingEventsQueryTest, KeepsTheOrderOfAStoreThatAnswersByStart) {
    add("b", now);
    add("a", now);
    add("c", now + Seconds{60.0});
    EXPECT_EQ(fetched(),
              (QStringList{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("c")}));
}

TEST_F(UpcomingEventsQueryTest, TellsStartsApartByFractionsOfASecond) {
    add("second", now + Seconds{0.002});
    add("first", now + Seconds{0.001});
    EXPECT_EQ(fetched(), (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
}

TEST_F(UpcomingEventsQueryTest, SeesAChangedStoreAtTheNextCall) {
    EXPECT_EQ(fetched(), QStringList());
    add("a", now);
    EXPECT_EQ(fetched(), QStringList{QStringLiteral("a")});
    store.storedCalendars.clear();
    EXPECT_EQ(fetched(), QStringList());
}

TEST_F(UpcomingEventsQueryTest, GivesAnEventWithoutIdentifierAnotherIdAtEachCall) {
    add("a", now);
    store.storedEvents[0].eventIdentifier.reset();
    EXPECT_NE(fetched(), fetched());
}

TEST_F(UpcomingEventsQueryTest, AnswersNothingForAHorizonThatLiesBehind) {
    add("a", now);
    EXPECT_TRUE(query.fetchUpcoming({QStringLiteral("work")}, now, Seconds{-1.0}).empty());
}

} // namespace
} // namespace vantrel
