#include "ShownOnboarding.h"

#include <gmock/gmock.h>

namespace vantrel::tests {

using Step = OnboardingStep;
using testing::ElementsAre;

namespace {

class OnboardingTextsTest : public ShownOnboarding {
protected:
    /// What a person reads, from the top.
    std::vector<std::string> texts() const {
        std::vector<std::string> found;
        for (const QQuickItem *item : gallery::withDescendants(stage->root())) {
            const QString text = item->property("text").toString();
            const bool isRead = item->inherits("QQuickText") && item->isVisible() &&
                                item->opacity() > 0.0 && !text.isEmpty();
            if (isRead)
                found.push_back(text.toStdString());
        }
        return found;
    }

    /// The symbols that are shown, by name.
    std::vector<std::string> symbols() const {
        std::vector<std::string> found;
        for (const QQuickItem *item : gallery::withDescendants(stage->root())) {
            if (item->inherits("vantrel::SymbolItem") && item->isVisible())
                found.push_back(item->property("name").toString().toStdString());
        }
        return found;
    }

    std::string portrait() const {
        const QQuickItem *picture = find("portrait");
        const QVariant asset = picture->property("asset");
        return (asset.isValid() ? asset : picture->property("assetName")).toString().toStdString();
    }
};

} // namespace

TEST_F(OnboardingTextsTest, Welcome) {
    show();
    EXPECT_THAT(
        texts(),
        ElementsAre("Step 1 of 6", "Tobble fetches you to your meetings.",
                    "A minute before each meeting, Tobble takes over your screen and brings you to "
                    "it — unmissable, but warm. Calendar data stays on your Mac.",
                    "Reads your Calendar — Google, iCloud, Exchange, Outlook, whatever you've got.",
                    "One minute before a meeting, Tobble fetches you. One key joins.",
                    "No backend, no cloud, no telemetry. Your calendar never leaves this Mac.",
                    "Get started"));
    EXPECT_THAT(symbols(), ElementsAre("calendar.badge.clock", "bell.badge", "lock.shield"));
    EXPECT_EQ(portrait(), "tobble-friday-relaxed");
}

TEST_F(OnboardingTextsTest, CalendarThatIsNeeded) {
    showAt(Step::calendar);
    EXPECT_THAT(
        texts(),
        ElementsAre("Step 2 of 6", "Calendar access",
                    "macOS will ask once for permission to read your calendar. Tobble needs this "
                    "to know when your meetings start. Your calendar never leaves this Mac — "
                    "there's no backend.",
                    "Calendar — Full access", "Needed",
                    "If macOS doesn't prompt (e.g. you previously declined), open System Settings "
                    "→ Privacy & Security → Calendars and enable Vantrel.",
                    "Back", "Grant access"));
    EXPECT_THAT(symbols(), ElementsAre("circle"));
    EXPECT_EQ(portrait(), "tobble-curious-calendar");
}

TEST_F(OnboardingTextsTest, CalendarThatIsGrantedWhileTheStepIsShown) {
    showAt(Step::calendar);
    allow();
    queue.advance(Seconds{0.5});
    EXPECT_THAT(
        texts(),
        ElementsAre("Step 2 of 6", "Calendar access",
                    "macOS will ask once for permission to read your calendar. Tobble needs this "
                    "to know when your meetings start. Your calendar never leaves this Mac — "
                    "there's no backend.",
                    "Calendar — Full access", "Granted", "Tobble can see your meetings now.",
                    "All your calendars — work and personal — read together.", "Back", "Continue"));
    EXPECT_THAT(symbols(), ElementsAre("checkmark.circle.fill", "checkmark.seal.fill"));
}

TEST_F(OnboardingTextsTest, CalendarWhoseAccessIsTakenAwayWhileTheStepIsShown) {
    showAt(Step::calendar);
    allow();
    queue.advance(Seconds{0.5});
    store.authorization = StoreAuthorization::denied;
    queue.advance(Seconds{0.5});
    EXPECT_THAT(texts(), ::testing::Contains("Needed"));
    EXPECT_THAT(texts(), ::testing::Contains("Grant access"));
}

TEST_F(OnboardingTextsTest, Notifications) {
    showAt(Step::notifications);
    const std::string body =
        "Vantrel's takeover usually covers everything, including full-screen apps. For the rare "
        "case it can't (some games, certain full-screen video calls), a notification is the "
        "backup. Optional — you can skip and turn it on later.";
    EXPECT_THAT(texts(), ElementsAre("Step 3 of 6", "Allow notifications",
                                     "Notifications — for the rare full-screen miss", body,
                                     "Notifications", "Optional", "Back", "Skip", "Continue"));
    EXPECT_THAT(symbols(), ElementsAre("bell"));
    EXPECT_EQ(portrait(), "tobble-thoughtful");
    notifications.status = NotificationPermission::Status::authorized;
    viewModel.refresh();
    EXPECT_THAT(texts(), ElementsAre("Step 3 of 6", "Allow notifications",
                                     "Notifications — for the rare full-screen miss", body,
                                     "Notifications", "Allowed", "Back", "Skip", "Continue"));
    EXPECT_THAT(symbols(), ElementsAre("checkmark.circle.fill"));
}

TEST_F(OnboardingTextsTest, ThemesWithTheChosenOneChecked) {
    preferences.setSelectedTheme(Theme::alpineDawn);
    showAt(Step::theme);
    EXPECT_THAT(texts(),
                ElementsAre("Step 4 of 6", "Pick a theme",
                            "Theme is your identity — it stays the same all day. The five presets "
                            "honor the same brand; pick the one that feels like the workspace you "
                            "want.",
                            "Hearth", "Warm amber and wood, the family default", "Summit",
                            "Clean and minimal, snow-light", "Alpine Dawn", "Cool morning blues",
                            "Dusk", "Deep indigo, late-day calm", "Chestnut",
                            "Tobble's coat — cream and chestnut", "Back", "Continue"));
    EXPECT_THAT(symbols(), ElementsAre("checkmark.circle.fill"));
}

TEST_F(OnboardingTextsTest, DemoBeforeAndAfterItWasShown) {
    showAt(Step::demoTakeover);
    const std::string body =
        "Tap the button to fire a demo takeover. Tobble will cover your screen the same way he "
        "will when a real meeting is a minute out — no surprise the first time it happens for "
        "real.";
    const std::string note = "It'll appear over everything, including full-screen apps. Press Esc "
                             "to dismiss the preview.";
    EXPECT_THAT(texts(), ElementsAre("Step 5 of 6", "See it in action", body,
                                     "Show me the takeover", note, "Back", "Continue"));
    EXPECT_THAT(symbols(), ElementsAre("play.fill"));
    EXPECT_EQ(portrait(), "tobble-acknowledging");
    press(Qt::Key_Space);
    EXPECT_EQ(previews, 1);
    EXPECT_THAT(texts(), ElementsAre("Step 5 of 6", "See it in action", body, "Show again", note,
                                     "That's the takeover. It'll fire automatically a minute "
                                     "before each meeting.",
                                     "Back", "Continue"));
    EXPECT_THAT(symbols(), ElementsAre("play.fill", "checkmark.circle.fill"));
    press(Qt::Key_Space);
    EXPECT_EQ(previews, 2);
}

TEST_F(OnboardingTextsTest, LaunchAtLoginAndWhyItFailed) {
    showAt(Step::launchAtLogin);
    const std::string title = "One last thing — launch at login?";
    const std::string body = "Tobble can't fetch you if he's not running. Most people turn this "
                             "on. You can change it any time in Preferences.";
    const std::string closing = "You're ready. Tobble will fetch you a minute before each meeting "
                                "— Join, snooze with S, or dismiss with Esc.";
    EXPECT_THAT(texts(), ElementsAre("Step 6 of 6", title, body, "Launch Vantrel at login", closing,
                                     "Back", "Finish"));
    EXPECT_THAT(symbols(), ElementsAre("power"));
    EXPECT_EQ(portrait(), "tobble-content");
    loginItem.refusal = QStringLiteral("No space left on device");
    viewModel.setLaunchAtLogin(true);
    EXPECT_THAT(texts(), ElementsAre("Step 6 of 6", title, body, "Launch Vantrel at login",
                                     "No space left on device", closing, "Back", "Finish"));
    EXPECT_THAT(symbols(), ElementsAre("power", "exclamationmark.triangle.fill"));
    loginItem.refusal.reset();
    viewModel.setLaunchAtLogin(true);
    EXPECT_THAT(symbols(), ElementsAre("power"));
}

TEST_F(OnboardingTextsTest, TheLastStepIsNotCounted) {
    showDone();
    EXPECT_THAT(texts(), ElementsAre("You're ready. Tobble will fetch you a minute before each "
                                     "meeting — Join, snooze with S, or dismiss with Esc.",
                                     "Back", "Finish"));
    EXPECT_EQ(portrait(), "tobble-content");
}

} // namespace vantrel::tests
