#include "PreferencesWindowFixture.h"

#include <QCoreApplication>

namespace vantrel {
namespace {

class AboutTabTest : public PreferencesWindowFixture {
protected:
    void SetUp() override {
        QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
        shown.preferences.setLeadTimeSeconds(300);
        shown.preferences.setSelectedCalendarIDs({QStringLiteral("work")});
        defaults.setBoolean(QStringLiteral("Vantrel.hasCompletedFirstRun"), true);
        open(PreferencesTab::about);
    }

    bool isAsking() const { return item("confirmation").isVisible(); }
};

TEST_F(AboutTabTest, TellsTheVersionAndWhatAResetClears) {
    EXPECT_TRUE(isRead(QStringLiteral("Version 1.2.3")));
    EXPECT_TRUE(isRead(QStringLiteral("Reset all preferences")));
    EXPECT_TRUE(isRead(QStringLiteral(
        "Clears every setting Tobble remembers — calendar selection, lead time, snooze duration, "
        "work hours, theme. Login Items state stays the way you set it in System Settings.")));
}

TEST_F(AboutTabTest, AsksBeforeItResets) {
    click(item("askReset"));
    ASSERT_TRUE(isAsking());
    QStringList read;
    for (QQuickItem *one : gallery::withDescendants(item("confirmation"))) {
        if (one->inherits("QQuickText"))
            read += one->property("text").toString();
    }
    EXPECT_EQ(read, (QStringList{QStringLiteral("Reset all of Tobble's preferences?"),
                                 QStringLiteral("This can't be undone. You'll need to grant "
                                                "calendar permission again the next time you open "
                                                "Preferences."),
                                 QStringLiteral("Cancel"), QStringLiteral("Reset")}));
    EXPECT_EQ(stored("leadTimeSeconds"), 300);
}

TEST_F(AboutTabTest, ResetsTheSettingsAndNothingElse) {
    click(item("askReset"));
    click(item("reset"));
    EXPECT_FALSE(isAsking());
    EXPECT_EQ(shown.preferences.leadTimeSeconds(), 60);
    EXPECT_EQ(stored("leadTimeSeconds"), 60);
    EXPECT_TRUE(stored("selectedCalendarIDs").isUndefined());
    EXPECT_EQ(stored("hasCompletedFirstRun"), true);
    EXPECT_EQ(shown.accessRequests, 0);
    EXPECT_EQ(shown.loginItem.unregistrations, 0);
}

TEST_F(AboutTabTest, LeavesAllAsItIsOnCancelAndOnEscape) {
    click(item("askReset"));
    click(item("cancel"));
    EXPECT_FALSE(isAsking());
    click(item("askReset"));
    press(Qt::Key_Escape);
    EXPECT_FALSE(isAsking());
    EXPECT_TRUE(stage().window().isVisible());
    EXPECT_EQ(stored("leadTimeSeconds"), 300);
}

TEST_F(AboutTabTest, IsAnsweredByKeyboardAlone) {
    press(item("askReset"), Qt::Key_Space);
    ASSERT_TRUE(isAsking());
    EXPECT_TRUE(item("cancel").hasActiveFocus()) << "what harms nothing comes first";
    press(Qt::Key_Tab);
    EXPECT_TRUE(item("reset").hasActiveFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(item("cancel").hasActiveFocus()) << "nothing else can be reached";
    press(Qt::Key_Return);
    EXPECT_FALSE(isAsking());
    EXPECT_TRUE(item("askReset").hasActiveFocus());
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    EXPECT_EQ(stored("leadTimeSeconds"), 60);
}

TEST_F(AboutTabTest, LetsNoClickThroughWhileItAsks) {
    click(item("askReset"));
    click(stage().root(), {60, 150});
    EXPECT_EQ(shown.model.selection(), PreferencesTab::about);
}

} // namespace
} // namespace vantrel
