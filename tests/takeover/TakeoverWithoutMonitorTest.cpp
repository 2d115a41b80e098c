#include "WindowControllerFixture.h"

namespace vantrel {
namespace {

/// A takeover that falls due while no monitor is there: the lid is shut, the dock pulled out.
class TakeoverWithoutMonitorTest : public WindowControllerFixture {
protected:
    void connectOne() { connect({screen("left", 0)}); }

    /// Monitors that are listed but gone by the time a panel is made for them.
    void connectOneThatGoesAtOnce() {
        panels.lostScreenIds = {QStringLiteral("left"), QStringLiteral("right")};
        screens.connected = {screen("left", 0), screen("right", 1920)};
    }
};

TEST_F(TakeoverWithoutMonitorTest, ShowsNothingAndRunsNoCallback) {
    show(Seconds{10});
    EXPECT_TRUE(panels.panels.empty());
    EXPECT_FALSE(panels.isMonitored());
    EXPECT_EQ(queue.pendingCount(), 0U);
    queue.advance(Seconds{60});
    EXPECT_EQ(answers, nothing);
}

TEST_F(TakeoverWithoutMonitorTest, ComesUpWithTheNextMonitor) {
    show(Seconds{100});
    queue.advance(Seconds{30});
    connectOne();
    EXPECT_EQ(interactive(), Ids{QStringLiteral("left")});
    queue.advance(fadeIn);
    EXPECT_EQ(interactivePanel(panels)->opacity, 1.0);
    press(Key::space);
    EXPECT_EQ(answers, std::vector<std::string>{"join"});
}

TEST_F(TakeoverWithoutMonitorTest, CountsTheAutoCloseFromWhenItIsSeen) {
    show(Seconds{100});
    queue.advance(Seconds{30});
    connectOne();
    queue.advance(Seconds{99});
    EXPECT_TRUE(isShown());
    queue.advance(Seconds{1} + fadeOut);
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverWithoutMonitorTest, ComesUpOnceHoweverManyMonitorsFollow) {
    show();
    connectOne();
    press(Key::escape);
    queue.advance(fadeOut);
    connect({screen("left", 0), screen("right", 1920)});
    connect({});
    connectOne();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
}

TEST_F(TakeoverWithoutMonitorTest, WaitsThroughChangesThatBringNoMonitor) {
    show();
    connect({});
    connectOne();
    EXPECT_TRUE(isShown());
}

TEST_F(TakeoverWithoutMonitorTest, ShowsTheOneThatWasAskedForLast) {
    show(context(QStringLiteral("First")));
    show(context(QStringLiteral("Second")));
    connectOne();
    EXPECT_EQ(shownTitles(panels), Ids{QStringLiteral("Second")});
    EXPECT_EQ(panels.panels.size(), 1U);
}

TEST_F(TakeoverWithoutMonitorTest, DoesNotKeepTheNextTakeoverFromAMonitorThatCameUnannounced) {
    show(context(QStringLiteral("First")));
    screens.connected = {screen("left", 0)};
    show(context(QStringLiteral("Second")));
    EXPECT_EQ(shownTitles(panels), Ids{QStringLiteral("Second")});
    press(Key::escape);
    queue.advance(fadeOut);
    connectOne();
    EXPECT_FALSE(isShown()) << "the first one came after all";
}

TEST_F(TakeoverWithoutMonitorTest, StaysAwayOnceItsMeetingIsOver) {
    show();
    queue.jumpWallTo(queue.now() + Seconds{1860});
    connectOne();
    EXPECT_FALSE(isShown());
    queue.jumpWallTo(queue.now() - Seconds{1860});
    connectOne();
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverWithoutMonitorTest, ComesUpJustBeforeTheEndOfItsMeeting) {
    show();
    queue.jumpWallTo(queue.now() + Seconds{1859});
    connectOne();
    EXPECT_TRUE(isShown());
}

TEST_F(TakeoverWithoutMonitorTest, StaysAwayOnceTheAutoCloseWouldHaveEndedIt) {
    show(Seconds{900});
    queue.jumpWallTo(queue.now() + Seconds{900});
    connectOne();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(answers, nothing);
}

TEST_F(TakeoverWithoutMonitorTest, HasNoEndBeforeItsMeetingsWithAnAutoCloseOfNought) {
    show(Seconds{0});
    queue.jumpWallTo(queue.now() + Seconds{1800});
    connectOne();
    EXPECT_TRUE(isShown());
}

TEST_F(TakeoverWithoutMonitorTest, IsForgottenWhenEverythingIsHidden) {
    show();
    controller->hide();
    connectOne();
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverWithoutMonitorTest, GoesWithItsController) {
    show();
    controller.reset();
    connectOne();
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverWithoutMonitorTest, WaitsWhenTheMonitorsGoAsItsPanelsAreMade) {
    connectOneThatGoesAtOnce();
    show(Seconds{10});
    EXPECT_TRUE(panels.panels.empty());
    EXPECT_FALSE(panels.isMonitored());
    queue.advance(Seconds{5});
    EXPECT_EQ(answers, nothing);
    panels.lostScreenIds.clear();
    connectOne();
    EXPECT_EQ(interactive(), Ids{QStringLiteral("left")});
    press(Key::escape);
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
}

TEST_F(TakeoverWithoutMonitorTest, LeavesTheWayFreeWhenNoPanelCouldBeMade) {
    connectOneThatGoesAtOnce();
    show(context(QStringLiteral("First")));
    panels.lostScreenIds.clear();
    show(context(QStringLiteral("Second")));
    EXPECT_EQ(shownTitles(panels), Ids{QStringLiteral("Second")});
    EXPECT_EQ(echoes(), Ids{QStringLiteral("right")});
}

} // namespace
} // namespace vantrel
