#include "OnboardingFixture.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace vantrel::tests {

using Step = OnboardingStep;
using Status = NotificationPermission::Status;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class OnboardingStateTest : public OnboardingFixture {
protected:
    OnboardingStateTest() {
        state->onFinished = [this] { ++finishings; };
    }

    void allow() { store.authorization = StoreAuthorization::fullAccess; }

    /// Passes steps until that one is shown.
    void goTo(Step step) {
        for (int tries = 0; tries < 7 && state->step() != step; ++tries)
            state->acknowledge();
        ASSERT_EQ(state->step(), step);
    }

    int finishings = 0;
    int previews = 0;
    std::unique_ptr<OnboardingState> state = std::make_unique<OnboardingState>(
        preferences, access, launchAtLogin, notifications, [this] { ++previews; });
};

} // namespace

TEST_F(OnboardingStateTest, ListsTheStepsInTheOrderOfTheFlow) {
    EXPECT_THAT(allOnboardingSteps,
                ElementsAre(Step::welcome, Step::calendar, Step::notifications, Step::theme,
                            Step::demoTakeover, Step::launchAtLogin, Step::done));
}

TEST_F(OnboardingStateTest, BeginsWithTheWelcomeAndAsksNobody) {
    EXPECT_EQ(state->step(), Step::welcome);
    EXPECT_THAT(state->acknowledgedSteps(), IsEmpty());
    EXPECT_FALSE(state->calendarRequestInProgress());
    EXPECT_EQ(state->launchAtLoginError(), std::nullopt);
    EXPECT_EQ(state->notificationAuthStatus(), Status::notDetermined);
    EXPECT_THAT(store.accessRequests, IsEmpty());
    EXPECT_EQ(notifications.readings, 0);
}

TEST_F(OnboardingStateTest, GoesThroughAllStepsAndFinishesInPlaceOfTheLastOne) {
    std::vector<Step> shown{state->step()};
    for (int passed = 0; passed < 5; ++passed) {
        state->acknowledge();
        shown.push_back(state->step());
    }
    EXPECT_THAT(shown, ElementsAre(Step::welcome, Step::calendar, Step::notifications, Step::theme,
                                   Step::demoTakeover, Step::launchAtLogin));
    EXPECT_EQ(finishings, 0);
    state->acknowledge();
    EXPECT_EQ(finishings, 1);
    EXPECT_EQ(state->step(), Step::launchAtLogin);
}

TEST_F(OnboardingStateTest, PassesOverTheCalendarsWhereAccessIsFull) {
    allow();
    state->acknowledge();
    EXPECT_EQ(state->step(), Step::notifications);
    EXPECT_THAT(state->acknowledgedSteps(), UnorderedElementsAre(Step::welcome));
}

class UnreadableCalendarsTest : public OnboardingStateTest,
                                public testing::WithParamInterface<StoreAuthorization> {};

TEST_P(UnreadableCalendarsTest, AreAStepThatIsNotComplete) {
    store.authorization = GetParam();
    state->acknowledge();
    EXPECT_EQ(state->step(), Step::calendar);
    state->acknowledge();
    state->advanceToFirstIncompleteStep();
    EXPECT_EQ(state->step(), Step::calendar);
}

INSTANTIATE_TEST_SUITE_P(Statuses, UnreadableCalendarsTest,
                         testing::Values(StoreAuthorization::notDetermined,
                                         StoreAuthorization::restricted, StoreAuthorization::denied,
                                         StoreAuthorization::writeOnly));

TEST_F(OnboardingStateTest, AdvancesPastTheStepItIsOnEvenWhereThatIsNotComplete) {
    state->acknowledge();
    ASSERT_EQ(state->step(), Step::calendar);
    state->advance();
    EXPECT_EQ(state->step(), Step::notifications);
}

TEST_F(OnboardingStateTest, PassesOverStepsThatWereAcknowledgedBefore) {
    goTo(Step::demoTakeover);
    allow();
    for (int back = 0; back < 4; ++back)
        state->goBack();
    ASSERT_EQ(state->step(), Step::welcome);
    state->advance();
    EXPECT_EQ(state->step(), Step::demoTakeover);
}

