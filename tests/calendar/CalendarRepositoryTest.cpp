#include "SampleEvents.h"

#include <calendar/CalendarRepository.h>
#include <fakes/FakeEventStore.h>
#include <fakes/Times.h>

#include <QSet>
#include <QStringList>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using CalendarType = CalendarRepository::CalendarType;

class CalendarRepositoryTest : public testing::Test {
protected:
    /// Adds a calendar whose identifier is its place in the store.
    StoreCalendar &add(const QString &source, const QString &title,
                       StoreCalendarType type = StoreCalendarType::local) {
        StoreCalendar calendar;
        calendar.calendarIdentifier = QString::number(store.storedCalendars.size());
        calendar.title = title;
        calendar.color = Color{0.1, 0.2, 0.3, 1.0};
        calendar.type = type;
        calendar.source = {QStringLiteral("id of ") + source, source};
        store.storedCalendars.push_back(calendar);
        return store.storedCalendars.back();
    }

    /// "source: calendar, calendar" for each group.
    QStringList shown() const {
        QStringList lines;
        for (const auto &group : repository.currentSnapshot().groups) {
            QStringList titles;
            for (const auto &calendar : group.calendars)
                titles.append(calendar.title);
            lines.append(group.source.title + QStringLiteral(": ") +
                         titles.join(QStringLiteral(", ")));
        }
        return lines;
    }

    fakes::FakeEventStore store{[] { return fakes::at("2026-03-02T09:00:00"); }};
    LocalCalendar localCalendar = fakes::calendarIn();
    CalendarRepository repository{store, [this] { return localCalendar; }};
};

TEST_F(CalendarRepositoryTest, CarriesEveryFieldOfACalendar) {
    StoreCalendar &calendar =
        add(QStringLiteral("Mail"), QStringLiteral("Fixtures"), StoreCalendarType::subscription);
    calendar.calendarIdentifier = QStringLiteral("fixtures");
    calendar.color = Color{0.5, 0.25, 0.75, 1.0};
    calendar.allowsContentModifications = false;
    const CalendarRepository::Snapshot expected{
        {{{QStringLiteral("id of Mail"), QStringLiteral("Mail")},
          {{QStringLiteral("fixtures"), QStringLiteral("Fixtures"), Color{0.5, 0.25, 0.75, 1.0},
            false, CalendarType::subscription}}}}};
    EXPECT_EQ(repository.currentSnapshot(), expected);
}

TEST_F(CalendarRepositoryTest, SortsTheCalendarsOfASourceByTitleInAnyCase) {
    for (const char *title : {"Team", "home", "Birthdays"})
        add(QStringLiteral("Mail"), QString::fromLatin1(title));
    EXPECT_EQ(shown(), QStringList{QStringLiteral("Mail: Birthdays, home, Team")});
}

TEST_F(CalendarRepositoryTest, SortsTheSourcesByTitleInAnyCaseAndWithAccents) {
    for (const char16_t *source : {u"Zoo", u"éclair", u"work", u"Eclipse", u"apple", u"Work"})
        add(QString::fromUtf16(source), QStringLiteral("a"));
    EXPECT_EQ(shown(), (QStringList{QStringLiteral("apple: a"), QStringLiteral("éclair: a"),
                                    QStringLiteral("Eclipse: a"), QStringLiteral("work: a"),
                                    QStringLiteral("Work: a"), QStringLiteral("Zoo: a")}));
}

TEST_F(CalendarRepositoryTest, SortsAsTheUsersLanguageDoesAtTheMomentOfTheCall) {
    for (const char16_t *title : {u"Zug", u"Ökonomie"})
        add(QStringLiteral("Mail"), QString::fromUtf16(title));
    localCalendar = LocalCalendar(QTimeZone::utc(), QLocale(QLocale::German));
    EXPECT_EQ(shown(), QStringList{QStringLiteral("Mail: Ökonomie, Zug")});
    localCalendar = LocalCalendar(QTimeZone::utc(), QLocale(QLocale::Swedish));
    EXPECT_EQ(shown(), QStringList{QStringLiteral("Mail: Zug, Ökonomie")});
}

TEST_F(CalendarRepositoryTest, KeepsTheStoresOrderAmongEqualTitles) {
    for (int index = 0; index < 20; ++index)
        add(QStringLiteral("Mail"), QStringLiteral("Calendar"));
    std::vector<CalendarRepository::CalendarInfo> calendars =
        repository.currentSnapshot().groups.at(0).calendars;
    ASSERT_EQ(calendars.size(), 20U);
    for (int index = 0; index < 20; ++index)
        EXPECT_EQ(calendars[static_cast<std::size_t>(index)].id, QString::number(index));
}

TEST_F(CalendarRepositoryTest, KeepsSourcesOfOneTitleApart) {
    add(QStringLiteral("Mail"), QStringLiteral("a")).source.sourceIdentifier = QStringLiteral("1");
    add(QStringLiteral("Mail"), QStringLiteral("b")).source.sourceIdentifier = QStringLiteral("2");
    add(QStringLiteral("Mail"), QStringLiteral("c")).source.sourceIdentifier = QStringLiteral("1");
    EXPECT_EQ(repository.currentSnapshot().groups.size(), 2U);
    EXPECT_EQ(shown().count(QStringLiteral("Mail: a, c")), 1);
}

