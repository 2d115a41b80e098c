#include "CoordinatorFixture.h"

namespace vantrel {
namespace {

const QString flag = QStringLiteral("Vantrel.hasCompletedFirstRun");
const QString title = QStringLiteral("Welcome to Vantrel");

class AppOnboardingTest : public CoordinatorFixture {
protected:
    AppOnboardingTest() { defaults.objects.erase(flag); }

    [[nodiscard]] const fakes::RecordingWindows::Record &window() const {
        return *windows.windows.at(0);
    }
};

TEST_F(AppOnboardingTest, OpensAtTheStartOfAFirstRun) {
    start();
    ASSERT_EQ(windows.windows.size(), 1u);
    EXPECT_EQ(window().description.title, title);
    EXPECT_TRUE(window().isShown);
}

TEST_F(AppOnboardingTest, OpensWhereTheFlagIsStoredAsFalse) {
    defaults.objects[flag] = false;
    start();
    EXPECT_EQ(windows.windows.size(), 1u);
}

TEST_F(AppOnboardingTest, StaysAwayOnceTheFirstRunIsOver) {
    defaults.objects[flag] = true;
    start();
    EXPECT_TRUE(windows.windows.empty());
}

TEST_F(AppOnboardingTest, LeavesTheQuestionForTheCalendarsToTheFirstRun) {
    store.authorization = StoreAuthorization::notDetermined;
    start();
    EXPECT_TRUE(store.accessRequests.empty());
    defaults.objects[flag] = true;
    startAgain();
    EXPECT_EQ(store.accessRequests.size(), 1u);
}

TEST_F(AppOnboardingTest, StartsTheRestBehindIt) {
    addMeeting("soon", queue.now() + Seconds{120});
    start();
    queue.advance(Seconds{60});
    EXPECT_FALSE(panels.panels.empty());
}

TEST_F(AppOnboardingTest, IsMadeOnceAndShownAgain) {
    start();
    coordinator->openOnboarding();
    EXPECT_EQ(windows.windows.size(), 1u);
    EXPECT_EQ(window().showings, 2);
}

TEST_F(AppOnboardingTest, ChoosesTheCalendarsOnceTheStoreTellsOfTheGrant) {
    store.authorization = StoreAuthorization::notDetermined;
    start();
    EXPECT_FALSE(defaults.hasObject(QStringLiteral("Vantrel.selectedCalendarIDs")));
    store.authorization = StoreAuthorization::fullAccess;
    announceChange();
    EXPECT_EQ(preferences->selectedCalendarIDs(), std::set<QString>{QStringLiteral("work")});
}

} // namespace
} // namespace vantrel
