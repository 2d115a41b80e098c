#include "WindowControllerFixture.h"

#include <utility>

namespace vantrel {
namespace {

/// Where a takeover is shown, and how it ends.
class TakeoverWindowControllerTest : public WindowControllerFixture {};

TEST_F(TakeoverWindowControllerTest, ShowsTheViewWhereThePointerIsAndEchoesElsewhere) {
    connectThreeScreens();
    show();
    EXPECT_EQ(interactive(), Ids{QStringLiteral("middle")});
    EXPECT_EQ(echoes(), (Ids{QStringLiteral("left"), QStringLiteral("right")}));
}

TEST_F(TakeoverWindowControllerTest, CoversEachMonitorWithItsOwnFrame) {
    connectThreeScreens();
    show();
    std::vector<Screen> covered;
    for (const auto &panel : panels.shown())
        covered.push_back(panel->screen);
    EXPECT_EQ(covered,
              (std::vector{screen("middle", 1920), screen("left", 0), screen("right", 3840)}));
}

TEST_F(TakeoverWindowControllerTest, BringsTheInteractivePanelToTheFrontFirst) {
    connectThreeScreens();
    show();
    EXPECT_EQ(panels.orderedFront,
              (Ids{QStringLiteral("middle"), QStringLiteral("left"), QStringLiteral("right")}));
}

TEST_F(TakeoverWindowControllerTest, TakesTheMainMonitorWhenThePointerIsNowhere) {
    connectThreeScreens();
    screens.mainScreenId = QStringLiteral("right");
    screens.mouse = QPoint(-100, 500);
    show();
    EXPECT_EQ(interactive(), Ids{QStringLiteral("right")});
}

TEST_F(TakeoverWindowControllerTest, TakesTheMainMonitorWhenTheDesktopDoesNotTellThePointer) {
    connectThreeScreens();
    screens.mainScreenId = QStringLiteral("right");
    screens.mouse.reset();
    show();
    EXPECT_EQ(interactive(), Ids{QStringLiteral("right")});
}

TEST_F(TakeoverWindowControllerTest, TakesTheFirstMonitorWhenNoneIsTheMainOne) {
    connectThreeScreens();
    screens.mainScreenId.reset();
    screens.mouse.reset();
    show();
    EXPECT_EQ(interactive(), Ids{QStringLiteral("left")});
    EXPECT_EQ(echoes(), (Ids{QStringLiteral("middle"), QStringLiteral("right")}));
}

TEST_F(TakeoverWindowControllerTest, CountsAMonitorsEdgePixelsToIt) {
    connectThreeScreens();
    screens.mouse = QPoint(1919, 1079);
    EXPECT_EQ(screenWithMouse(screens), screen("left", 0));
    screens.mouse = QPoint(1920, 0);
    EXPECT_EQ(screenWithMouse(screens), screen("middle", 1920));
    screens.mouse = QPoint(1920, 1080);
    EXPECT_EQ(screenWithMouse(screens), std::nullopt);
}

TEST_F(TakeoverWindowControllerTest, GoesOnToAnotherMonitorWhenThePointersOneHasJustGone) {
    connectThreeScreens();
    panels.lostScreenIds = {QStringLiteral("middle")};
    show();
    EXPECT_EQ(interactive(), Ids{QStringLiteral("left")});
    EXPECT_EQ(echoes(), Ids{QStringLiteral("right")});
}

TEST_F(TakeoverWindowControllerTest, ShowsTheTitleInTheEcho) {
    connectThreeScreens();
    show(context(QStringLiteral("Retro")));
    QStringList echoed;
    for (const auto &panel : panels.shown()) {
        if (panel->role == PanelRole::echo)
            echoed += panel->content.properties.value(QStringLiteral("title")).toString();
    }
    EXPECT_EQ(echoed, QStringList({QStringLiteral("Retro"), QStringLiteral("Retro")}));
    EXPECT_EQ(shownTitles(panels), Ids{QStringLiteral("Retro")});
}

TEST_F(TakeoverWindowControllerTest, IgnoresASecondTakeoverWhileOneIsUp) {
    connectOneScreen();
    show(context(QStringLiteral("First")));
    controller->show(context(QStringLiteral("Second")), palette(Theme::hearth), Seconds{5},
                     write("second join"), write("second snooze"), write("second dismiss"));
    EXPECT_EQ(shownTitles(panels), Ids{QStringLiteral("First")});
    EXPECT_EQ(panels.panels.size(), 1U);
    queue.advance(Seconds{60});
    EXPECT_EQ(answers, nothing);
    press(Key::escape);
    queue.advance(Seconds{60});
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
}

TEST_F(TakeoverWindowControllerTest, ShowsAnotherTakeoverWhileTheLastOneIsStillFadingOut) {
    connectOneScreen();
    show(context(QStringLiteral("First")));
    queue.advance(fadeIn);
    press(Key::escape);
    queue.advance(fadeOut / 2);
    show(context(QStringLiteral("Second")));
    queue.advance(fadeIn);
    EXPECT_EQ(shownTitles(panels), Ids{QStringLiteral("Second")});
    EXPECT_EQ(panels.shown().front()->opacity, 1.0);
    EXPECT_TRUE(panels.isMonitored());
}

TEST_F(TakeoverWindowControllerTest, StartsTheNextTakeoverUrgentAfterOneThatWasJoined) {
    connectOneScreen();
    show();
    press(Key::space);
    EXPECT_TRUE(shownViewModel(panels)->isJoined());
    controller->hide();
    show();
    EXPECT_FALSE(shownViewModel(panels)->isJoined());
    press(Key::space);
    EXPECT_EQ(answers, (std::vector<std::string>{"join", "join"}));
}

TEST_F(TakeoverWindowControllerTest, HidesWithoutACallback) {
    connectThreeScreens();
    show(Seconds{10});
    controller->hide();
    EXPECT_FALSE(panels.isMonitored());
    queue.advance(Seconds{60});
    EXPECT_FALSE(isShown());
    EXPECT_EQ(answers, nothing);
    EXPECT_EQ(queue.pendingCount(), 0U);
}

TEST_F(TakeoverWindowControllerTest, HidesHarmlesslyWhenNothingIsUpAndTwice) {
    connectOneScreen();
    controller->hide();
    show();
    controller->hide();
    controller->hide();
    queue.advance(Seconds{1});
    controller->hide();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(panels.panels.size(), 1U);
}

TEST_F(TakeoverWindowControllerTest, KeepsTheHideOfAnEarlierJoinFromTheNextTakeover) {
    connectOneScreen();
    show();
    press(Key::space);
    controller->hide();
    show();
    queue.advance(Seconds{10});
    EXPECT_TRUE(isShown());
}

TEST_F(TakeoverWindowControllerTest, ArmsNoHideWhenTheJoinItselfEndedTheTakeover) {
    connectOneScreen();
    controller->show(
        context(), palette(Theme::hearth), std::nullopt, [this] { controller->hide(); },
        write("snooze"), write("dismiss"));
    press(Key::space);
    show();
    EXPECT_FALSE(shownViewModel(panels)->isJoined());
    queue.advance(Seconds{10});
    EXPECT_EQ(interactive().size(), 1U);
}

TEST_F(TakeoverWindowControllerTest, TakesItsPanelsAlongWhenItGoes) {
    connectThreeScreens();
    show(Seconds{10});
    controller.reset();
    EXPECT_FALSE(isShown());
    EXPECT_FALSE(panels.isMonitored());
    connect({screen("left", 0)});
    queue.advance(Seconds{60});
    EXPECT_EQ(answers, nothing);
    EXPECT_EQ(queue.pendingCount(), 0U);
}

TEST_F(TakeoverWindowControllerTest, TakesAlongWhatIsStillFadingOut) {
    connectOneScreen();
    show();
    press(Key::escape);
    queue.advance(fadeOut / 2);
    controller.reset();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(queue.pendingCount(), 0U);
}

/// A desktop that is slow to forget a key handler.
class LingeringPanels : public fakes::RecordingPanels {
public:
    KeyHandler lingering;

