#include <fakes/Times.h>
#include <menubar/EventRowList.h>

#include <QColor>

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using fakes::at;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const LocalCalendar english(QTimeZone::utc(), QLocale(QLocale::English, QLocale::UnitedKingdom));

UpcomingEvent event(const char *id, const char *start = "2026-03-02T10:00:00") {
    UpcomingEvent made;
    made.id = made.title = QString::fromLatin1(id);
    made.startDate = at(start);
    made.endDate = made.startDate + Seconds{1800.0};
    return made;
}

DayGroup today(std::vector<UpcomingEvent> events) {
    return {at("2026-03-02T00:00:00"), DayLabel::today(), std::move(events)};
}

class EventRowListTest : public testing::Test {
protected:
    EventRowListTest() {
        QObject::connect(&list, &EventRowList::rowsRemoved, [this](auto, int first, int last) {
            changes.push_back("-" + std::to_string(first) + ".." + std::to_string(last));
        });
        QObject::connect(&list, &EventRowList::rowsInserted, [this](auto, int first, int last) {
            changes.push_back("+" + std::to_string(first) + ".." + std::to_string(last));
        });
        QObject::connect(&list, &EventRowList::modelReset,
                         [this] { changes.emplace_back("reset"); });
    }

    void show(std::vector<UpcomingEvent> events) {
        changes.clear();
        list.show({today(std::move(events))}, english);
    }

    [[nodiscard]] QString titles() const {
        QString all;
        for (int row = 0; row < list.rowCount(); ++row)
            all += list.data(list.index(row), EventRowList::TitleRole).toString();
        return all;
    }

    [[nodiscard]] QVariant of(int row, EventRowList::Role role) const {
        return list.data(list.index(row), role);
    }

    EventRowList list{english};
    std::vector<std::string> changes;
};

TEST_F(EventRowListTest, TitlesTheDays) {
    list.show(
        {today({event("a")}),
         {at("2026-03-03T00:00:00"), DayLabel::tomorrow(), {event("b")}},
         {at("2026-03-04T00:00:00"),
          DayLabel::weekday(QStringLiteral("Wednesday")),
          {event("c"), event("d")}},
         {at("2026-03-14T00:00:00"), DayLabel::date(QStringLiteral("14 Mar 2026")), {event("e")}}},
        english);
    QStringList sections;
    for (int row = 0; row < list.rowCount(); ++row)
        sections += of(row, EventRowList::SectionRole).toString();
    EXPECT_EQ(sections, (QStringList{QStringLiteral("Today"), QStringLiteral("Tomorrow"),
                                     QStringLiteral("Wednesday"), QStringLiteral("Wednesday"),
                                     QStringLiteral("14 Mar 2026")}));
}

TEST_F(EventRowListTest, TellsAllOfAMeeting) {
    UpcomingEvent shown = event("Stand\nup");
    shown.isRecurring = true;
    shown.location = QStringLiteral("Room\u202E 3");
    shown.calendarColor = {1.0, 0.0, 0.0};
    show({shown});
    EXPECT_EQ(of(0, EventRowList::TitleRole), QStringLiteral("Stand up"));
    EXPECT_EQ(of(0, EventRowList::TimeRangeRole), QStringLiteral("10:00 – 10:30"));
    EXPECT_EQ(of(0, EventRowList::IsRecurringRole), true);
    EXPECT_EQ(of(0, EventRowList::DetailRole), QStringLiteral("Room 3"));
    EXPECT_EQ(of(0, EventRowList::CalendarColorRole).value<QColor>(), QColor(Qt::red));
    EXPECT_EQ(of(0, EventRowList::IsJoinableRole), false);
    EXPECT_EQ(of(0, EventRowList::SpokenRole),
              QStringLiteral("Stand up, 10:00 – 10:30, repeats, Room 3"));
}

TEST_F(EventRowListTest, ChangesWhatDiffersAlone) {
    show({event("a"), event("b"), event("c"), event("d")});
    EXPECT_THAT(changes, ElementsAre("+0..3"));
    show({event("b"), event("c"), event("d")}); // The first has begun.
    EXPECT_THAT(changes, ElementsAre("-0..0"));
    show({event("b"), event("x"), event("c"), event("d")});
    EXPECT_THAT(changes, ElementsAre("+1..1"));
    show({event("b"), event("y"), event("z"), event("d")});
    EXPECT_THAT(changes, ElementsAre("-1..2", "+1..2"));
    EXPECT_EQ(titles(), QStringLiteral("byzd"));
    show({event("b"), event("y"), event("z"), event("d")});
    EXPECT_THAT(changes, IsEmpty());
    show({});
    EXPECT_THAT(changes, ElementsAre("-0..3"));
}

TEST_F(EventRowListTest, HandlesTheSameTitleMoreThanOnce) {
    show({event("a"), event("a")});
    show({event("a"), event("a"), event("a")});
    EXPECT_EQ(titles(), QStringLiteral("aaa"));
    show({event("a")});
    EXPECT_EQ(titles(), QStringLiteral("a"));
}

TEST_F(EventRowListTest, NoticesAnotherTitleOfTheSameMeeting) {
    show({event("a"), event("b")});
    UpcomingEvent renamed = event("b");
    renamed.title = QStringLiteral("B");
    show({event("a"), renamed});
    EXPECT_THAT(changes, ElementsAre("-1..1", "+1..1"));
    EXPECT_EQ(titles(), QStringLiteral("aB"));
}

TEST_F(EventRowListTest, WritesTimesAnewWithAnotherClock) {
    show({event("a")});
    changes.clear();
    list.show({today({event("a")})}, LocalCalendar(QTimeZone("Asia/Tokyo"), english.locale()));
    EXPECT_THAT(changes, ElementsAre("reset"));
    EXPECT_EQ(of(0, EventRowList::TimeRangeRole), QStringLiteral("19:00 – 19:30"));
}

TEST_F(EventRowListTest, HasNoEventBeyondItsEnds) {
    show({event("a")});
    EXPECT_TRUE(list.event(0));
    EXPECT_FALSE(list.event(1));
    EXPECT_FALSE(list.event(-1));
}

} // namespace
} // namespace vantrel
