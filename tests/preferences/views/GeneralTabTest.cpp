#include "PreferencesWindowFixture.h"

namespace vantrel {
namespace {

class GeneralTabTest : public PreferencesWindowFixture {
protected:
    void SetUp() override { open(PreferencesTab::general, {880, 1000}); }

    QQuickItem &segment(const char *name) const {
        for (QQuickItem *one : gallery::withDescendants(item("joinTarget"))) {
            const bool isSegment =
                QByteArray(one->metaObject()->className()).startsWith("Segment_");
            if (isSegment && spokenName(*one) == QLatin1String(name))
                return *one;
        }
        qFatal("There is no choice %s", name);
    }
};

TEST_F(GeneralTabTest, ReadsFromTheTop) {
    EXPECT_EQ(texts(),
              (QStringList{
                  QStringLiteral("General"),
                  QStringLiteral("How Vantrel behaves in the background."),
                  QStringLiteral("Start Vantrel when you log in"),
                  QStringLiteral("Adds Vantrel to your macOS Login Items so it's ready before your "
                                 "first meeting."),
                  QStringLiteral("Open video meetings in"),
                  QStringLiteral("App (when installed)"),
                  QStringLiteral("Default browser"),
                  QStringLiteral("App opens Zoom / Meet / Teams in their native app when "
                                 "installed. Browser always uses your default browser."),
                  QStringLiteral("Run Shortcut when you join"),
                  QStringLiteral("Fires a macOS Shortcut alongside opening the link. Leave blank "
                                 "to disable."),
                  QStringLiteral("Shortcut name"),
                  QStringLiteral("Test this shortcut now"),
                  QStringLiteral("How this works"),
              }));
}

TEST_F(GeneralTabTest, StartsAtLoginAndNoLonger) {
    QQuickItem &toggle = item("launchAtLogin", "switch");
    press(toggle, Qt::Key_Space);
    EXPECT_EQ(shown.loginItem.current, LoginItem::Status::enabled);
    EXPECT_TRUE(isSpokenAsChecked(toggle));
    click(toggle);
    EXPECT_EQ(shown.loginItem.current, LoginItem::Status::notRegistered);
    EXPECT_FALSE(isSpokenAsChecked(toggle));
    EXPECT_EQ(shown.loginItem.registrations, 1);
    EXPECT_EQ(shown.loginItem.unregistrations, 1);
}

TEST_F(GeneralTabTest, TellsWhyTheLoginItemCouldNotBeChangedUntilItCan) {
    QQuickItem &toggle = item("launchAtLogin", "switch");
    shown.loginItem.refusal = QStringLiteral("The disk is full.");
    click(toggle);
    EXPECT_TRUE(isRead(QStringLiteral("Couldn't update Login Items: The disk is full.")));
    EXPECT_FALSE(isSpokenAsChecked(toggle));
    shown.loginItem.refusal.reset();
    click(toggle);
    EXPECT_FALSE(item("loginError").isVisible());
    EXPECT_TRUE(isSpokenAsChecked(toggle));
}

TEST_F(GeneralTabTest, StaysOffWhileTheDesktopHoldsTheItemBack) {
    shown.loginItem.afterRegistering = LoginItem::Status::requiresApproval;
    click(item("launchAtLogin", "switch"));
    EXPECT_EQ(shown.loginItem.registrations, 1);
    EXPECT_FALSE(isSpokenAsChecked(item("launchAtLogin", "switch")));
    EXPECT_FALSE(item("loginError").isVisible());
}

TEST_F(GeneralTabTest, ReadsTheLoginItemAnewEachTimeItIsShown) {
    shown.model.select(PreferencesTab::about);
    shown.loginItem.current = LoginItem::Status::enabled;
    shown.model.select(PreferencesTab::general);
    EXPECT_TRUE(isSpokenAsChecked(item("launchAtLogin", "switch")));
}

TEST_F(GeneralTabTest, MeetingsOpenWhereItIsChosen) {
    EXPECT_TRUE(isSpokenAsChecked(segment("App (when installed)")));
    press(segment("App (when installed)"), Qt::Key_Right);
    EXPECT_EQ(shown.preferences.joinTarget(), JoinTarget::defaultBrowser);
    EXPECT_EQ(stored("joinTarget"), QStringLiteral("defaultBrowser"));
    EXPECT_TRUE(isSpokenAsChecked(segment("Default browser")));
    EXPECT_TRUE(segment("Default browser").hasActiveFocus());
    click(segment("App (when installed)"));
    EXPECT_EQ(stored("joinTarget"), QStringLiteral("appWhenInstalled"));
}

TEST_F(GeneralTabTest, TheShortcutIsKeptAsItIsWritten) {
    focus(item("shortcut"));
    write("Mute");
    EXPECT_EQ(shown.preferences.shortcutOnJoin(), u"Mute");
    EXPECT_EQ(stored("shortcutOnJoin"), QStringLiteral("Mute"));
    EXPECT_FALSE(isRead(QStringLiteral("Shortcut name")));
}

TEST_F(GeneralTabTest, TheShortcutIsTriedAtOnce) {
    EXPECT_FALSE(item("testShortcut").isEnabled());
    shown.preferences.setShortcutOnJoin(QStringLiteral("Meeting mode"));
    click(item("testShortcut"));
    press(item("testShortcut"), Qt::Key_Return);
    ASSERT_EQ(shown.workspace.opened.size(), 2U);
    EXPECT_EQ(shown.workspace.opened.front().url, u"shortcuts://run-shortcut?name=Meeting%20mode");
}

TEST_F(GeneralTabTest, TellsHowShortcutsWorkToWhoAsks) {
    EXPECT_FALSE(isRead(QStringLiteral("What is this?")));
    press(item("details"), Qt::Key_Space);
    EXPECT_TRUE(isRead(QStringLiteral("Hide details")));
    for (const char *text :
         {"What is this?",
          "The Shortcuts app on your Mac lets you chain actions together — mute Slack, set a Focus "
          "mode, hide your desktop icons, open a notes template. Tobble can fire one of those for "
          "you the moment you join a meeting.",
          "Open the Shortcuts app and build (or pick) the shortcut you want.",
          "Give it a name you'll remember.", "Type that exact name above, then tap ▶ to test.",
          "Mute Slack and Discord", "Lower brightness on your second display",
          "Open today's notes template", "Pause Spotify", "Set Focus to \"In a meeting\"",
          "Turn the smart lights to \"deep focus\"",
          "Shortcuts run on your Mac. Nothing about your meeting or the shortcut leaves the "
          "device."})
        EXPECT_TRUE(isRead(QString::fromUtf8(text))) << text;
    click(item("details"));
    EXPECT_FALSE(isRead(QStringLiteral("What is this?")));
    EXPECT_TRUE(isRead(QStringLiteral("How this works")));
}

TEST_F(GeneralTabTest, ReachesTheEndOfTheDetailsByKeyboardAlone) {
    open(PreferencesTab::general, {880, 600});
    press(item("details"), Qt::Key_Space);
    const auto bottom = [this] {
        QQuickItem &details = item("shortcutDetails");
        return details.mapToScene({0, details.height()}).y();
    };
    ASSERT_GT(bottom(), 600);
    ASSERT_TRUE(stage().waitFor([this] { return item("page").property("reach").toReal() > 0; }))
        << "the page is not longer than its place";
    for (int presses = 0; presses < 20 && bottom() > 600; ++presses)
        press(Qt::Key_PageDown);
    EXPECT_LE(bottom(), 600);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    EXPECT_GT(bottom(), 600 - 48);
    for (int presses = 0; presses < 20; ++presses)
        press(Qt::Key_PageUp);
    EXPECT_GE(item("launchAtLogin").mapToScene({0, 0}).y(), 0);
}

TEST_F(GeneralTabTest, ShowsWhatIsChangedElsewhere) {
    shown.preferences.setJoinTarget(JoinTarget::defaultBrowser);
    EXPECT_TRUE(isSpokenAsChecked(segment("Default browser")));
    shown.preferences.setShortcutOnJoin(QStringLiteral("Elsewhere"));
    EXPECT_EQ(item("shortcut").property("setting"), QStringLiteral("Elsewhere"));
}

} // namespace
} // namespace vantrel
