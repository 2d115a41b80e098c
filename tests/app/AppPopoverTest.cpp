#include "CoordinatorFixture.h"

#include <menubar/MenuModel.h>
#include <menubar/PopoverModel.h>
#include <menubar/UpcomingMenuTarget.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel {
namespace {

using fakes::at;

class AppPopoverTest : public CoordinatorFixture {
protected:
    StoreEvent &addVideoCall(const char *title, const char *start) {
        StoreEvent &event = addMeeting(title, at(start));
        event.location = QStringLiteral("https://us02web.zoom.us/j/81234567890");
        return event;
    }

    void click(const StatusItemClick &click = {PointerButton::left, false, QRect(100, 0, 24, 24)}) {
        statusBar.items.at(0)->listener.clicked(click);
    }

    /// The popup with that view, which must be shown.
    const fakes::RecordingPopups::Record &shown(const char *view) const {
        for (const auto &popup : popups.shown()) {
            if (popup->content.typeName == QLatin1String(view))
                return *popup;
        }
        throw std::logic_error("it is not shown");
    }

    template <typename Model>
    static Model &modelOf(const fakes::RecordingPopups::Record &popup) {
        auto *object =
            popup.content.properties.value(QStringLiteral("viewModel")).value<QObject *>();
        return *qobject_cast<Model *>(object);
    }

    PopoverModel &popoverModel() const {
        return modelOf<PopoverModel>(shown("UpcomingEventsView"));
    }
    MenuModel &menuModel() const { return modelOf<MenuModel>(shown("MenuView")); }

    /// The lines of the menu that is shown: "-" for a separator, in brackets what cannot be chosen.
    std::vector<std::string> menuLines() const {
        std::vector<std::string> lines;
        const MenuModel &menu = menuModel();
        for (int row = 0; row < menu.rowCount(); ++row) {
            const auto role = [&](int wanted) { return menu.data(menu.index(row), wanted); };
            const QString title = role(MenuModel::TitleRole).toString();
            lines.push_back(role(MenuModel::IsSeparatorRole).toBool() ? "-"
                            : role(MenuModel::IsEnabledRole).toBool()
                                ? title.toStdString()
                                : '(' + title.toStdString() + ')');
        }
        return lines;
    }

