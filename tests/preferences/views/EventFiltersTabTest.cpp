#include "PreferencesWindowFixture.h"

#include <QJsonArray>

namespace vantrel {
namespace {

class EventFiltersTabTest : public PreferencesWindowFixture {
protected:
    void SetUp() override { open(PreferencesTab::eventFilters); }

    QQuickItem &day(const char *name) const {
        for (QQuickItem *one : gallery::withDescendants(item("page"))) {
            const bool isChip =
                QByteArray(one->metaObject()->className()).startsWith("WeekdayChip");
            if (isChip && spokenName(*one) == QLatin1String(name))
                return *one;
        }
        qFatal("There is no day %s", name);
    }

    QString meaning() const {
        return item("meaning").property("text").toString().replace(QChar(0x202f), u' ');
    }
};

TEST_F(EventFiltersTabTest, TellsWhatItFilters) {
    EXPECT_TRUE(isRead(QStringLiteral("Tell Tobble when to stay quiet.")));
    EXPECT_TRUE(isRead(QStringLiteral("Only during work hours")));
    EXPECT_TRUE(
        isRead(QStringLiteral("Outside the window below, Tobble stays quiet — no takeovers.")));
    EXPECT_TRUE(isRead(QStringLiteral("From")));
    EXPECT_TRUE(isRead(QStringLiteral("Tobble already skips these")));
    EXPECT_TRUE(isRead(QStringLiteral("Declined events, all-day events, and focus-time blocks "
                                      "never trigger takeovers — regardless of the filters "
                                      "above.")));
}

TEST_F(EventFiltersTabTest, TheFilterIsSwitchedOnAndOff) {
    QQuickItem &toggle = item("workHours", "switch");
    EXPECT_EQ(meaning(), u"Takeovers come at any hour of every day.");
    press(toggle, Qt::Key_Space);
    EXPECT_TRUE(shown.preferences.workHoursEnabled());
    EXPECT_EQ(stored("workHoursEnabled"), true);
    EXPECT_EQ(meaning(), u"Monday to Friday: takeovers come from 9:00 AM to 5:00 PM.");
    click(toggle);
    EXPECT_EQ(stored("workHoursEnabled"), false);
}

TEST_F(EventFiltersTabTest, TimesGoByQuartersOfAnHour) {
    press(item("start", "quarters"), Qt::Key_Up);
    EXPECT_EQ(stored("workHoursStartMinute"), 555);
    click(item("start", "less"));
    EXPECT_EQ(stored("workHoursStartMinute"), 540);
    press(item("end", "quarters"), Qt::Key_End);
    EXPECT_EQ(stored("workHoursEndMinute"), 1439);
    press(Qt::Key_Down);
    EXPECT_EQ(stored("workHoursEndMinute"), 1425);
    press(Qt::Key_Home);
    EXPECT_EQ(stored("workHoursEndMinute"), 0);
}

TEST_F(EventFiltersTabTest, TimesAreWritten) {
    focus(item("end", "written"));
    press(Qt::Key_A, Qt::ControlModifier);
    write("18:07");
    EXPECT_EQ(shown.preferences.workHoursEndMinute(), 1020) << "it is not yet finished";
    press(Qt::Key_Return);
    EXPECT_EQ(stored("workHoursEndMinute"), 1087);
    press(Qt::Key_A, Qt::ControlModifier);
    write("soon");
    press(Qt::Key_Tab);
    EXPECT_EQ(stored("workHoursEndMinute"), 1087);
    QString shownTime;
    for (QQuickItem *one : gallery::withDescendants(item("end", "written"))) {
        if (one->inherits("QQuickTextInput"))
            shownTime = one->property("text").toString().replace(QChar(0x202f), u' ');
    }
    EXPECT_EQ(shownTime, u"6:07 PM") << "what is no time does not stay";
}

TEST_F(EventFiltersTabTest, AWindowMayPassMidnightAndSaysSo) {
    shown.preferences.setWorkHoursEnabled(true);
    press(item("start", "written"), Qt::Key_End);
    press(Qt::Key_A, Qt::ControlModifier);
    write("22");
    press(Qt::Key_Return);
    EXPECT_EQ(stored("workHoursStartMinute"), 1320);
    EXPECT_EQ(shown.preferences.workHoursEndMinute(), 1020);
    EXPECT_EQ(meaning(), u"Monday to Friday: takeovers come until 5:00 PM, and again from 10:00 PM "
                         "to midnight.");
}

TEST_F(EventFiltersTabTest, DaysAreChosenByClickAndKey) {
    shown.preferences.setWorkHoursEnabled(true);
    EXPECT_FALSE(isSpokenAsChecked(day("Saturday")));
    press(day("Saturday"), Qt::Key_Space);
    EXPECT_EQ(stored("workHoursWeekdays"), QJsonArray({2, 3, 4, 5, 6, 7}));
    EXPECT_TRUE(isSpokenAsChecked(day("Saturday")));
    EXPECT_TRUE(day("Saturday").hasActiveFocus());
    click(day("Monday"));
    EXPECT_EQ(stored("workHoursWeekdays"), QJsonArray({3, 4, 5, 6, 7}));
    for (const char *name : {"Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"})
        click(day(name));
    EXPECT_EQ(stored("workHoursWeekdays"), QJsonArray());
    EXPECT_EQ(meaning(), u"No day is chosen: Tobble stays quiet all week.");
}

TEST_F(EventFiltersTabTest, ShowsWhatIsChangedElsewhere) {
    shown.preferences.setWorkHoursEnabled(true);
    shown.preferences.setWorkHoursStartMinute(600);
    shown.preferences.setWorkHoursEndMinute(660);
    shown.preferences.setWorkHoursWeekdays({1});
    EXPECT_TRUE(isSpokenAsChecked(item("workHours", "switch")));
    EXPECT_TRUE(isSpokenAsChecked(day("Sunday")));
    EXPECT_EQ(meaning(), u"Sunday: takeovers come from 10:00 AM to 11:00 AM.");
}

} // namespace
} // namespace vantrel
