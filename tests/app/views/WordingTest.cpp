#include <app/Wording.h>
#include <fakes/InMemoryUserDefaults.h>
#include <onboarding/OnboardingContents.h>
#include <preferences/PreferencesContents.h>

#include <QCoreApplication>
#include <QFile>
#include <QTranslator>
#include <QXmlStreamReader>

#include <gallery/ShownFirstRun.h>
#include <gallery/ShownPreferences.h>
#include <gallery/Stage.h>
#include <gmock/gmock.h>

#include <variant>
#include <vector>

namespace vantrel {
namespace {

using ::testing::IsEmpty;

struct Replaced {
    /// Of the preferences, or of the first run.
    std::variant<PreferencesTab, OnboardingStep> page;
    const char *source;
    const char *shown;
};

/// Every text that names another platform, and what stands in its place.
const std::vector<Replaced> replaced{
    {PreferencesTab::about,
     "Clears every setting Tobble remembers — calendar selection, lead time, snooze duration, work "
     "hours, theme. Login Items state stays the way you set it in System Settings.",
     "Clears every setting Tobble remembers — calendar selection, lead time, snooze duration, work "
     "hours, theme. Whether Vantrel starts at login stays the way you set it."},
    {OnboardingStep::calendar,
     "macOS will ask once for permission to read your calendar. Tobble needs this to know when "
     "your meetings start. Your calendar never leaves this Mac — there's no backend.",
     "Vantrel will ask once for permission to read your calendar. Tobble needs this to know when "
     "your meetings start. Your calendar never leaves this computer — there's no backend."},
    {OnboardingStep::calendar,
     "If macOS doesn't prompt (e.g. you previously declined), open System Settings → Privacy & "
     "Security → Calendars and enable Vantrel.",
     "If Vantrel doesn't ask (e.g. a policy of this computer bars access), whoever looks after it "
     "can lift that; Preferences → Calendars tells where calendars come from."},
    {PreferencesTab::general,
     "Adds Vantrel to your macOS Login Items so it's ready before your first meeting.",
     "Adds Vantrel to the programs your desktop starts at login so it's ready before your first "
     "meeting."},
    {PreferencesTab::general,
     "Fires a macOS Shortcut alongside opening the link. Leave blank to disable.",
     "Fires a shortcut of yours alongside opening the link. Leave blank to disable."},
    {PreferencesTab::general,
     "The Shortcuts app on your Mac lets you chain actions together — mute Slack, set a Focus "
     "mode, hide your desktop icons, open a notes template. Tobble can fire one of those for you "
     "the moment you join a meeting.",
     "A program that you register for shortcuts: links lets you chain actions together — mute "
     "Slack, set a Focus mode, hide your desktop icons, open a notes template. Tobble can fire one "
     "of those for you the moment you join a meeting."},
    {PreferencesTab::general, "Open the Shortcuts app and build (or pick) the shortcut you want.",
     "Have a program of yours open shortcuts: links and run the shortcut that the link names."},
    {PreferencesTab::general,
     "Shortcuts run on your Mac. Nothing about your meeting or the shortcut leaves the device.",
     "Shortcuts run on your computer. Nothing about your meeting or the shortcut leaves the "
     "device."},
    {OnboardingStep::welcome,
     "A minute before each meeting, Tobble takes over your screen and brings you to it — "
     "unmissable, but warm. Calendar data stays on your Mac.",
     "A minute before each meeting, Tobble takes over your screen and brings you to it — "
     "unmissable, but warm. Calendar data stays on your computer."},
    {OnboardingStep::welcome,
     "No backend, no cloud, no telemetry. Your calendar never leaves this Mac.",
     "No backend, no cloud, no telemetry. Your calendar never leaves this computer."},
    {PreferencesTab::general,
     "Couldn't update Login Items: ", "Couldn't change what starts at login: "},
};

class WordingTest : public testing::Test {
protected:
    ~WordingTest() override {
        for (auto *translator : qApp->findChildren<QTranslator *>())
            delete translator;
    }

    /// All that a page of the preferences tells, with a login item that cannot be changed.
    static QString textsOf(PreferencesTab page) {
        fakes::InMemoryUserDefaults defaults;
        gallery::ShownPreferences shown(defaults);
        shown.loginItem.refusal = QStringLiteral("The disk is full.");
        shown.model.general()->setStartedAtLogin(true);
        shown.model.general()->setShowShortcutDetails(true);
        shown.model.select(page);
        return textsOn(preferencesContent(shown.model), {880, 600});
    }

    /// The same of a step of the first run.
    static QString textsOf(OnboardingStep step) {
        gallery::ShownFirstRun run(Theme::hearth);
        run.goTo(step);
        return textsOn(onboardingContent(run.viewModel), {660, 640});
    }

    static QString textsOf(const Replaced &text) {
        return std::visit([](auto page) { return textsOf(page); }, text.page);
    }

private:
    static QString textsOn(const ViewContent &content, QSize size) {
        gallery::Stage stage(content, size);
        stage.show();
        QStringList texts;
        for (const QQuickItem *item : gallery::withDescendants(stage.root())) {
            if (item->inherits("QQuickText") && item->isVisible())
                texts += item->property("text").toString();
        }
        EXPECT_THAT(stage.warnings(), IsEmpty());
        return texts.join(u'\n');
    }
};

TEST_F(WordingTest, TheCatalogueReplacesJustTheseTexts) {
    QFile file(QStringLiteral(VANTREL_TRANSLATIONS "/vantrel_en_LINUX.ts"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    std::vector<std::pair<QString, QString>> found;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement() && reader.name() == u"source")
            found.push_back({reader.readElementText(), {}});
        else if (reader.isStartElement() && reader.name() == u"translation")
            found.back().second = reader.readElementText();
    }
    std::vector<std::pair<QString, QString>> expected;
    for (const Replaced &text : replaced)
        expected.push_back({QString::fromUtf8(text.source), QString::fromUtf8(text.shown)});
    EXPECT_EQ(found, expected);
}

TEST_F(WordingTest, EveryWindowSpeaksOfThisPlatform) {
    installWording();
    QStringList read;
    for (const Replaced &text : replaced) {
        const QString shown = textsOf(text);
        EXPECT_TRUE(shown.contains(QString::fromUtf8(text.shown))) << text.shown;
        EXPECT_FALSE(shown.contains(QString::fromUtf8(text.source))) << text.source;
    }
    for (const PreferencesTab page : allPreferencesTabs)
        read += textsOf(page);
    for (const OnboardingStep step : allOnboardingSteps)
        read += textsOf(step);
    for (const char *foreign :
         {"macOS", "Mac ", "your Mac", "this Mac", "System Settings", "Login Items"})
        EXPECT_FALSE(read.join(u'\n').contains(QLatin1String(foreign))) << foreign;
}

TEST_F(WordingTest, WithoutTheCatalogueTheTextsAreTheSources) {
    for (const Replaced &text : replaced)
        EXPECT_TRUE(textsOf(text).contains(QString::fromUtf8(text.source))) << text.source;
}

} // namespace
} // namespace vantrel
