#include "WindowControllerFixture.h"

#include <optional>
#include <utility>

namespace vantrel {
namespace {

class TakeoverWindowControllerTest : public WindowControllerFixture {};

// Which monitor shows what

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

// One at a time

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

// Answers

struct KeyRow {
    const char *name;
    Key key;
    const char *characters;
    const char *answer; ///< Null when the key passes through.
};

class TakeoverKeyTest : public WindowControllerFixture,
                        public testing::WithParamInterface<KeyRow> {};

TEST_P(TakeoverKeyTest, AnswersOrPassesThrough) {
    connectOneScreen();
    show();
    const char *answer = GetParam().answer;
    EXPECT_EQ(press(GetParam().key, GetParam().characters), answer != nullptr);
    EXPECT_EQ(answers, answer ? std::vector<std::string>{answer} : nothing);
}

INSTANTIATE_TEST_SUITE_P(Keys, TakeoverKeyTest,
                         testing::Values(KeyRow{"Escape", Key::escape, "\x1b", "dismiss"},
                                         KeyRow{"EscapeWithoutCharacters", Key::escape, "",
                                                "dismiss"},
                                         KeyRow{"Space", Key::space, " ", "join"},
                                         KeyRow{"Return", Key::enter, "\r", "join"},
                                         KeyRow{"S", Key::other, "s", "snooze"},
                                         KeyRow{"ShiftS", Key::other, "S", "snooze"},
                                         KeyRow{"OtherLetter", Key::other, "a", nullptr},
                                         KeyRow{"TwoLetters", Key::other, "ss", nullptr},
                                         KeyRow{"NoCharacters", Key::other, "", nullptr}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(TakeoverWindowControllerTest, HearsNoKeysBeforeAndAfterATakeover) {
    connectOneScreen();
    EXPECT_FALSE(press(Key::escape));
    show();
    EXPECT_TRUE(panels.isMonitored());
    press(Key::escape);
    EXPECT_FALSE(panels.isMonitored());
    EXPECT_FALSE(press(Key::escape));
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
}

TEST_F(TakeoverWindowControllerTest, HearsTheButtonsLikeTheKeys) {
    connectOneScreen();
    show();
    shownViewModel(panels)->snooze();
    queue.advance(fadeOut);
    show();
    shownViewModel(panels)->dismiss();
    queue.advance(fadeOut);
    show();
    shownViewModel(panels)->join();
    queue.advance(Seconds{2});
    EXPECT_EQ(answers, (std::vector<std::string>{"snooze", "dismiss", "join"}));
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverWindowControllerTest, JoinsOnceWhenJoinIsPressedTwice) {
    connectOneScreen();
    show();
    press(Key::space);
    EXPECT_TRUE(press(Key::enter));
    shownViewModel(panels)->join();
    EXPECT_EQ(answers, std::vector<std::string>{"join"});
}

TEST_F(TakeoverWindowControllerTest, DisappearsOneAndAHalfSecondsAfterAJoin) {
    connectOneScreen();
    show();
    queue.advance(Seconds{20});
    press(Key::space);
    EXPECT_TRUE(shownViewModel(panels)->isJoined());
    queue.advance(Seconds{1.499});
    EXPECT_EQ(panels.shown().front()->opacity, 1.0);
    EXPECT_TRUE(panels.isMonitored());
    queue.advance(Seconds{0.001});
    EXPECT_FALSE(panels.isMonitored());
    queue.advance(fadeOut);
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverWindowControllerTest, DoesNotPutOffTheEndWhenJoinIsPressedAgain) {
    connectOneScreen();
    show();
    press(Key::space);
    queue.advance(Seconds{1});
    press(Key::space);
    queue.advance(Seconds{0.5} + fadeOut);
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverWindowControllerTest, ConsumesButIgnoresTheOtherAnswersAfterAJoin) {
    connectOneScreen();
    show();
    press(Key::space);
    EXPECT_TRUE(press(Key::escape));
    EXPECT_TRUE(press(Key::other, "s"));
    queue.advance(Seconds{1.4});
    EXPECT_TRUE(isShown());
    queue.advance(Seconds{0.1} + fadeOut);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(answers, std::vector<std::string>{"join"});
}

TEST_F(TakeoverWindowControllerTest, CountsADoubleClickOnDismissOnce) {
    connectOneScreen();
    show();
    queue.advance(fadeIn);
    TakeoverViewModel *viewModel = shownViewModel(panels);
    viewModel->dismiss();
    queue.advance(fadeOut / 2);
    viewModel->dismiss();
    viewModel->join();
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
}

TEST_F(TakeoverWindowControllerTest, KeepsClicksOnAFadingTakeoverFromTheOneBehindIt) {
    connectOneScreen();
    show();
    queue.advance(fadeIn);
    TakeoverViewModel *fading = shownViewModel(panels);
    press(Key::escape);
    show();
    fading->dismiss();
    fading->snooze();
    fading->join();
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
    queue.advance(Seconds{10});
    EXPECT_EQ(interactive().size(), 1U);
}

// Auto-close

TEST_F(TakeoverWindowControllerTest, DismissesATakeoverThatNobodyAnswers) {
    connectOneScreen();
    show(Seconds{900});
    queue.advance(Seconds{899.999});
    EXPECT_EQ(answers, nothing);
    queue.advance(Seconds{0.001});
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
    queue.advance(fadeOut);
    EXPECT_FALSE(isShown());
}

class WithoutAutoCloseTest : public WindowControllerFixture,
                             public testing::WithParamInterface<std::optional<double>> {};

TEST_P(WithoutAutoCloseTest, StaysUntilItIsAnswered) {
    connectOneScreen();
    show(GetParam() ? std::optional(Seconds{*GetParam()}) : std::nullopt);
    queue.advance(Seconds{86400.0});
    EXPECT_TRUE(isShown());
    EXPECT_EQ(answers, nothing);
}

INSTANTIATE_TEST_SUITE_P(Intervals, WithoutAutoCloseTest,
                         testing::Values(std::nullopt, std::optional(0.0), std::optional(-1.0)));

TEST_F(TakeoverWindowControllerTest, DropsTheAutoCloseOnceItIsAnswered) {
    connectOneScreen();
    show(Seconds{10});
    press(Key::other, "s");
    show();
    queue.advance(Seconds{60});
    EXPECT_TRUE(isShown());
    EXPECT_EQ(answers, std::vector<std::string>{"snooze"});
}

TEST_F(TakeoverWindowControllerTest, DropsTheAutoCloseOnAJoin) {
    connectOneScreen();
    show(Seconds{1});
    queue.advance(Seconds{0.5});
    press(Key::space);
    queue.advance(Seconds{1.4});
    EXPECT_TRUE(isShown());
    queue.advance(Seconds{10});
    EXPECT_EQ(answers, std::vector<std::string>{"join"});
}

// Hiding

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

// Fading

TEST_F(TakeoverWindowControllerTest, FadesAllPanelsInWithinTheGivenTime) {
    connectThreeScreens();
    show();
    double last = 0.0;
    for (const auto &panel : panels.shown())
        EXPECT_EQ(panel->opacity, 0.0);
    for (int step = 0; step < 17; ++step) {
        queue.advance(Seconds{0.01});
        const double opacity = panels.shown().front()->opacity;
        EXPECT_GE(opacity, last);
        EXPECT_LT(opacity, 1.0);
        last = opacity;
        for (const auto &panel : panels.shown())
            EXPECT_EQ(panel->opacity, opacity);
    }
    EXPECT_GT(last, 0.5);
    queue.advance(Seconds{0.0101});
    for (const auto &panel : panels.shown())
        EXPECT_EQ(panel->opacity, 1.0);
}

TEST_F(TakeoverWindowControllerTest, FadesAllPanelsOutAndOrdersThemOut) {
    connectThreeScreens();
    show();
    queue.advance(fadeIn);
    const auto fading = panels.shown();
    press(Key::escape);
    EXPECT_EQ(fading.front()->opacity, 1.0);
    double last = 1.0;
    for (int step = 0; step < 13; ++step) {
        queue.advance(Seconds{0.01});
        for (const auto &panel : fading) {
            EXPECT_TRUE(panel->isInFront);
            EXPECT_LE(panel->opacity, last);
            EXPECT_GT(panel->opacity, 0.0);
        }
        last = fading.front()->opacity;
    }
    EXPECT_LT(last, 0.5);
    queue.advance(Seconds{0.0101});
    for (const auto &panel : fading) {
        EXPECT_FALSE(panel->isInFront);
        EXPECT_FALSE(panel->exists);
        EXPECT_EQ(panel->opacity, 0.0);
    }
}

TEST_F(TakeoverWindowControllerTest, FadesOutFromWhereTheFadeInHadCome) {
    connectOneScreen();
    show();
    queue.advance(fadeIn / 2);
    const auto panel = panels.shown().front();
    const double reached = panel->opacity;
    press(Key::escape);
    queue.advance(Seconds{0.02});
    EXPECT_LE(panel->opacity, reached);
    queue.advance(fadeOut);
    EXPECT_EQ(panel->opacity, 0.0);
    EXPECT_EQ(queue.pendingCount(), 0U);
}

// A controller that goes

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