    std::size_t listed() const {
        std::size_t count = 0;
        for (const DayGroup &group : coordinator->upcomingEventsViewModel().groups())
            count += group.events.size();
        return count;
    }
};

TEST_F(AppPopoverTest, MakesWayForATakeoverThatComesUp) {
    addVideoCall("standup", "2026-03-02T09:10:00");
    start();
    click();
    popoverModel().openMenu({300.0, 40.0});
    ASSERT_EQ(popups.shown().size(), 2U);
    std::size_t shownWithTheFirstPanel = 99;
    panels.whenMade = [&](const auto &) {
        shownWithTheFirstPanel = std::min(shownWithTheFirstPanel, popups.shown().size());
    };
    queue.advance(Seconds{600.0});
    EXPECT_FALSE(panels.shown().empty());
    EXPECT_EQ(shownWithTheFirstPanel, 0U);
    EXPECT_TRUE(popups.shown().empty());
}

TEST_F(AppPopoverTest, ShowsThePopoverAtTheItemAndClosesItOnTheNextClick) {
    start();
    EXPECT_TRUE(popups.shown().empty());
    click();
    ASSERT_EQ(popups.shown().size(), 1U);
    EXPECT_EQ(shown("UpcomingEventsView").places.back().anchor, QRect(100, 0, 24, 24));
    click();
    EXPECT_TRUE(popups.shown().empty());
}

TEST_F(AppPopoverTest, ShowsThePopoverWhenAskedFromOutside) {
    start();
    coordinator->takeRequest(ActivationRequest::showPopover);
    ASSERT_EQ(popups.shown().size(), 1U);
    EXPECT_EQ(shown("UpcomingEventsView").places.back().anchor, std::nullopt);
    coordinator->takeRequest(ActivationRequest::showPopover);
    EXPECT_EQ(popups.shown().size(), 1U);
}

TEST_F(AppPopoverTest, ListsWhatTheCalendarsHoldWheneverItIsShown) {
    addVideoCall("Review", "2026-03-02T10:00:00");
    start();
    click();
    EXPECT_EQ(listed(), 1U);
}

TEST_F(AppPopoverTest, FollowsAChangeOfTheCalendarsWhileItIsShown) {
    start();
    click();
    addVideoCall("Review", "2026-03-02T10:00:00");
    announceChange();
    EXPECT_EQ(listed(), 1U);
    remove("work");
    store.storedEvents.clear();
    announceChange();
    EXPECT_EQ(listed(), 0U);
}

TEST_F(AppPopoverTest, ListsAtOnceWhatAccessMakesReadable) {
    addVideoCall("Review", "2026-03-02T10:00:00");
    store.authorization = StoreAuthorization::notDetermined;
    start();
    EXPECT_EQ(listed(), 0U);
    store.authorization = StoreAuthorization::fullAccess;
    store.accessRequests.front()(true, {});
    EXPECT_EQ(listed(), 1U);
}

TEST_F(AppPopoverTest, OpensTheLinkOfTheRowThatIsJoinedAndCloses) {
    addVideoCall("Review", "2026-03-02T10:00:00");
    start();
    click();
    popoverModel().join(0);
    ASSERT_EQ(workspace.opened.size(), 1U);
    EXPECT_EQ(workspace.opened[0].url, u"https://us02web.zoom.us/j/81234567890");
    EXPECT_TRUE(popups.shown().empty());
}

TEST_F(AppPopoverTest, StaysOpenWhenThereIsNothingToJoin) {
    start();
    click();
    coordinator->handleJoin(UpcomingEvent{});
    EXPECT_EQ(popups.shown().size(), 1U);
    UpcomingEvent call;
    call.phoneLink = MeetingLink::phone(QStringLiteral("+41 44 668 18 00"));
    coordinator->handleJoin(call);
    EXPECT_TRUE(popups.shown().empty());
}

TEST_F(AppPopoverTest, OffersInItsMenuJustWhatThereIs) {
    start();
    click();
    popoverModel().openMenu({300.0, 40.0});
    ASSERT_EQ(popups.shown().size(), 2U);
    EXPECT_EQ(menuLines(), (std::vector<std::string>{"This week's rescues", "Preferences…",
                                                     "Preview takeover", "-", "Quit Vantrel"}));
}

TEST_F(AppPopoverTest, PreviewsATakeoverFromItsMenuInPlaceOfThePopover) {
    start();
    click();
    popoverModel().openMenu({300.0, 40.0});
    menuModel().choose(2);
    queue.runDue();
    EXPECT_TRUE(popups.shown().empty());
    EXPECT_EQ(panels.shown().size(), 1U);
}

TEST_F(AppPopoverTest, ShowsTheWeeksRescuesFromItsMenuInPlaceOfThePopover) {
    start();
    for (int time = 1; time <= 2; ++time) {
        click();
        popoverModel().openMenu({300.0, 40.0});
        menuModel().choose(0);
        queue.advance(Seconds{1.0});
        EXPECT_TRUE(popups.shown().empty());
        ASSERT_EQ(windows.windows.size(), 1U);
        EXPECT_EQ(windows.windows.front()->description.title, u"This Week's Rescues");
        EXPECT_EQ(windows.windows.front()->showings, time);
    }
}

TEST_F(AppPopoverTest, CountsARescueInTheOpenRecapAtOnce) {
    start();
    coordinator->openRecap();
    const auto recap = qvariant_cast<RecapViewModel *>(
        windows.windows.front()->content.properties[QStringLiteral("viewModel")]);
    ASSERT_TRUE(recap);
    EXPECT_TRUE(recap->isEmpty());
    UpcomingEvent call;
    call.phoneLink = MeetingLink::phone(QStringLiteral("+41 44 668 18 00"));
    coordinator->handleJoin(call);
    queue.runDue();
    EXPECT_EQ(recap->count(), u"1");
    EXPECT_EQ(recap->sources(), QStringList{QStringLiteral("1 from the popover")});
}

TEST_F(AppPopoverTest, CountsTheWeekUpToTheDayOnWhichTheRecapIsOpened) {
    start();
    UpcomingEvent call;
    call.phoneLink = MeetingLink::phone(QStringLiteral("+41 44 668 18 00"));
    coordinator->handleJoin(call);
    coordinator->openRecap();
    const auto recap = qvariant_cast<RecapViewModel *>(
        windows.windows.front()->content.properties[QStringLiteral("viewModel")]);
    EXPECT_EQ(recap->count(), u"1");
    queue.advance(Seconds{8.0 * 86'400.0});
    coordinator->openRecap();
    EXPECT_EQ(recap->count(), u"0");
    EXPECT_FALSE(recap->isEmpty());
}

TEST_F(AppPopoverTest, TheRecapTakesTheThemeThatIsChosen) {
    start();
    coordinator->openRecap();
    const auto recap = qvariant_cast<RecapViewModel *>(
        windows.windows.front()->content.properties[QStringLiteral("viewModel")]);
    preferences->setSelectedTheme(Theme::dusk);
    queue.runDue();
    EXPECT_EQ(recap->palette(), ThemePalette(palette(Theme::dusk)));
}

TEST_F(AppPopoverTest, QuitsFromItsMenu) {
    start();
    click();
    popoverModel().openMenu({300.0, 40.0});
    EXPECT_TRUE(menuModel().chooseByKey(QStringLiteral("q")));
    queue.runDue();
    EXPECT_EQ(terminations, 1);
}

TEST_F(AppPopoverTest, ChecksForUpdatesWithNothingLeftOpen) {
    start();
    click();
    click({PointerButton::right, false, QRect(100, 0, 24, 24)});
    menuModel().choose(1);
    queue.runDue();
    EXPECT_EQ(updater.checks, 1);
    EXPECT_TRUE(popups.shown().empty());
}

TEST_F(AppPopoverTest, PausesAndResumesAlerts) {
    start();
    click();
    popoverModel().togglePaused();
    queue.runDue();
    EXPECT_EQ(statusBar.items.at(0)->image, u"pawprint");
    popoverModel().togglePaused();
    queue.runDue();
    EXPECT_EQ(statusBar.items.at(0)->image, u"pawprint.fill");
}

TEST_F(AppPopoverTest, ShowsTheItemsMenuOnARightClickAndNoPopover) {
    start();
    click({PointerButton::right, false, QRect(100, 0, 24, 24)});
    ASSERT_EQ(popups.shown().size(), 1U);
    EXPECT_EQ(shown("MenuView").places.back().anchor, QRect(100, 0, 24, 24));
    EXPECT_EQ(menuLines(), (std::vector<std::string>{"Preferences…", "Check for Updates…", "-",
                                                     "Quit Vantrel"}));
    menuModel().choose(3);
    queue.runDue();
    EXPECT_EQ(terminations, 1);
}

TEST_F(AppPopoverTest, ClosesTheItemsMenuForThePopover) {
    start();
    click({PointerButton::right, false, QRect(100, 0, 24, 24)});
    click();
    ASSERT_EQ(popups.shown().size(), 1U);
    EXPECT_TRUE(shown("UpcomingEventsView").isShown);
}

TEST_F(AppPopoverTest, StaysWhereItIsWhenAskedFromOutsideAndClosesItsMenu) {
    start();
    click();
    popoverModel().openMenu({300.0, 40.0});
    coordinator->takeRequest(ActivationRequest::showPopover);
    ASSERT_EQ(popups.shown().size(), 1U);
    EXPECT_EQ(shown("UpcomingEventsView").places.size(), 1U);
}

TEST_F(AppPopoverTest, ClosesThePopoverForTheItemsMenu) {
    start();
    click();
    click({PointerButton::right, false, QRect(100, 0, 24, 24)});
    ASSERT_EQ(popups.shown().size(), 1U);
    EXPECT_TRUE(shown("MenuView").isShown);
}

TEST_F(AppPopoverTest, ClosesEverythingWhenStopped) {
    start();
    click();
    popoverModel().openMenu({300.0, 40.0});
    coordinator->stop();
    EXPECT_FALSE(popups.popups.at(0)->isShown);
    EXPECT_FALSE(popups.popups.at(1)->isShown);
    EXPECT_EQ(queue.pendingCount(), 0U);
}

TEST_F(AppPopoverTest, LeavesNoHandlerBehindAtItsEnd) {
    start();
    coordinator.reset();
    EXPECT_FALSE(UpcomingMenuTarget::shared().openPreferencesHandler);
    EXPECT_FALSE(UpcomingMenuTarget::shared().previewTakeoverHandler);
    EXPECT_FALSE(UpcomingMenuTarget::shared().openRecapHandler);
    EXPECT_FALSE(UpcomingMenuTarget::shared().quitHandler);
}

} // namespace
} // namespace vantrel
