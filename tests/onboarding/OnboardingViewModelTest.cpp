#include "OnboardingFixture.h"

#include <onboarding/OnboardingViewModel.h>

namespace vantrel::tests {

namespace {

class OnboardingViewModelTest : public OnboardingFixture {
protected:
    OnboardingViewModelTest() {
        QObject::connect(&viewModel, &OnboardingViewModel::changed, [this] { ++changes; });
    }

    OnboardingState state{preferences, access, launchAtLogin, notifications, [] {}};
    OnboardingViewModel viewModel{state, queue};
    int changes = 0;
};

} // namespace

TEST_F(OnboardingViewModelTest, CountsTheStepsButTheLast) {
    EXPECT_EQ(viewModel.stepCount(), 6);
    EXPECT_EQ(viewModel.stepNumber(), 1);
    viewModel.acknowledge();
    EXPECT_EQ(viewModel.stepNumber(), 2);
}

TEST_F(OnboardingViewModelTest, NoticesAGrantFromElsewhereWithinHalfASecond) {
    viewModel.watchCalendarAccess();
    store.authorization = StoreAuthorization::fullAccess;
    queue.advance(Seconds{0.49});
    EXPECT_FALSE(viewModel.hasCalendarAccess());
    queue.advance(Seconds{0.01});
    EXPECT_TRUE(viewModel.hasCalendarAccess());
    EXPECT_EQ(changes, 1);
    queue.advance(Seconds{5.0});
    EXPECT_EQ(changes, 1);
}

TEST_F(OnboardingViewModelTest, NoticesAlsoThatAccessWasTakenAway) {
    viewModel.watchCalendarAccess();
    store.authorization = StoreAuthorization::fullAccess;
    queue.advance(Seconds{1.0});
    store.authorization = StoreAuthorization::denied;
    queue.advance(Seconds{0.5});
    EXPECT_FALSE(viewModel.hasCalendarAccess());
}

TEST_F(OnboardingViewModelTest, LooksWithOneTimerHoweverOftenItIsStarted) {
    viewModel.watchCalendarAccess();
    viewModel.watchCalendarAccess();
    EXPECT_EQ(queue.pendingCount(), 1u);
}

TEST_F(OnboardingViewModelTest, LooksNoLongerOnceTheStepIsLeft) {
    viewModel.watchCalendarAccess();
    viewModel.leaveCalendarAccess();
    EXPECT_EQ(queue.pendingCount(), 0u);
}

TEST_F(OnboardingViewModelTest, StoresTheThemeThatIsPickedAndTakesItsColours) {
    EXPECT_EQ(viewModel.themes().size(), 5);
    viewModel.selectTheme(3);
    EXPECT_EQ(preferences.selectedTheme(), Theme::dusk);
    EXPECT_EQ(viewModel.selectedTheme(), 3);
    EXPECT_EQ(viewModel.palette(), ThemePalette(palette(Theme::dusk)));
    preferences.setSelectedTheme(Theme::summit);
    EXPECT_EQ(viewModel.selectedTheme(), 1);
}

TEST_F(OnboardingViewModelTest, ReadsAnewWhatTheDesktopHasChanged) {
    loginItem.current = LoginItem::Status::enabled;
    notifications.status = NotificationPermission::Status::authorized;
    EXPECT_FALSE(viewModel.isLaunchedAtLogin());
    EXPECT_FALSE(viewModel.areNotificationsAllowed());
    viewModel.refresh();
    EXPECT_TRUE(viewModel.isLaunchedAtLogin());
    EXPECT_TRUE(viewModel.areNotificationsAllowed());
    EXPECT_GE(changes, 1);
}

} // namespace vantrel::tests