TEST_F(CalendarRepositoryTest, NamesASourceAsItsFirstShownCalendarDoes) {
    add(QStringLiteral("Old"), QStringLiteral("b")).source = {QStringLiteral("1"),
                                                              QStringLiteral("Old")};
    add(QStringLiteral("New"), QStringLiteral("a")).source = {QStringLiteral("1"),
                                                              QStringLiteral("New")};
    EXPECT_EQ(shown(), QStringList{QStringLiteral("New: a, b")});
}

TEST_F(CalendarRepositoryTest, IsEmptyWithoutAccess) {
    add(QStringLiteral("Mail"), QStringLiteral("a"));
    store.authorization = StoreAuthorization::denied;
    EXPECT_EQ(repository.currentSnapshot(), CalendarRepository::Snapshot());
    EXPECT_EQ(repository.defaultFirstRunSelection(), QStringList());
}

TEST_F(CalendarRepositoryTest, SelectsOrdinaryCalendarsByDefault) {
    add(QStringLiteral("Account"), QStringLiteral("Work"));
    add(QStringLiteral("Web"), QStringLiteral("Holidays"), StoreCalendarType::subscription);
    add(QStringLiteral("Contacts"), QStringLiteral("Birthdays"), StoreCalendarType::birthday);
    EXPECT_EQ(repository.defaultFirstRunSelection(), QStringList{QStringLiteral("0")});
}

TEST_F(CalendarRepositoryTest, SelectsWhatMayOnlyBeReadByDefaultToo) {
    add(QStringLiteral("Account"), QStringLiteral("Colleague")).allowsContentModifications = false;
    EXPECT_EQ(repository.defaultFirstRunSelection(), QStringList{QStringLiteral("0")});
}

TEST_F(CalendarRepositoryTest, SelectsByDefaultInTheOrderInWhichTheyAreShown) {
    add(QStringLiteral("b"), QStringLiteral("z"));
    add(QStringLiteral("a"), QStringLiteral("y"));
    add(QStringLiteral("b"), QStringLiteral("x"));
    EXPECT_EQ(repository.defaultFirstRunSelection(),
              (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("0")}));
}

TEST_F(CalendarRepositoryTest, SelectsNothingByDefaultWhereNothingIsOrdinary) {
    add(QStringLiteral("Web"), QStringLiteral("Holidays"), StoreCalendarType::subscription);
    add(QStringLiteral("Contacts"), QStringLiteral("Birthdays"), StoreCalendarType::birthday);
    EXPECT_EQ(repository.defaultFirstRunSelection(), QStringList());
}

TEST_F(CalendarRepositoryTest, StopsTheProgramAtACalendarWithoutColour) {
    add(QStringLiteral("Mail"), QStringLiteral("a")).color.reset();
    EXPECT_DEATH((void)repository.currentSnapshot(), "has no colour");
}

TEST_F(CalendarRepositoryTest, StopsTheProgramAtACalendarWithoutSource) {
    add(QStringLiteral("Mail"), QStringLiteral("a")).source = {};
    EXPECT_DEATH((void)repository.currentSnapshot(), "has no source");
}

TEST_F(CalendarRepositoryTest, TakesAnyTextForATitle) {
    for (const char16_t *title : {u"", u"\U0001f4c5", u"\xd800", u"\n\t", u"a"})
        add(QStringLiteral("Mail"), QString::fromUtf16(title));
    ASSERT_EQ(repository.currentSnapshot().groups.size(), 1U);
    EXPECT_EQ(repository.currentSnapshot().groups.front().calendars.size(), 5U);
}

TEST(CalendarType, IsStoredByItsName) {
    EXPECT_EQ(rawValue(CalendarType::standard), QStringLiteral("standard"));
    EXPECT_EQ(rawValue(CalendarType::subscription), QStringLiteral("subscription"));
    EXPECT_EQ(rawValue(CalendarType::birthday), QStringLiteral("birthday"));
    for (const auto type :
         {CalendarType::standard, CalendarType::subscription, CalendarType::birthday})
        EXPECT_EQ(calendarTypeFromRawValue(rawValue(type)), type);
    for (const char *name : {"Subscription", "", "local", "birthday "})
        EXPECT_EQ(calendarTypeFromRawValue(QString::fromLatin1(name)), std::nullopt) << name;
}

TEST(CalendarSnapshot, IsEqualAndHashedByEveryField) {
    const CalendarRepository::Snapshot snapshot{
        {{{QStringLiteral("s"), QStringLiteral("S")},
          {{QStringLiteral("c"), QStringLiteral("C"), Color{}, true, CalendarType::standard}}}}};
    std::vector<CalendarRepository::Snapshot> others(8, snapshot);
    others[0].groups[0].source.id = QStringLiteral("t");
    others[1].groups[0].source.title = QStringLiteral("T");
    others[2].groups[0].calendars[0].id = QStringLiteral("d");
    others[3].groups[0].calendars[0].title = QStringLiteral("D");
    others[4].groups[0].calendars[0].color.alpha = 0.5;
    others[5].groups[0].calendars[0].allowsModifications = false;
    others[6].groups[0].calendars[0].type = CalendarType::birthday;
    others[7].groups.clear();
    for (const auto &other : others) {
        EXPECT_NE(other, snapshot);
        EXPECT_NE(qHash(other), qHash(snapshot));
    }
    const CalendarRepository::Snapshot copy = snapshot;
    EXPECT_EQ(copy, snapshot);
    EXPECT_EQ(qHash(copy), qHash(snapshot));
    EXPECT_EQ((QSet<CalendarRepository::Snapshot>{snapshot, copy}).size(), 1);
}

} // namespace
} // namespace vantrel
