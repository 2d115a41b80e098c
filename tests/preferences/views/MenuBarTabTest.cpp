#include "PreferencesWindowFixture.h"

namespace vantrel {
namespace {

using ::testing::ElementsAreArray;

class MenuBarTabTest : public PreferencesWindowFixture {
protected:
    void SetUp() override { open(PreferencesTab::menuBar); }
};

TEST_F(MenuBarTabTest, ReadsFromTheTop) {
    const QStringList expected{
        QStringLiteral("Menu Bar"),
        QStringLiteral("How Vantrel appears in your menu bar."),
        QStringLiteral("Show next meeting beside the icon"),
        QStringLiteral("Displays the next event's title, color, and countdown. During a meeting, "
                       "switches to \"ends in X\"."),
        QStringLiteral("Tobble peeks ahead"),
        QStringLiteral("2 hours"),
        QStringLiteral("Meetings further away stay hidden until they slide in."),
        QStringLiteral("30 min"),
        QStringLiteral("8 hours")};
    EXPECT_THAT(texts(), ElementsAreArray(expected));
}

TEST_F(MenuBarTabTest, TheNextMeetingIsSwitchedOffAndOn) {
    QQuickItem &toggle = item("showNextMeeting", "switch");
    EXPECT_TRUE(isSpokenAsChecked(toggle));
    press(toggle, Qt::Key_Space);
    EXPECT_FALSE(shown.preferences.showNextMeetingInMenuBar());
    EXPECT_EQ(stored("showNextMeetingInMenuBar"), false);
    EXPECT_FALSE(isSpokenAsChecked(toggle));
    click(toggle);
    EXPECT_EQ(stored("showNextMeetingInMenuBar"), true);
    EXPECT_EQ(spokenName(toggle), u"Show next meeting beside the icon");
}

TEST_F(MenuBarTabTest, TheHorizonGoesByHalfHours) {
    const QString title = QStringLiteral("Tobble peeks ahead");
    QQuickItem &slider = item("upcomingHorizon");
    press(slider, Qt::Key_Left);
    EXPECT_EQ(stored("menuBarUpcomingHorizonMinutes"), 90);
    EXPECT_EQ(valueBeside(title), u"1 hour 30 min");
    press(Qt::Key_Right);
    EXPECT_EQ(stored("menuBarUpcomingHorizonMinutes"), 120);
    press(Qt::Key_Home);
    EXPECT_EQ(stored("menuBarUpcomingHorizonMinutes"), 30);
    EXPECT_EQ(valueBeside(title), u"30 min");
    click(slider, {slider.width() - 2, slider.height() / 2});
    EXPECT_EQ(stored("menuBarUpcomingHorizonMinutes"), 480);
    EXPECT_EQ(valueBeside(title), u"8 hours");
}

TEST_F(MenuBarTabTest, ShowsWhatIsChangedElsewhere) {
    shown.preferences.setShowNextMeetingInMenuBar(false);
    shown.preferences.setMenuBarUpcomingHorizonMinutes(150);
    EXPECT_FALSE(isSpokenAsChecked(item("showNextMeeting", "switch")));
    EXPECT_TRUE(isRead(QStringLiteral("2 hours 30 min")));
}

} // namespace
} // namespace vantrel