TEST_F(OnboardingStateTest, GoesBackToTheStepBeforeWhetherItIsCompleteOrNot) {
    allow();
    goTo(Step::notifications);
    state->goBack();
    EXPECT_EQ(state->step(), Step::calendar);
    state->goBack();
    EXPECT_EQ(state->step(), Step::welcome);
    state->goBack();
    EXPECT_EQ(state->step(), Step::welcome);
}

TEST_F(OnboardingStateTest, GoesToTheFirstStepThatIsNotComplete) {
    goTo(Step::theme);
    state->advanceToFirstIncompleteStep();
    EXPECT_EQ(state->step(), Step::calendar);
    allow();
    state->advanceToFirstIncompleteStep();
    EXPECT_EQ(state->step(), Step::theme);
    EXPECT_EQ(finishings, 0);
}

TEST_F(OnboardingStateTest, ReadsTheAccessAfreshForEachMove) {
    allow();
    state->acknowledge();
    state->acknowledge();
    ASSERT_EQ(state->step(), Step::theme);
    store.authorization = StoreAuthorization::denied;
    state->advanceToFirstIncompleteStep();
    EXPECT_EQ(state->step(), Step::calendar);
}

TEST_F(OnboardingStateTest, GoesToTheLastStepOnceAllOthersAreComplete) {
    allow();
    goTo(Step::launchAtLogin);
    state->acknowledge();
    state->advanceToFirstIncompleteStep();
    EXPECT_EQ(state->step(), Step::done);
    EXPECT_EQ(finishings, 1);
}

TEST_F(OnboardingStateTest, FinishesAgainFromTheLastStepOn) {
    allow();
    goTo(Step::launchAtLogin);
    state->acknowledge();
    state->advanceToFirstIncompleteStep();
    state->acknowledge();
    EXPECT_EQ(finishings, 2);
    EXPECT_EQ(state->step(), Step::done);
    state->goBack();
    EXPECT_EQ(state->step(), Step::launchAtLogin);
}

TEST_F(OnboardingStateTest, FinishesWithoutAnybodyToTell) {
    state->onFinished = nullptr;
    goTo(Step::launchAtLogin);
    state->acknowledge();
    EXPECT_EQ(state->step(), Step::launchAtLogin);
}

TEST_F(OnboardingStateTest, TellsOfEachStep) {
    std::vector<Step> told;
    const Subscription subscription =
        state->changed.subscribe([&] { told.push_back(state->step()); });
    state->acknowledge();
    state->goBack();
    state->advanceToFirstIncompleteStep();
    EXPECT_THAT(told, ElementsAre(Step::calendar, Step::welcome, Step::calendar));
}

TEST_F(OnboardingStateTest, AsksForTheCalendarsAndWaitsForTheAnswer) {
    std::vector<bool> told;
    const Subscription subscription =
        state->changed.subscribe([&] { told.push_back(state->calendarRequestInProgress()); });
    state->acknowledge();
    told.clear();
    state->requestCalendarAccess();
    EXPECT_THAT(told, ElementsAre(true));
    ASSERT_EQ(store.accessRequests.size(), 1u);
    allow();
    store.accessRequests.front()(true, std::nullopt);
    EXPECT_THAT(told, ElementsAre(true, false));
    EXPECT_EQ(state->step(), Step::calendar);
    EXPECT_TRUE(state->hasCalendarAccess());
}

TEST_F(OnboardingStateTest, AsksOnceWhileTheQuestionStandsAndAgainAfterARefusal) {
    state->acknowledge();
    state->requestCalendarAccess();
    state->requestCalendarAccess();
    ASSERT_EQ(store.accessRequests.size(), 1u);
    store.authorization = StoreAuthorization::denied;
    store.accessRequests.front()(false, std::nullopt);
    EXPECT_FALSE(state->calendarRequestInProgress());
    EXPECT_EQ(state->step(), Step::calendar);
    state->requestCalendarAccess();
    EXPECT_EQ(store.accessRequests.size(), 2u);
}

TEST_F(OnboardingStateTest, IsNoLongerAskingAfterARequestThatFailed) {
    state->requestCalendarAccess();
    store.accessRequests.front()(false, QStringLiteral("nobody to ask"));
    EXPECT_FALSE(state->calendarRequestInProgress());
}

