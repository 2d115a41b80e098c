#include <calendar/EventGrouper.h>
#include <fakes/Times.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;

UpcomingEvent event(const char *id, Instant start) {
    UpcomingEvent event;
    event.id = QString::fromLatin1(id);
    event.startDate = start;
    event.endDate = start + Seconds{1800.0};
    return event;
}

/// Its ids, in order.
std::string ids(const DayGroup &group) {
    QStringList ids;
    for (const UpcomingEvent &event : group.events)
        ids.append(event.id);
    return ids.join(u' ').toStdString();
}

// A Monday.
const Instant now = at("2026-03-02T09:00:00");

TEST(EventGrouper, PartsTodayFromTomorrowAtMidnight) {
    const auto groups = EventGrouper::groupByDay(
        {event("late", at("2026-03-02T23:59:00")), event("midnight", at("2026-03-03T00:00:00"))},
        now, calendarIn());
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0].label, DayLabel::today());
    EXPECT_EQ(groups[0].day, at("2026-03-02T00:00:00"));
    EXPECT_EQ(ids(groups[0]), "late");
    EXPECT_EQ(groups[1].label, DayLabel::tomorrow());
    EXPECT_EQ(groups[1].day, at("2026-03-03T00:00:00"));
    EXPECT_EQ(ids(groups[1]), "midnight");
}

TEST(EventGrouper, NamesTheWeekdaysFromTheDayAfterTomorrowToTheSixthDay) {
    const LocalCalendar calendar = calendarIn();
    const auto label = [&](const char *day) {
        return EventGrouper::dayLabel(at(day), now, calendar);
    };
    EXPECT_EQ(label("2026-03-04T00:00:00"), DayLabel::weekday(QStringLiteral("Wednesday")));
    EXPECT_EQ(label("2026-03-05T00:00:00"), DayLabel::weekday(QStringLiteral("Thursday")));
    EXPECT_EQ(label("2026-03-06T00:00:00"), DayLabel::weekday(QStringLiteral("Friday")));
    EXPECT_EQ(label("2026-03-07T00:00:00"), DayLabel::weekday(QStringLiteral("Saturday")));
    EXPECT_EQ(label("2026-03-08T23:59:59"), DayLabel::weekday(QStringLiteral("Sunday")));
    EXPECT_EQ(label("2026-03-09T00:00:00"), DayLabel::date(QStringLiteral("Mar 9, 2026")));
}

TEST(EventGrouper, DatesADayBeforeToday) {
    EXPECT_EQ(EventGrouper::dayLabel(at("2026-03-01T23:59:59"), now, calendarIn()),
              DayLabel::date(QStringLiteral("Mar 1, 2026")));
}

TEST(EventGrouper, WritesDaysInTheLanguageOfTheCalendar) {
    const LocalCalendar german(QTimeZone::utc(), QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(EventGrouper::dayLabel(at("2026-03-04T00:00:00"), now, german).text(), u"Mittwoch");
    EXPECT_EQ(EventGrouper::dayLabel(at("2026-03-09T00:00:00"), now, german).text(), u"09.03.2026");
}

TEST(EventGrouper, FilesAnEventThatRunsPastMidnightUnderItsFirstDayAlone) {
    UpcomingEvent night = event("night", at("2026-03-02T22:00:00"));
    night.endDate = at("2026-03-04T06:00:00");
    const auto groups = EventGrouper::groupByDay({night}, now, calendarIn());
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].label, DayLabel::today());
}

TEST(EventGrouper, KeepsTheOrderOfEventsWithTheSameStart) {
    const Instant ten = at("2026-03-02T10:00:00");
    const auto groups = EventGrouper::groupByDay(
        {event("z", ten), event("first", at("2026-03-02T09:30:00")), event("a", ten)}, now,
        calendarIn());
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(ids(groups[0]), "first z a");
}

