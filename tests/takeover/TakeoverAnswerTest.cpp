#include "WindowControllerFixture.h"

#include <optional>
#include <ostream>

namespace vantrel {
namespace {

/// What the user answers, or nobody does.
class TakeoverAnswerTest : public WindowControllerFixture {};

struct KeyRow {
    const char *name;
    Key key;
    const char *characters;
    const char *answer; ///< Null when the key passes through.
};

void PrintTo(const KeyRow &row, std::ostream *out) {
    *out << row.name;
}

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

TEST_F(TakeoverAnswerTest, HearsNoKeysBeforeAndAfterATakeover) {
    connectOneScreen();
    EXPECT_FALSE(press(Key::escape));
    show();
    EXPECT_TRUE(panels.isMonitored());
    press(Key::escape);
    EXPECT_FALSE(panels.isMonitored());
    EXPECT_FALSE(press(Key::escape));
    EXPECT_EQ(answers, std::vector<std::string>{"dismiss"});
}

TEST_F(TakeoverAnswerTest, HearsTheButtonsLikeTheKeys) {
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

TEST_F(TakeoverAnswerTest, JoinsOnceWhenJoinIsPressedTwice) {
    connectOneScreen();
    show();
    press(Key::space);
    EXPECT_TRUE(press(Key::enter));
    shownViewModel(panels)->join();
    EXPECT_EQ(answers, std::vector<std::string>{"join"});
}

TEST_F(TakeoverAnswerTest, DisappearsOneAndAHalfSecondsAfterAJoin) {
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

TEST_F(TakeoverAnswerTest, DoesNotPutOffTheEndWhenJoinIsPressedAgain) {
    connectOneScreen();
    show();
    press(Key::space);
    queue.advance(Seconds{1});
    press(Key::space);
    queue.advance(Seconds{0.5} + fadeOut);
    EXPECT_FALSE(isShown());
}

TEST_F(TakeoverAnswerTest, ConsumesButIgnoresTheOtherAnswersAfterAJoin) {
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

TEST_F(TakeoverAnswerTest, CountsADoubleClickOnDismissOnce) {
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

TEST_F(TakeoverAnswerTest, KeepsClicksOnAFadingTakeoverFromTheOneBehindIt) {
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

TEST_F(TakeoverAnswerTest, DismissesATakeoverThatNobodyAnswers) {
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

TEST_F(TakeoverAnswerTest, DropsTheAutoCloseOnceItIsAnswered) {
    connectOneScreen();
    show(Seconds{10});
    press(Key::other, "s");
    show();
    queue.advance(Seconds{60});
    EXPECT_TRUE(isShown());
    EXPECT_EQ(answers, std::vector<std::string>{"snooze"});
}

TEST_F(TakeoverAnswerTest, DropsTheAutoCloseOnAJoin) {
    connectOneScreen();
    show(Seconds{1});
    queue.advance(Seconds{0.5});
    press(Key::space);
    queue.advance(Seconds{1.4});
    EXPECT_TRUE(isShown());
    queue.advance(Seconds{10});
    EXPECT_EQ(answers, std::vector<std::string>{"join"});
}

} // namespace
} // namespace vantrel
