#include "MenuBarCalendar.h"

#include <fakes/RecordingStatusBar.h>
#include <menubar/MenuBarController.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {
namespace {

using fakes::at;

class MenuBarControllerTest : public testing::Test {
protected:
    MenuBarController &start() {
        MenuBarController::Actions actions = std::exchange(available, {});
        actions.leftClick = [this](const auto &place) {
            calls.emplace_back("left click");
            lastPlace = place;
        };
        actions.showMenu = [this](const Menu &menu, const auto &place) {
            calls.emplace_back("menu");
            shownMenu = menu;
            lastPlace = place;
        };
        controller = std::make_unique<MenuBarController>(bar, calendar.preferences, calendar.query,
                                                         calendar.queue, std::move(actions));
        controller->observePauseState();
        controller->observeDisplayInputs();
        controller->startMinuteTick();
        controller->applyDisplay();
        return *controller;
    }

    void addMeeting(const char *title, const char *startDate) {
        calendar.add(QString::fromUtf8(title), at(startDate));
    }

    const fakes::RecordingStatusBar::Record &item() const { return *bar.items.at(0); }

    /// What stands beside the icon; empty for nothing.
    QString title() const { return item().title ? item().title->text : QString(); }

    void click(const StatusItemClick &click) const { item().listener.clicked(click); }

    std::function<void()> recorded(const char *name) {
        return [this, name] { calls.emplace_back(name); };
    }

    /// Every line as "title [key]", a separator as "-", in brackets where it cannot be chosen.
    static std::vector<std::string> lines(const Menu &menu) {
        std::vector<std::string> lines;
        for (const auto &entry : menu) {
            if (const auto *item = std::get_if<MenuItem>(&entry)) {
                const QString text = item->title + u' ' + item->keyEquivalent;
                lines.push_back((item->action ? text : u'(' + text + u')').trimmed().toStdString());
            } else {
                lines.emplace_back("-");
            }
        }
        return lines;
    }

    static void choose(const Menu &menu, std::size_t index) {
        std::get<MenuItem>(menu.at(index)).action();
    }

