#include "CoordinatorFixture.h"

#include <links/MeetingLink.h>
#include <theme/ThemePalette.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vantrel {
namespace {

using fakes::at;
using Opened = fakes::RecordingWorkspace::Opened;

const auto zoomLink = QStringLiteral("https://us02web.zoom.us/j/81234567890?pwd=abc");

class AppMenuBarTest : public CoordinatorFixture {
protected:
    const fakes::RecordingStatusBar::Record &item() const { return *statusBar.items.at(0); }

    QString title() const { return item().title ? item().title->text : QString(); }

    static UpcomingEvent event() {
        UpcomingEvent event;
        event.id = QStringLiteral("a|1");
        return event;
    }

    static UpcomingEvent videoMeeting() {
        UpcomingEvent meeting = event();
        meeting.videoLink =
            MeetingLink::video(MeetingLink::VideoProvider::zoom, *Url::fromString(zoomLink));
        return meeting;
    }

    static UpcomingEvent callByPhone(const QString &number) {
        UpcomingEvent meeting = event();
        meeting.phoneLink = MeetingLink::phone(number);
        return meeting;
    }

    /// As they stand in the file, where there is one.
    DayBucket counts() const {
        const RescueLog log(
            RescueLogStore(rescueLogFile()), [this] { return queue.now(); },
            [] { return fakes::calendarIn(); });
        return log.byDay().empty() ? DayBucket{} : log.byDay().begin()->second;
    }
};

// The status item

TEST_F(AppMenuBarTest, ShowsTheNextMeetingFromTheStartOn) {
    addMeeting("Review", at("2026-03-02T10:00:00"));
    start();
    EXPECT_EQ(title(), u"Review • in 60 min");
    queue.advance(Seconds{60.0});
    EXPECT_EQ(title(), u"Review • in 59 min");
}

TEST_F(AppMenuBarTest, ShowsWhatChangesInTheCalendarsInTheSamePassAsItPlans) {
    start();
    EXPECT_EQ(item().title, std::nullopt);
    addMeeting("Now", at("2026-03-02T09:00:30"));
    announceChange();
    EXPECT_EQ(title(), u"Now • in 1 min");
    EXPECT_EQ(panels.shown().size(), 1U);
}

TEST_F(AppMenuBarTest, OutlinesThePawWhileAlertsArePaused) {
    start();
    preferences->setIsPaused(true);
    queue.runDue();
    EXPECT_EQ(item().image, u"pawprint");
}

TEST_F(AppMenuBarTest, QuitsFromTheMenuOfTheItemWhichOffersEachWindow) {
    start();
    const Menu menu = item().listener.menu();
    ASSERT_EQ(menu.size(), 4U);
    EXPECT_TRUE(std::get<MenuItem>(menu[0]).action);
    EXPECT_TRUE(std::get<MenuItem>(menu[1]).action);
    std::get<MenuItem>(menu[3]).action();
    EXPECT_EQ(terminations, 1);
}

TEST_F(AppMenuBarTest, TakesTheItemAwayWhenStopped) {
    start();
    coordinator->stop();
    EXPECT_FALSE(item().exists);
    EXPECT_EQ(queue.pendingCount(), 0U);
}

// Joining

TEST_F(AppMenuBarTest, OpensTheVideoLinkInItsTargetRunsTheShortcutAndCountsARescue) {
    preferences->setJoinTarget(JoinTarget::defaultBrowser);
    preferences->setShortcutOnJoin(QStringLiteral("Focus"));
    workspace.browser = ApplicationId{QStringLiteral("browser.desktop")};
    start();
    UpcomingEvent meeting = videoMeeting();
    meeting.phoneLink = MeetingLink::phone(QStringLiteral("+41 44 668 18 00"));
    coordinator->handleJoin(meeting);
    EXPECT_EQ(workspace.opened,
              (std::vector<Opened>{
                  {zoomLink, workspace.browser},
                  {QStringLiteral("shortcuts://run-shortcut?name=Focus"), std::nullopt}}));
    EXPECT_EQ(counts().rescuesFromPopover, 1);
    EXPECT_EQ(counts().rescuesFromTakeover, 0);
}

TEST_F(AppMenuBarTest, DialsTheDigitsAndPlusSignsOfANumber) {
    start();
    coordinator->handleJoin(callByPhone(QStringLiteral(u"+41 (0)44 668-18-00 ext. ٣")));
    EXPECT_EQ(workspace.opened,
              (std::vector<Opened>{{QStringLiteral("tel:+410446681800"), std::nullopt}}));
    EXPECT_EQ(counts().rescuesFromPopover, 1);
}

TEST_F(AppMenuBarTest, CountsNothingForAMeetingWithNothingToOpen) {
    start();
    coordinator->handleJoin(event());
    EXPECT_TRUE(workspace.opened.empty());
    EXPECT_EQ(counts().rescuesFromPopover, 0);
}

// The preview

TEST_F(AppMenuBarTest, PreviewsATakeoverWhilePausedAndCountsNothing) {
    preferences->setIsPaused(true);
    start();
    coordinator->previewTakeover(std::nullopt);
    ASSERT_EQ(panels.shown().size(), 1U);
    panels.press({Key::space, {}});
    queue.advance(Seconds{2.0});
    EXPECT_TRUE(panels.shown().empty());
    coordinator->previewTakeover(Theme::dusk);
    panels.press({Key::other, QStringLiteral("s")});
    queue.advance(Seconds{3600.0});
    EXPECT_EQ(panels.panels.size(), 2U);
    coordinator->previewTakeover(std::nullopt);
    panels.press({Key::escape, {}});
    queue.advance(Seconds{2.0});
    EXPECT_TRUE(panels.shown().empty());
    EXPECT_TRUE(workspace.opened.empty());
    EXPECT_EQ(counts().rescuesFromTakeover, 0);
    EXPECT_EQ(counts().snoozes, 0);
    EXPECT_EQ(counts().dismisses, 0);
}

TEST_F(AppMenuBarTest, PreviewsInTheSelectedThemeOrInTheOneAskedFor) {
    preferences->setSelectedTheme(Theme::summit);
    start();
    const auto shownPalette = [this] {
        return panels.panels.back()
            ->content.properties.value(QStringLiteral("themePalette"))
            .value<ThemePalette>();
    };
    coordinator->previewTakeover(std::nullopt);
    EXPECT_EQ(shownPalette(), ThemePalette(palette(Theme::summit)));
    panels.press({Key::escape, {}});
    queue.advance(Seconds{2.0});
    coordinator->previewTakeover(Theme::dusk);
    EXPECT_EQ(shownPalette(), ThemePalette(palette(Theme::dusk)));
}

TEST_F(AppMenuBarTest, LetsAPreviewStandUntilItIsAnswered) {
    preferences->setAutoCloseSeconds(10);
    start();
    coordinator->previewTakeover(std::nullopt);
    queue.advance(Seconds{3600.0});
    EXPECT_EQ(panels.shown().size(), 1U);
}

TEST_F(AppMenuBarTest, HasAPreviewMakeWayForAMeeting) {
    addMeeting("Review", at("2026-03-02T09:02:00"));
    start();
    coordinator->previewTakeover(std::nullopt);
    queue.advance(Seconds{60.0});
    queue.advance(Seconds{1.0});
    ASSERT_EQ(panels.shown().size(), 1U);
    panels.press({Key::escape, {}});
    EXPECT_EQ(counts().dismisses, 1);
}

TEST_F(AppMenuBarTest, LeavesAMeetingsTakeoverUpForTheNextOne) {
    addMeeting("Review", at("2026-03-02T09:01:00"));
    addMeeting("Second", at("2026-03-02T09:02:00"));
    start();
    ASSERT_EQ(panels.shown().size(), 1U);
    coordinator->previewTakeover(std::nullopt);
    queue.advance(Seconds{61.0});
    EXPECT_EQ(panels.panels.size(), 1U);
}

} // namespace
} // namespace vantrel
