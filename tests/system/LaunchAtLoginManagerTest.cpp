#include <fakes/FakeLoginItem.h>
#include <system/LaunchAtLoginManager.h>

#include <gmock/gmock.h>

#include <vector>

namespace vantrel {
namespace {

using fakes::FakeLoginItem;
using Status = LoginItem::Status;
using testing::ElementsAre;

class LaunchAtLoginManagerTest : public testing::Test {
protected:
    FakeLoginItem item;
};

class StatusTest : public LaunchAtLoginManagerTest, public testing::WithParamInterface<Status> {};

TEST_P(StatusTest, CountsAsOnWhenItIsEnabledAlone) {
    item.current = GetParam();
    EXPECT_EQ(LaunchAtLoginManager(item).isEnabled(), GetParam() == Status::enabled);
}

INSTANTIATE_TEST_SUITE_P(All, StatusTest,
                         testing::Values(Status::notRegistered, Status::enabled,
                                         Status::requiresApproval, Status::notFound));

TEST_F(LaunchAtLoginManagerTest, TouchesNothingWhenItIsMade) {
    const LaunchAtLoginManager manager(item);
    EXPECT_EQ(item.registrations, 0);
    EXPECT_EQ(item.unregistrations, 0);
}

TEST_F(LaunchAtLoginManagerTest, RegistersWhenItIsSwitchedOn) {
    LaunchAtLoginManager manager(item);
    EXPECT_EQ(manager.setEnabled(true), std::nullopt);
    EXPECT_TRUE(manager.isEnabled());
    EXPECT_EQ(item.registrations, 1);
    EXPECT_EQ(item.unregistrations, 0);
}

TEST_F(LaunchAtLoginManagerTest, UnregistersWhenItIsSwitchedOff) {
    item.current = Status::enabled;
    LaunchAtLoginManager manager(item);
    EXPECT_EQ(manager.setEnabled(false), std::nullopt);
    EXPECT_FALSE(manager.isEnabled());
    EXPECT_EQ(item.registrations, 0);
    EXPECT_EQ(item.unregistrations, 1);
}

TEST_F(LaunchAtLoginManagerTest, IsOffAfterARegistrationThatAwaitsApproval) {
    item.afterRegistering = Status::requiresApproval;
    LaunchAtLoginManager manager(item);
    EXPECT_EQ(manager.setEnabled(true), std::nullopt);
    EXPECT_FALSE(manager.isEnabled());
}

TEST_F(LaunchAtLoginManagerTest, HandsAnErrorOnAsItIsAndStaysOff) {
    item.refusal = QStringLiteral("No space left on device");
    LaunchAtLoginManager manager(item);
    EXPECT_EQ(manager.setEnabled(true), QStringLiteral("No space left on device"));
    EXPECT_FALSE(manager.isEnabled());
}

TEST_F(LaunchAtLoginManagerTest, StaysOnAfterAnErrorEvenWhereTheStatusIsAnotherMeanwhile) {
    item.current = Status::enabled;
    LaunchAtLoginManager manager(item);
    item.current = Status::notFound;
    item.refusal = QStringLiteral("Permission denied");
    EXPECT_EQ(manager.setEnabled(false), QStringLiteral("Permission denied"));
    EXPECT_TRUE(manager.isEnabled());
}

TEST_F(LaunchAtLoginManagerTest, KnowsOfAChangeElsewhereOnceItIsRefreshed) {
    item.current = Status::enabled;
    LaunchAtLoginManager manager(item);
    item.current = Status::requiresApproval;
    EXPECT_TRUE(manager.isEnabled());
    manager.refresh();
    EXPECT_FALSE(manager.isEnabled());
}

TEST_F(LaunchAtLoginManagerTest, TellsItsSubscribersOfEachState) {
    LaunchAtLoginManager manager(item);
    std::vector<bool> states;
    const Subscription subscription =
        manager.observeIsEnabled([&](bool isEnabled) { states.push_back(isEnabled); });
    ASSERT_EQ(manager.setEnabled(true), std::nullopt);
    ASSERT_EQ(manager.setEnabled(false), std::nullopt);
    EXPECT_THAT(states, ElementsAre(false, true, false));
}

} // namespace
} // namespace vantrel