    MenuBarCalendar calendar;
    fakes::RecordingStatusBar bar;
    MenuBarController::Actions available; ///< Actions to give to the controller.
    std::vector<std::string> calls;
    std::optional<QRect> lastPlace;
    Menu shownMenu;
    std::unique_ptr<MenuBarController> controller;
};

// The display

TEST_F(MenuBarControllerTest, ShowsTheNextMeetingWithItsColorAndItsFullTitleAsToolTip) {
    addMeeting("Weekly planning sync-up", "2026-03-02T09:12:00");
    start();
    EXPECT_EQ(item().image, u"pawprint.fill");
    EXPECT_EQ(item().accessibleDescription, u"Vantrel");
    EXPECT_EQ(item().title, (StatusTitle{Color{0.1, 0.2, 0.3, 1.0},
                                         QStringLiteral("Weekly planning syn… • in 12 min"),
                                         QStringLiteral("Weekly planning syn… • ends in 00 min")}));
    EXPECT_EQ(item().toolTip, u"Weekly planning sync-up");
}

TEST_F(MenuBarControllerTest, ShowsItsNameAloneWithoutAMeeting) {
    start();
    EXPECT_EQ(item().image, u"pawprint.fill");
    EXPECT_EQ(item().title, std::nullopt);
    EXPECT_EQ(item().toolTip, u"Vantrel");
}

TEST_F(MenuBarControllerTest, ShowsAMeetingUpToTheHorizonOfTheSettings) {
    addMeeting("Review", "2026-03-02T11:00:00");
    start();
    EXPECT_EQ(title(), u"Review • in 120 min");
    calendar.store.storedEvents.front().startDate = at("2026-03-02T11:01:00");
    controller->applyDisplay();
    EXPECT_EQ(item().title, std::nullopt);
    EXPECT_EQ(item().toolTip, u"Vantrel");
    calendar.preferences.setMenuBarUpcomingHorizonMinutes(121);
    calendar.queue.runDue();
    EXPECT_EQ(title(), u"Review • in 121 min");
}

TEST_F(MenuBarControllerTest, OutlinesThePawAndShowsNoMeetingWhilePaused) {
    addMeeting("Review", "2026-03-02T10:00:00");
    start();
    calendar.preferences.setIsPaused(true);
    EXPECT_EQ(title(), u"Review • in 60 min");
    const int fetches = calendar.store.fetchCount;
    calendar.queue.runDue();
    EXPECT_EQ(calendar.store.fetchCount, fetches);
    EXPECT_EQ(item().image, u"pawprint");
    EXPECT_EQ(item().accessibleDescription, u"Vantrel");
    EXPECT_EQ(item().title, std::nullopt);
    EXPECT_EQ(item().toolTip, u"Vantrel (paused)");
    calendar.preferences.setShowNextMeetingInMenuBar(false);
    calendar.queue.runDue();
    EXPECT_EQ(item().toolTip, u"Vantrel (paused)");
    calendar.preferences.setShowNextMeetingInMenuBar(true);
    calendar.preferences.setIsPaused(false);
    calendar.queue.runDue();
    EXPECT_EQ(item().image, u"pawprint.fill");
    EXPECT_EQ(title(), u"Review • in 60 min");
}

TEST_F(MenuBarControllerTest, ShowsNoMeetingWhenTheUserWantsNone) {
    addMeeting("Review", "2026-03-02T10:00:00");
    calendar.preferences.setShowNextMeetingInMenuBar(false);
    const int fetches = calendar.store.fetchCount;
    start();
    calendar.queue.runDue();
    EXPECT_EQ(item().title, std::nullopt);
    EXPECT_EQ(item().toolTip, u"Vantrel");
    EXPECT_EQ(item().image, u"pawprint.fill");
    EXPECT_EQ(calendar.store.fetchCount, fetches);
}

TEST_F(MenuBarControllerTest, FollowsTheWishForNoMeetingWhileOneIsShown) {
    addMeeting("Review", "2026-03-02T10:00:00");
    start();
    calendar.preferences.setShowNextMeetingInMenuBar(false);
    calendar.queue.runDue();
    EXPECT_EQ(item().title, std::nullopt);
    EXPECT_EQ(item().toolTip, u"Vantrel");
    calendar.preferences.setShowNextMeetingInMenuBar(true);
    calendar.queue.runDue();
    EXPECT_EQ(title(), u"Review • in 60 min");
}

TEST_F(MenuBarControllerTest, LetsNoTitleTurnTheCountdownAround) {
    addMeeting("Re\u202Eview\nof it", "2026-03-02T10:00:00");
    start();
    EXPECT_EQ(title(), u"Review of it • in 60 min");
    EXPECT_EQ(item().toolTip, u"Review of it");
}

TEST_F(MenuBarControllerTest, LetsNoTitlePushTheCountdownOut) {
    addMeeting("Review", "2026-03-02T10:00:00");
    QString heaps;
    for (int letter = 0; letter < 20; ++letter)
        heaps += QLatin1Char('a') + QString(200, QChar(0x0301));
    calendar.store.storedEvents.front().title = heaps;
    start();
    EXPECT_TRUE(title().endsWith(u" • in 60 min")) << title().toStdString();
    calendar.store.storedEvents.front().title =
        QString(30, QChar(0x202E)) + QStringLiteral("Review");
    controller->applyDisplay();
    EXPECT_EQ(title(), u"Review • in 60 min");
}

TEST_F(MenuBarControllerTest, ShowsTheCountdownOfAMeetingWithoutATitle) {
    addMeeting("Review", "2026-03-02T10:00:00");
    calendar.store.storedEvents.front().title = QString();
    start();
    EXPECT_EQ(title(), u" • in 60 min");
}

TEST_F(MenuBarControllerTest, FollowsTheSelectionOfCalendars) {
    addMeeting("Review", "2026-03-02T10:00:00");
    start();
    calendar.preferences.setSelectedCalendarIDs({});
    calendar.queue.runDue();
    EXPECT_EQ(item().title, std::nullopt);
}

TEST_F(MenuBarControllerTest, FollowsSettingsThatChangeTogetherOnce) {
    start();
    calendar.queue.runDue();
    const int before = item().displayCount;
    calendar.preferences.setIsPaused(true);
    calendar.preferences.setIsPaused(false);
    calendar.preferences.setMenuBarUpcomingHorizonMinutes(60);
    calendar.queue.runDue();
    EXPECT_EQ(item().displayCount, before + 1);
}

TEST_F(MenuBarControllerTest, CountsDownOnceAMinute) {
    addMeeting("Review", "2026-03-02T09:02:30");
    start();
    EXPECT_EQ(title(), u"Review • in 3 min");
    calendar.queue.advance(Seconds{59.0});
    EXPECT_EQ(title(), u"Review • in 3 min");
    calendar.queue.advance(Seconds{1.0});
    EXPECT_EQ(title(), u"Review • in 2 min");
    calendar.queue.advance(Seconds{60.0});
    EXPECT_EQ(title(), u"Review • in 1 min");
    // The query does not list what has begun.
    calendar.queue.advance(Seconds{60.0});
    EXPECT_EQ(item().title, std::nullopt);
}

TEST_F(MenuBarControllerTest, ShowsAMeetingThatBeginsAtThisMomentAsUnderWay) {
    addMeeting("Review", "2026-03-02T09:00:00");
    addMeeting("Next", "2026-03-02T09:05:00");
    start();
    EXPECT_EQ(title(), u"Review • ends in 30 min");
    calendar.queue.advance(Seconds{60.0});
    EXPECT_EQ(title(), u"Next • in 4 min");
}

TEST_F(MenuBarControllerTest, ShowsATitleWithMarkupAsItStands) {
    addMeeting("<b>&amp;</b>", "2026-03-02T09:05:00");
    start();
    EXPECT_EQ(title(), u"<b>&amp;</b> • in 5 min");
    EXPECT_EQ(item().toolTip, u"<b>&amp;</b>");
}

// Clicks

TEST_F(MenuBarControllerTest, HandsAPlainLeftClickAndItsPlaceOn) {
    start();
    click({PointerButton::left, false, QRect(100, 0, 24, 24)});
    EXPECT_EQ(calls, std::vector<std::string>{"left click"});
    EXPECT_EQ(lastPlace, QRect(100, 0, 24, 24));
    click({});
    EXPECT_EQ(lastPlace, std::nullopt);
}

TEST_F(MenuBarControllerTest, ShowsTheMenuOnARightClickAndOnAControlClick) {
    available.openPreferences = recorded("preferences");
    available.checkForUpdates = recorded("updates");
    available.quit = recorded("quit");
    start();
    click({PointerButton::right, false, QRect(100, 0, 24, 24)});
    EXPECT_EQ(calls, std::vector<std::string>{"menu"});
    EXPECT_EQ(lastPlace, QRect(100, 0, 24, 24));
    EXPECT_EQ(lines(shownMenu), (std::vector<std::string>{"Preferences… ,", "Check for Updates…",
                                                          "-", "Quit Vantrel q"}));
    click({PointerButton::left, true, std::nullopt});
    click({PointerButton::right, true, std::nullopt});
    EXPECT_EQ(calls, (std::vector<std::string>{"menu", "menu", "menu"}));
}

TEST_F(MenuBarControllerTest, LetsTheMenuCallWhatItSays) {
    available.openPreferences = recorded("preferences");
    available.checkForUpdates = recorded("updates");
    available.quit = recorded("quit");
    start();
    const Menu menu = item().listener.menu();
    choose(menu, 0);
    choose(menu, 1);
    choose(menu, 3);
    EXPECT_EQ(calls, (std::vector<std::string>{"preferences", "updates", "quit"}));
}

TEST_F(MenuBarControllerTest, ShowsWhatNobodyAnswersAsNotToBeChosen) {
    available.quit = recorded("quit");
    start();
    EXPECT_EQ(lines(item().listener.menu()),
              (std::vector<std::string>{"(Preferences… ,)", "(Check for Updates… )", "-",
                                        "Quit Vantrel q"}));
}

TEST_F(MenuBarControllerTest, LeadsNowhereWithoutActions) {
    controller = std::make_unique<MenuBarController>(bar, calendar.preferences, calendar.query,
                                                     calendar.queue, MenuBarController::Actions{});
    click({});
    click({PointerButton::right, false, std::nullopt});
    EXPECT_TRUE(calls.empty());
}

// The end

TEST_F(MenuBarControllerTest, EndsEverythingWhenStopped) {
    start();
    calendar.queue.runDue();
    const auto listener = item().listener;
    calendar.preferences.setIsPaused(true);
    controller->stop();
    EXPECT_FALSE(item().exists);
    EXPECT_EQ(calendar.queue.pendingCount(), 0U);
    const int displays = item().displayCount;
    calendar.preferences.setIsPaused(false);
    EXPECT_EQ(calendar.queue.pendingCount(), 0U);
    calendar.queue.advance(Seconds{120.0});
    controller->applyDisplay();
    EXPECT_EQ(item().displayCount, displays);
    listener.clicked({});
    EXPECT_TRUE(calls.empty());
}

TEST_F(MenuBarControllerTest, DoesNothingWithoutAnItem) {
    bar.makesItems = false;
    start();
    calendar.queue.advance(Seconds{60.0});
    controller->stop();
    EXPECT_TRUE(bar.items.empty());
}

} // namespace
} // namespace vantrel
