#include "WindowControllerFixture.h"

#include <algorithm>

namespace vantrel {
namespace {

/// Monitors that come and go while a takeover is up.
class TakeoverScreenChangeTest : public WindowControllerFixture {
protected:
    const QString left = QStringLiteral("left");
    const QString middle = QStringLiteral("middle");
    const QString right = QStringLiteral("right");
};

TEST_F(TakeoverScreenChangeTest, CoversAMonitorThatComes) {
    connectOneScreen();
    show();
    queue.advance(fadeIn);
    connect({screen("left", 0), screen("right", 1920)});
    EXPECT_EQ(interactive(), Ids{left});
    EXPECT_EQ(echoes(), Ids{right});
    EXPECT_EQ(panels.shown().back()->opacity, 1.0);
    EXPECT_EQ(panels.panels.size(), 2U);
}

TEST_F(TakeoverScreenChangeTest, LetsAMonitorThatComesDuringTheFadeJoinIn) {
    connectOneScreen();
    show();
    queue.advance(fadeIn / 2);
    connect({screen("left", 0), screen("right", 1920)});
    EXPECT_EQ(panels.shown().front()->opacity, panels.shown().back()->opacity);
    EXPECT_LT(panels.shown().back()->opacity, 1.0);
    queue.advance(fadeIn / 2);
    EXPECT_EQ(panels.shown().back()->opacity, 1.0);
}

TEST_F(TakeoverScreenChangeTest, DropsTheEchoOfAMonitorThatGoesAndTouchesNoOtherPanel) {
    connectThreeScreens();
    show();
    connect({screen("left", 0), screen("middle", 1920)});
    EXPECT_EQ(interactive(), Ids{middle});
    EXPECT_EQ(echoes(), Ids{left});
    EXPECT_EQ(panels.panels.size(), 3U);
}

TEST_F(TakeoverScreenChangeTest, MovesTheViewToTheMonitorUnderThePointerWhenItsOwnGoes) {
    connectThreeScreens();
    show();
    queue.advance(fadeIn);
    screens.mouse = QPoint(4000, 500);
    connect({screen("left", 0), screen("right", 3840)});
    EXPECT_EQ(interactive(), Ids{right});
    EXPECT_EQ(echoes(), Ids{left});
    EXPECT_EQ(interactivePanel(panels)->opacity, 1.0);
}

TEST_F(TakeoverScreenChangeTest, MovesTheViewToTheMainMonitorWhenThePointerIsLost) {
    connectThreeScreens();
    screens.mainScreenId = right;
    show();
    screens.mouse.reset();
    connect({screen("left", 0), screen("right", 3840)});
    EXPECT_EQ(interactive(), Ids{right});
    EXPECT_EQ(echoes(), Ids{left});
}

TEST_F(TakeoverScreenChangeTest, KeepsTheViewModelAndThePhaseWhenTheViewMoves) {
    connectThreeScreens();
    show();
    TakeoverViewModel *before = shownViewModel(panels);
    press(Key::space);
    queue.advance(Seconds{1});
    connect({screen("left", 0), screen("right", 3840)});
    EXPECT_EQ(shownViewModel(panels), before);
    EXPECT_TRUE(before->isJoined());
    press(Key::space);
    EXPECT_EQ(answers, std::vector<std::string>{"join"});
    queue.advance(Seconds{0.5} + fadeOut);
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverScreenChangeTest, StillHearsTheKeysAfterTheViewMoved) {
    connectThreeScreens();
    show();
    connect({screen("left", 0)});
    EXPECT_EQ(answers, nothing);
    EXPECT_TRUE(press(Key::escape));
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
    queue.advance(fadeOut);
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverScreenChangeTest, LeavesTheViewWhereItIsWhenThePointerHasWandered) {
    connectThreeScreens();
    show();
    screens.mouse = QPoint(10, 10);
    connect({screen("left", 0), screen("middle", 1920)});
    EXPECT_EQ(interactive(), Ids{middle});
}

TEST_F(TakeoverScreenChangeTest, FitsThePanelToAMonitorThatChangedItsSize) {
    connectThreeScreens();
    show();
    screens.mouse = QPoint(10, 10);
    connect({screen("left", 0), screen("middle", 1920, 1280, 720), screen("right", 3200)});
    EXPECT_EQ(interactive(), Ids{middle});
    EXPECT_EQ(interactivePanel(panels)->screen, screen("middle", 1920, 1280, 720));
    EXPECT_EQ(echoes(), (Ids{left, right}));
    EXPECT_EQ(panels.shown().size(), 3U);
    for (const auto &panel : panels.shown()) {
        const auto found =
            std::find(screens.connected.begin(), screens.connected.end(), panel->screen);
        EXPECT_NE(found, screens.connected.end()) << panel->screen.id.toStdString();
    }
}

TEST_F(TakeoverScreenChangeTest, HoldsTheKeyboardWithoutAGapWhenTheViewMoves) {
    connectThreeScreens();
    show();
    const auto before = interactivePanel(panels);
    Ids inFrontWhileMade;
    panels.whenMade = [&](const fakes::RecordingPanels::Record &) {
        inFrontWhileMade = interactive();
    };
    connect({screen("left", 0)});
    EXPECT_EQ(inFrontWhileMade, Ids{middle});
    EXPECT_EQ(interactive(), Ids{left});
    EXPECT_FALSE(before->exists);
}

TEST_F(TakeoverScreenChangeTest, KeepsTheViewAboveTheEchoOfAMirroredMonitor) {
    screens.connected = {screen("left", 0), screen("projector", 0, 1280, 720)};
    screens.mouse = QPoint(10, 10);
    show();
    EXPECT_EQ(interactive(), Ids{left});
    EXPECT_EQ(panels.orderedFront.back(), left);
    connect({screen("left", 0), screen("projector", 1920, 1280, 720)});
    EXPECT_EQ(panels.orderedFront.back(), QStringLiteral("projector"));
}

TEST_F(TakeoverScreenChangeTest, MakesNoSecondPanelWhenNothingChanged) {
    connectThreeScreens();
    show();
    screens.changed.announce();
    screens.changed.announce();
    EXPECT_EQ(panels.panels.size(), 3U);
    EXPECT_EQ(panels.shown().size(), 3U);
}

TEST_F(TakeoverScreenChangeTest, WaitsForTheNextMonitorWhenAllAreGone) {
    connectThreeScreens();
    show();
    queue.advance(fadeIn);
    TakeoverViewModel *before = shownViewModel(panels);
    connect({});
    EXPECT_FALSE(isShown());
    queue.advance(Seconds{5});
    connect({screen("left", 0), screen("middle", 1920)});
    EXPECT_EQ(interactive(), Ids{middle});
    EXPECT_EQ(echoes(), Ids{left});
    EXPECT_EQ(shownViewModel(panels), before);
    EXPECT_EQ(interactivePanel(panels)->opacity, 1.0);
    EXPECT_EQ(answers, nothing);
    press(Key::space);
    EXPECT_EQ(answers, std::vector<std::string>{"join"});
}

TEST_F(TakeoverScreenChangeTest, IgnoresASecondTakeoverWhileTheFirstWaitsForAMonitor) {
    connectOneScreen();
    show(context(QStringLiteral("First")));
    connect({});
    show(context(QStringLiteral("Second")));
    connect({screen("left", 0)});
    EXPECT_EQ(shownTitles(panels), Ids{QStringLiteral("First")});
}

TEST_F(TakeoverScreenChangeTest, AutoClosesATakeoverThatWaitsForAMonitor) {
    connectOneScreen();
    show(Seconds{10});
    connect({});
    queue.advance(Seconds{10});
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
    connect({screen("left", 0)});
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverScreenChangeTest, EndsAJoinedTakeoverThatWaitsForAMonitor) {
    connectOneScreen();
    show();
    press(Key::space);
    connect({});
    queue.advance(Seconds{2});
    connect({screen("left", 0)});
    EXPECT_FALSE(isShown());
    show();
    EXPECT_TRUE(isShown());
}

TEST_F(TakeoverScreenChangeTest, CanBeHiddenWhileItWaitsForAMonitor) {
    connectOneScreen();
    show();
    connect({});
    controller->hide();
    connect({screen("left", 0)});
    EXPECT_FALSE(isShown());
    queue.advance(Seconds{1});
    EXPECT_EQ(queue.pendingCount(), 0U);
}

TEST_F(TakeoverScreenChangeTest, MakesNoPanelsForATakeoverThatIsFadingOut) {
    connectOneScreen();
    show();
    queue.advance(fadeIn);
    press(Key::escape);
    connect({screen("left", 0), screen("right", 1920)});
    EXPECT_EQ(panels.panels.size(), 1U);
    queue.advance(fadeOut);
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverScreenChangeTest, RunsNoCallbackThroughoutAMonitorsComingsAndGoings) {
    connectThreeScreens();
    show();
    connect({screen("middle", 1920)});
    connect({screen("left", 0)});
    connect({});
    connect({screen("right", 3840), screen("left", 0)});
    connect({screen("right", 0), screen("left", 1920)});
    EXPECT_EQ(answers, nothing);
    EXPECT_EQ(panels.shown().size(), 2U);
    EXPECT_EQ(interactive().size(), 1U);
}

} // namespace
} // namespace vantrel
