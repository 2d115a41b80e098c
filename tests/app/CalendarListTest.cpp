#include <app/CalendarList.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using Status = CalendarAccess::Status;
using CalendarType = CalendarRepository::CalendarType;

CalendarList sample() {
    CalendarList list;
    list.accessStatus = Status::fullAccess;
    list.snapshot.groups = {{{QStringLiteral("s1"), QStringLiteral("Account")},
                             {{QStringLiteral("c1"),
                               QStringLiteral("Holidays"),
                               {0, 0, 1, 1},
                               false,
                               CalendarType::subscription},
                              {QStringLiteral("c2"),
                               QStringLiteral("Work"),
                               {1, 0, 0, 1},
                               true,
                               CalendarType::standard}}},
                            {{QStringLiteral("s2"), QStringLiteral("Contacts")},
                             {{QStringLiteral("c3"),
                               QStringLiteral("Birthdays"),
                               {0, 1, 0, 1},
                               false,
                               CalendarType::birthday}}}};
    list.selection = {QStringLiteral("c2"), QStringLiteral("gone")};
    list.isSelectionStored = true;
    list.isComplete = true;
    return list;
}

QJsonObject parsed(const CalendarList &list) {
    return QJsonDocument::fromJson(list.json()).object();
}

TEST(CalendarList, GivesEveryMemberToPrograms) {
    CalendarList list = sample();
    list.notes = {QStringLiteral("Something is missing.")};
    const auto calendar = [](const char *id, const char *title, const char *color, const char *type,
                             bool allowsModifications, bool isSelected) {
        return QJsonObject{{QStringLiteral("id"), QLatin1String(id)},
                           {QStringLiteral("title"), QLatin1String(title)},
                           {QStringLiteral("color"), QLatin1String(color)},
                           {QStringLiteral("type"), QLatin1String(type)},
                           {QStringLiteral("allowsModifications"), allowsModifications},
                           {QStringLiteral("isSelected"), isSelected}};
    };
    const auto group = [](const char *id, const char *title, const QJsonArray &calendars) {
        return QJsonObject{{QStringLiteral("id"), QLatin1String(id)},
                           {QStringLiteral("title"), QLatin1String(title)},
                           {QStringLiteral("calendars"), calendars}};
    };
    const QJsonArray groups{
        group("s1", "Account",
              {calendar("c1", "Holidays", "#0000ff", "subscription", false, false),
               calendar("c2", "Work", "#ff0000", "standard", true, true)}),
        group("s2", "Contacts",
              {calendar("c3", "Birthdays", "#00ff00", "birthday", false, false)})};
    const QJsonObject expected{
        {QStringLiteral("accessStatus"), QStringLiteral("fullAccess")},
        {QStringLiteral("groups"), groups},
        {QStringLiteral("isComplete"), true},
        {QStringLiteral("isSelectionStored"), true},
        {QStringLiteral("missing"), QJsonArray{QStringLiteral("gone")}},
        {QStringLiteral("notes"), QJsonArray{QStringLiteral("Something is missing.")}}};
    EXPECT_EQ(parsed(list), expected);
}

TEST(CalendarList, NamesEveryAccessStatus) {
    const std::pair<Status, const char *> rows[] = {{Status::notDetermined, "notDetermined"},
                                                    {Status::denied, "denied"},
                                                    {Status::restricted, "restricted"},
                                                    {Status::writeOnly, "writeOnly"},
                                                    {Status::fullAccess, "fullAccess"}};
    for (const auto &[status, name] : rows) {
        CalendarList list;
        list.accessStatus = status;
        EXPECT_EQ(parsed(list)[u"accessStatus"].toString(), QLatin1String(name));
        EXPECT_TRUE(parsed(list)[u"groups"].isArray());
    }
}

TEST(CalendarList, ListsCalendarsUnderTheirAccountsForPeople) {
    EXPECT_EQ(sample().text().toStdString(), "Account\n"
                                             "  [ ] Holidays  (subscription, #0000ff, read-only)\n"
                                             "  [x] Work  (standard, #ff0000)\n"
                                             "\n"
                                             "Contacts\n"
                                             "  [ ] Birthdays  (birthday, #00ff00, read-only)\n"
                                             "\n"
                                             "Selected but not there at the moment: 1.\n");
}

TEST(CalendarList, TellsPeopleWhatElseTheyShouldKnow) {
    CalendarList list;
    list.notes = {QStringLiteral("No accounts:\x1b[2J gone.")};
    EXPECT_EQ(list.text().toStdString(),
              "No calendars.\n"
              "\n"
              "Nothing has been chosen yet; what is marked is the default.\n"
              "No accounts: [2J gone.\n");
}

TEST(CalendarList, KeepsATitleFromDrivingATerminal) {
    CalendarList list = sample();
    list.snapshot.groups[0].source.title = QString::fromUtf16(u"A\nB\u202e");
    list.snapshot.groups[0].calendars[0].title = QString::fromUtf16(u"\u009b2J%1%2\u2067");
    const QString text = QString::fromUtf8(list.text());
    EXPECT_TRUE(text.startsWith(QStringLiteral("A B \n  [ ]  2J%1%2   (subscription, ")));
    for (const char16_t unit : {0x9b, 0x202e, 0x2067}) {
        EXPECT_FALSE(text.contains(QChar(unit)));
        EXPECT_FALSE(QString::fromUtf8(list.json()).contains(QChar(unit)));
    }
    EXPECT_EQ(parsed(list)[u"groups"][0][u"title"].toString(), QString::fromUtf16(u"A\nB\u202e"));
}

} // namespace
} // namespace vantrel