TEST(EventGrouper, OrdersTheDaysWhateverTheOrderOfTheEvents) {
    const auto groups = EventGrouper::groupByDay(
        {event("c", at("2026-03-09T08:00:00")), event("a", at("2026-03-02T10:00:00")),
         event("d", at("2026-03-09T09:00:00")), event("b", at("2026-03-04T10:00:00"))},
        now, calendarIn());
    ASSERT_EQ(groups.size(), 3U);
    EXPECT_EQ(ids(groups[0]), "a");
    EXPECT_EQ(ids(groups[1]), "b");
    EXPECT_EQ(ids(groups[2]), "c d");
    EXPECT_TRUE(std::ranges::is_sorted(groups, {}, &DayGroup::day));
}

TEST(EventGrouper, MakesNoGroupForADayWithoutEvents) {
    EXPECT_TRUE(EventGrouper::groupByDay({}, now, calendarIn()).empty());
}

TEST(EventGrouper, CountsCalendarDaysOverADaylightSavingChange) {
    const LocalCalendar calendar = calendarIn("Europe/Zurich");
    const Instant saturdayEvening = at("2026-03-28T23:30:00", "Europe/Zurich");
    // 24.75 and 47 hours ahead.
    EXPECT_EQ(EventGrouper::dayLabel(at("2026-03-30T00:15:00", "Europe/Zurich"), saturdayEvening,
                                     calendar),
              DayLabel::weekday(QStringLiteral("Monday")));
    const Instant saturdayMidnight = at("2026-03-28T00:00:00", "Europe/Zurich");
    EXPECT_EQ(EventGrouper::dayLabel(at("2026-03-30T00:00:00", "Europe/Zurich"), saturdayMidnight,
                                     calendar),
              DayLabel::weekday(QStringLiteral("Monday")));
    // 25 hours ahead, at the end of summer time.
    EXPECT_EQ(EventGrouper::dayLabel(at("2026-10-26T00:00:00", "Europe/Zurich"),
                                     at("2026-10-25T00:00:00", "Europe/Zurich"), calendar),
              DayLabel::tomorrow());
}

TEST(EventGrouper, GathersADayThatHasNoMidnight) {
    const LocalCalendar calendar = calendarIn("America/Santiago");
    const auto groups =
        EventGrouper::groupByDay({event("evening", at("2025-09-06T23:30:00", "America/Santiago")),
                                  event("early", at("2025-09-07T01:00:00", "America/Santiago")),
                                  event("noon", at("2025-09-07T12:00:00", "America/Santiago"))},
                                 at("2025-09-06T09:00:00", "America/Santiago"), calendar);
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(ids(groups[0]), "evening");
    EXPECT_EQ(ids(groups[1]), "early noon");
    EXPECT_EQ(groups[1].label, DayLabel::tomorrow());
}

TEST(EventGrouper, GroupsByTheDaysOfTheCalendarsZone) {
    const auto groups = EventGrouper::groupByDay(
        {event("a", at("2026-03-02T22:00:00")), event("b", at("2026-03-02T23:00:00"))}, now,
        calendarIn("Europe/Zurich"));
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[1].label, DayLabel::tomorrow());
}

TEST(DayLabel, ComparesCaseAndText) {
    EXPECT_NE(DayLabel::weekday(QStringLiteral("x")), DayLabel::date(QStringLiteral("x")));
    EXPECT_NE(DayLabel::date(QStringLiteral("x")), DayLabel::date(QStringLiteral("y")));
    EXPECT_NE(DayLabel::today(), DayLabel::tomorrow());
}

TEST(DayGroup, IsEqualWhenAllItsFieldsAre) {
    const DayGroup group{now, DayLabel::today(), {event("a", now)}};
    EXPECT_EQ(group, (DayGroup{now, DayLabel::today(), {event("a", now)}}));
    EXPECT_NE(group, (DayGroup{now + Seconds{1.0}, DayLabel::today(), {event("a", now)}}));
    EXPECT_NE(group, (DayGroup{now, DayLabel::tomorrow(), {event("a", now)}}));
    EXPECT_NE(group, (DayGroup{now, DayLabel::today(), {event("b", now)}}));
}

} // namespace
} // namespace vantrel
