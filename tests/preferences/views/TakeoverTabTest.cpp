#include "PreferencesWindowFixture.h"

namespace vantrel {
namespace {

using ::testing::ElementsAreArray;

class TakeoverTabTest : public PreferencesWindowFixture {
protected:
    void SetUp() override { open(PreferencesTab::takeover); }
};

TEST_F(TakeoverTabTest, ReadsFromTheTop) {
    const QStringList expected{
        QStringLiteral("Takeover"),
        QStringLiteral("How and when Tobble brings you to your meetings."),
        QStringLiteral("Bring me to meetings"),
        QStringLiteral("1 min before"),
        QStringLiteral("How early Tobble fetches you before meetings start."),
        QStringLiteral("right at start"),
        QStringLiteral("5 min before"),
        QStringLiteral("Snooze duration"),
        QStringLiteral("1 min"),
        QStringLiteral("How long Tobble waits after you tap Snooze."),
        QStringLiteral("Auto-close if I don't respond"),
        QStringLiteral("15 min"),
        QStringLiteral("Takeover dismisses itself if you're away.")};
    EXPECT_THAT(texts(), ElementsAreArray(expected));
}

TEST_F(TakeoverTabTest, TheLeadTimeGoesByMinutes) {
    QQuickItem &slider = item("leadTime");
    press(slider, Qt::Key_Right);
    EXPECT_EQ(shown.preferences.leadTimeSeconds(), 120);
    EXPECT_EQ(stored("leadTimeSeconds"), 120);
    EXPECT_TRUE(isRead(QStringLiteral("2 min before")));
    press(Qt::Key_End);
    EXPECT_EQ(stored("leadTimeSeconds"), 300);
    press(Qt::Key_Right);
    EXPECT_EQ(stored("leadTimeSeconds"), 300);
    press(Qt::Key_Home);
    EXPECT_EQ(stored("leadTimeSeconds"), 0);
    EXPECT_TRUE(isRead(QStringLiteral("at start")));
    click(slider, {slider.width() - 2, slider.height() / 2});
    EXPECT_EQ(stored("leadTimeSeconds"), 300);
    EXPECT_EQ(spokenName(slider), u"Bring me to meetings");
    EXPECT_EQ(spokenDescription(slider), u"5 min before");
}

TEST_F(TakeoverTabTest, TheSnoozeGoesFromOneMinuteToFifteen) {
    QQuickItem &stepper = item("snoozeDuration");
    press(stepper, Qt::Key_Down);
    EXPECT_EQ(shown.preferences.snoozeDurationMinutes(), 1);
    press(Qt::Key_Up);
    EXPECT_EQ(stored("snoozeDurationMinutes"), 2);
    EXPECT_TRUE(isRead(QStringLiteral("2 min")));
    click(item("snoozeDuration", "more"));
    EXPECT_EQ(stored("snoozeDurationMinutes"), 3);
    click(item("snoozeDuration", "less"));
    EXPECT_EQ(stored("snoozeDurationMinutes"), 2);
    press(Qt::Key_End);
    press(Qt::Key_Up);
    EXPECT_EQ(stored("snoozeDurationMinutes"), 15);
}

TEST_F(TakeoverTabTest, TheAutoCloseGoesByFiveMinutesToAnHour) {
    QQuickItem &slider = item("autoClose");
    press(slider, Qt::Key_Right);
    EXPECT_EQ(stored("autoCloseSeconds"), 1200);
    press(Qt::Key_End);
    EXPECT_EQ(stored("autoCloseSeconds"), 3600);
    EXPECT_TRUE(isRead(QStringLiteral("1 hour")));
    click(slider, {2, slider.height() / 2});
    EXPECT_EQ(stored("autoCloseSeconds"), 0);
    EXPECT_TRUE(isRead(QStringLiteral("off")));
    press(slider, Qt::Key_Right);
    EXPECT_EQ(valueBeside(QStringLiteral("Auto-close if I don't respond")), u"5 min");
}

TEST_F(TakeoverTabTest, ShowsWhatIsChangedElsewhere) {
    shown.preferences.setLeadTimeSeconds(240);
    shown.preferences.setSnoozeDurationMinutes(7);
    shown.preferences.setAutoCloseSeconds(2700);
    EXPECT_TRUE(isRead(QStringLiteral("4 min before")));
    EXPECT_TRUE(isRead(QStringLiteral("7 min")));
    EXPECT_TRUE(isRead(QStringLiteral("45 min")));
    EXPECT_EQ(item("leadTime").property("value").toDouble(), 240);
    EXPECT_EQ(item("snoozeDuration").property("value").toDouble(), 7);
    EXPECT_EQ(item("autoClose").property("value").toDouble(), 2700);
}

} // namespace
} // namespace vantrel