TEST_F(OnboardingStateTest, IsAnsweredAtOnceWhereNobodyHasToBeAsked) {
    allow();
    state->requestCalendarAccess();
    EXPECT_THAT(store.accessRequests, IsEmpty());
    EXPECT_FALSE(state->calendarRequestInProgress());
}

TEST_F(OnboardingStateTest, LetsAnAnswerPassThatComesAfterItsEnd) {
    goTo(Step::notifications);
    state->requestCalendarAccess();
    state->requestNotifications();
    state.reset();
    store.accessRequests.front()(true, std::nullopt);
    notifications.answer(Status::authorized);
    EXPECT_EQ(notifications.readings, 0);
}

TEST_F(OnboardingStateTest, ReadsWhetherNotificationsAreAllowed) {
    notifications.status = Status::denied;
    state->refreshNotificationStatus();
    EXPECT_EQ(state->notificationAuthStatus(), Status::denied);
}

TEST_F(OnboardingStateTest, AsksForAlertsAndSoundsAndGoesOnAfterTheAnswer) {
    goTo(Step::notifications);
    state->requestNotifications();
    EXPECT_EQ(state->step(), Step::notifications);
    EXPECT_THAT(notifications.requests, ElementsAre(UnorderedElementsAre(NotificationKind::alert,
                                                                         NotificationKind::sound)));
    notifications.answer(Status::authorized);
    EXPECT_EQ(state->notificationAuthStatus(), Status::authorized);
    EXPECT_EQ(state->step(), Step::theme);
    EXPECT_TRUE(state->acknowledgedSteps().contains(Step::notifications));
}

TEST_F(OnboardingStateTest, GoesOnWithoutNotificationsAfterAnError) {
    goTo(Step::notifications);
    state->requestNotifications();
    notifications.answer(Status::denied, QStringLiteral("no service"));
    EXPECT_EQ(state->notificationAuthStatus(), Status::denied);
    EXPECT_EQ(state->step(), Step::theme);
}

TEST_F(OnboardingStateTest, StaysWhereTheUserWentBeforeTheDesktopAnswered) {
    goTo(Step::notifications);
    state->requestNotifications();
    state->acknowledge();
    ASSERT_EQ(state->step(), Step::theme);
    notifications.answer(Status::authorized);
    EXPECT_EQ(state->step(), Step::theme);
    EXPECT_FALSE(state->acknowledgedSteps().contains(Step::theme));
}

TEST_F(OnboardingStateTest, SkipsTheNotificationsWithoutAsking) {
    goTo(Step::notifications);
    state->acknowledge();
    EXPECT_THAT(notifications.requests, IsEmpty());
    EXPECT_EQ(state->step(), Step::theme);
}

TEST_F(OnboardingStateTest, SwitchesLaunchAtLoginAndKeepsTheLatestError) {
    loginItem.refusal = QStringLiteral("No space left on device");
    state->setLaunchAtLogin(true);
    EXPECT_EQ(state->launchAtLoginError(), QStringLiteral("No space left on device"));
    EXPECT_FALSE(launchAtLogin.isEnabled());
    loginItem.refusal.reset();
    state->setLaunchAtLogin(true);
    EXPECT_EQ(state->launchAtLoginError(), std::nullopt);
    EXPECT_TRUE(launchAtLogin.isEnabled());
    state->setLaunchAtLogin(false);
    EXPECT_FALSE(launchAtLogin.isEnabled());
}

TEST_F(OnboardingStateTest, FinishesInSpiteOfALaunchAtLoginThatFailed) {
    goTo(Step::launchAtLogin);
    loginItem.refusal = QStringLiteral("Permission denied");
    state->setLaunchAtLogin(true);
    state->acknowledge();
    EXPECT_EQ(finishings, 1);
}

TEST_F(OnboardingStateTest, ShowsTheDemoWithoutMovingOn) {
    goTo(Step::demoTakeover);
    state->previewTakeover();
    state->previewTakeover();
    EXPECT_EQ(previews, 2);
    EXPECT_EQ(state->step(), Step::demoTakeover);
}

} // namespace vantrel::tests
