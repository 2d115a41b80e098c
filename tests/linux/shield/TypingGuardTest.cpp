#include <linux/shield/TypingGuard.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

constexpr MonotonicInstant shown{Seconds{1000}};

MonotonicInstant after(double seconds) {
    return shown + Seconds{seconds};
}

TEST(TypingGuardTest, LetsEverythingThroughFromAUserWhoWasNotBusy) {
    TypingGuard guard;
    guard.begin(shown, Seconds{0.5});
    EXPECT_FALSE(guard.takesKey(shown));
    EXPECT_FALSE(guard.takesClick(shown));
}

TEST(TypingGuardTest, LetsEverythingThroughBeforeItBegan) {
    TypingGuard guard;
    EXPECT_FALSE(guard.takesKey(shown));
    EXPECT_FALSE(guard.takesClick(shown));
}

TEST(TypingGuardTest, TakesWhatABusyUserPressesBeforeThePanelCanHaveBeenSeen) {
    TypingGuard guard;
    guard.begin(shown, Seconds{0.499});
    EXPECT_TRUE(guard.takesClick(after(0.399)));
    EXPECT_FALSE(guard.takesClick(after(0.4)));
    EXPECT_TRUE(guard.takesKey(after(0)));
    EXPECT_FALSE(guard.takesKey(after(0.4)));
    EXPECT_FALSE(guard.takesKey(after(0.41)));
}

TEST(TypingGuardTest, TakesTheKeysOfATextUntilAPauseInTheTyping) {
    TypingGuard guard;
    guard.begin(shown, Seconds{0.1});
    for (const double moment : {0.2, 0.45, 0.8, 1.1})
        EXPECT_TRUE(guard.takesKey(after(moment))) << moment;
    EXPECT_FALSE(guard.takesKey(after(1.5)));
    EXPECT_FALSE(guard.takesKey(after(1.6)));
    EXPECT_FALSE(guard.takesClick(after(0.5)));
}

TEST(TypingGuardTest, GivesInAfterTwoSecondsHoweverTheKeysKeepComing) {
    TypingGuard guard;
    guard.begin(shown, Seconds{0});
    for (double moment = 0.1; moment < 1.95; moment += 0.1)
        EXPECT_TRUE(guard.takesKey(after(moment))) << moment;
    EXPECT_FALSE(guard.takesKey(after(2.0)));
}

TEST(TypingGuardTest, BeginsAnewWithTheNextPanel) {
    TypingGuard guard;
    guard.begin(shown, Seconds{0});
    EXPECT_FALSE(guard.takesKey(after(10)));
    guard.begin(after(20), Seconds{0});
    EXPECT_TRUE(guard.takesKey(after(20.1)));
}

TEST(TypingGuardTest, TakesNothingWhereThereIsToBeNone) {
    TypingGuard guard = TypingGuard::none();
    guard.begin(shown, Seconds{0});
    EXPECT_FALSE(guard.takesKey(shown));
    EXPECT_FALSE(guard.takesClick(shown));
}

} // namespace
} // namespace vantrel
