#include "OnboardingFixture.h"

#include <fakes/CapturedLog.h>
#include <fakes/RecordingWindows.h>
#include <onboarding/OnboardingWindowController.h>

#include <memory>

namespace vantrel::tests {

namespace {

class OnboardingWindowControllerTest : public OnboardingFixture {
protected:
    [[nodiscard]] bool isFlagStored() const {
        return defaults.boolean(QStringLiteral("Vantrel.hasCompletedFirstRun"));
    }

    fakes::CapturedLog log;
    fakes::RecordingWindows windows;
    OnboardingWindowController controller{
        std::make_unique<OnboardingState>(preferences, access, launchAtLogin, notifications, [] {}),
        defaults, windows, queue};
};

} // namespace

TEST_F(OnboardingWindowControllerTest, MakesAWindowThatFloatsAtOneSize) {
    ASSERT_EQ(windows.windows.size(), 1u);
    const WindowDescription &description = windows.windows.front()->description;
    EXPECT_EQ(description.title, u"Welcome to Vantrel");
    EXPECT_EQ(description.size, QSize(660, 640));
    EXPECT_EQ(description.level, WindowLevel::floating);
    EXPECT_EQ(description.sizing, WindowSizing::fixed);
    EXPECT_FALSE(windows.windows.front()->isShown);
}

TEST_F(OnboardingWindowControllerTest, FinishingStoresTheFlagLogsItAndHidesTheWindow) {
    controller.show();
    for (int passed = 0; passed < 5; ++passed)
        controller.state().acknowledge();
    EXPECT_FALSE(isFlagStored());
    EXPECT_TRUE(windows.windows.front()->isShown);
    controller.state().acknowledge();
    EXPECT_TRUE(isFlagStored());
    EXPECT_FALSE(windows.windows.front()->isShown);
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_EQ(log.lines().front().type, QtInfoMsg);
    EXPECT_EQ(log.lines().front().category, u"org.vantrel.Vantrel.onboarding");
    EXPECT_EQ(log.lines().front().text, u"onboarding finished");
}

TEST_F(OnboardingWindowControllerTest, CanBeShownAgainAfterIt) {
    for (int passed = 0; passed < 6; ++passed)
        controller.state().acknowledge();
    controller.show();
    EXPECT_TRUE(windows.windows.front()->isShown);
    EXPECT_EQ(windows.windows.size(), 1u);
}

} // namespace vantrel::tests