    Subscription monitorKeyDown(KeyHandler handler) override {
        lingering = handler;
        return RecordingPanels::monitorKeyDown(std::move(handler));
    }
};

TEST_F(TakeoverWindowControllerTest, IgnoresAnswersThatArriveAfterItIsGone) {
    connectOneScreen();
    LingeringPanels lingering;
    controller = std::make_unique<TakeoverWindowController>(queue, screens, lingering);
    show();
    controller.reset();
    EXPECT_TRUE(lingering.lingering(pressOf(Key::space)));
    EXPECT_TRUE(lingering.lingering(pressOf(Key::escape)));
    EXPECT_TRUE(lingering.lingering(pressOf(Key::other, "s")));
    EXPECT_EQ(answers, nothing);
}

class CallbackThatEndsTheControllerTest : public WindowControllerFixture,
                                          public testing::WithParamInterface<Key> {};

TEST_P(CallbackThatEndsTheControllerTest, IsSurvived) {
    connectOneScreen();
    const auto end = [this] {
        controller.reset();
        answers.emplace_back("end");
    };
    controller->show(context(), palette(Theme::hearth), Seconds{5}, end, end, end);
    press(GetParam(), GetParam() == Key::other ? "s" : "");
    EXPECT_EQ(answers, std::vector<std::string>{"end"});
    EXPECT_FALSE(isShown());
    queue.advance(Seconds{60});
    EXPECT_EQ(answers.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Keys, CallbackThatEndsTheControllerTest,
                         testing::Values(Key::space, Key::escape, Key::other));

} // namespace
} // namespace vantrel
