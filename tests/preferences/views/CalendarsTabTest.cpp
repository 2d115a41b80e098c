#include "PreferencesWindowFixture.h"

#include <QJsonArray>

namespace vantrel {
namespace {

using Calendar = CalendarRepository::CalendarInfo;
using Type = CalendarRepository::CalendarType;

class CalendarsTabTest : public PreferencesWindowFixture {
protected:
    CalendarsTabTest() {
        shown.snapshot.set(
            {{{{QStringLiteral("1"), QStringLiteral("eve@example.com")},
               {calendar("holidays", "Holidays", Type::subscription), calendar("work", "Work")}},
              {{QStringLiteral("2"), QStringLiteral("On This Computer")},
               {calendar("birthdays", "Friends", Type::birthday)}}}});
    }

    void SetUp() override { open(PreferencesTab::calendars); }

    static Calendar calendar(const char *identifier, const char *title,
                             Type type = Type::standard) {
        return {QString::fromLatin1(identifier),
                QString::fromUtf8(title),
                {0.2, 0.4, 0.6, 1.0},
                true,
                type};
    }

    QQuickItem &toggle(const char *title) const {
        for (QQuickItem *one : gallery::withDescendants(item("page"))) {
            if (one->objectName() == QLatin1String("switch") &&
                spokenName(*one) == QString::fromUtf8(title))
                return *one;
        }
        qFatal("There is no calendar %s", title);
    }
};

TEST_F(CalendarsTabTest, ListsTheCalendarsByAccountWithTheirMarks) {
    EXPECT_EQ(texts(), (QStringList{QStringLiteral("Calendars"),
                                    QStringLiteral("Pick the calendars Tobble watches."),
                                    QStringLiteral("eve@example.com"), QStringLiteral("Holidays"),
                                    QStringLiteral("Subscribed"), QStringLiteral("Work"),
                                    QStringLiteral("On This Computer"), QStringLiteral("Friends"),
                                    QStringLiteral("Birthdays")}));
    EXPECT_EQ(spokenDescription(toggle("Friends")), u"Birthdays");
}

TEST_F(CalendarsTabTest, ACalendarIsWatchedAndNoLonger) {
    press(toggle("Work"), Qt::Key_Space);
    EXPECT_EQ(stored("selectedCalendarIDs"), QJsonArray({QStringLiteral("work")}));
    EXPECT_TRUE(isSpokenAsChecked(toggle("Work")));
    EXPECT_TRUE(toggle("Work").hasActiveFocus()) << "the row stays while its switch is pressed";
    click(toggle("Friends"));
    EXPECT_EQ(shown.preferences.selectedCalendarIDs(),
              (std::set<QString>{QStringLiteral("birthdays"), QStringLiteral("work")}));
    click(toggle("Work"));
    EXPECT_EQ(stored("selectedCalendarIDs"), QJsonArray({QStringLiteral("birthdays")}));
}

TEST_F(CalendarsTabTest, ShowsWhatIsChangedElsewhere) {
    shown.preferences.setSelectedCalendarIDs({QStringLiteral("holidays")});
    EXPECT_TRUE(isSpokenAsChecked(toggle("Holidays")));
    shown.snapshot.set({{{{QStringLiteral("1"), QStringLiteral("eve@example.com")},
                          {calendar("work", "Work, renamed")}}}});
    EXPECT_TRUE(isRead(QStringLiteral("Work, renamed")));
    EXPECT_FALSE(isRead(QStringLiteral("Holidays")));
}

TEST_F(CalendarsTabTest, KeepsTheKeyboardWhenTheSameListComesAgain) {
    focus(toggle("Work"));
    shown.snapshot.set(CalendarRepository::Snapshot(shown.snapshot.value()));
    EXPECT_TRUE(toggle("Work").hasActiveFocus());
}

TEST_F(CalendarsTabTest, ShowsTheMarkupOfATitleAsItStands) {
    shown.snapshot.set({{{{QStringLiteral("1"), QStringLiteral("<b>Account</b>")},
                          {calendar("work", "<img src=x>")}}}});
    EXPECT_TRUE(isRead(QStringLiteral("<b>Account</b>")));
    EXPECT_TRUE(isRead(QStringLiteral("<img src=x>")));
    for (const QQuickItem *one : gallery::withDescendants(item("page"))) {
        if (one->inherits("QQuickText")) {
            EXPECT_EQ(one->property("textFormat").toInt(), Qt::PlainText);
        }
    }
}

TEST_F(CalendarsTabTest, SaysThatThereAreNoneAndWhereTheyComeFrom) {
    shown.snapshot.set({});
    EXPECT_TRUE(isRead(QStringLiteral("No calendars found.")));
    EXPECT_TRUE(item("places").isVisible());
    EXPECT_FALSE(item("prompt").isVisible());
}

TEST_F(CalendarsTabTest, AsksForAccessWhereThereIsNone) {
    for (const auto status : {CalendarAccess::Status::notDetermined, CalendarAccess::Status::denied,
                              CalendarAccess::Status::writeOnly}) {
        shown.access.set(status);
        EXPECT_TRUE(item("prompt").isVisible());
        EXPECT_TRUE(item("places").isVisible());
        EXPECT_FALSE(isRead(QStringLiteral("Work"))) << "nothing is listed without access";
        EXPECT_FALSE(isRead(QStringLiteral("No calendars found.")));
    }
    click(item("grantAccess"));
    press(item("grantAccess"), Qt::Key_Return);
    EXPECT_EQ(shown.accessRequests, 2);
    shown.access.set(CalendarAccess::Status::fullAccess);
    EXPECT_FALSE(item("prompt").isVisible());
    EXPECT_TRUE(isRead(QStringLiteral("Work")));
}

TEST_F(CalendarsTabTest, OffersNoGrantThatAPolicyBars) {
    shown.access.set(CalendarAccess::Status::restricted);
    EXPECT_TRUE(item("prompt").isVisible());
    EXPECT_FALSE(item("grantAccess").isEnabled());
}

} // namespace
} // namespace vantrel
