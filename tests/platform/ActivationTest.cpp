#include <platform/Activation.h>

#include <gtest/gtest.h>

namespace vantrel {

TEST(ActivationRequestTest, IsFoundByItsName) {
    for (const auto request : {ActivationRequest::showPopover, ActivationRequest::togglePause,
                               ActivationRequest::showPreferences, ActivationRequest::quit})
        EXPECT_EQ(activationRequest(activationName(request)), request);
    EXPECT_EQ(activationRequest(QStringLiteral("pause")), ActivationRequest::togglePause);
}

TEST(ActivationRequestTest, IsNoneForAnyOtherName) {
    EXPECT_EQ(activationRequest({}), std::nullopt);
    EXPECT_EQ(activationRequest(QStringLiteral("Popover")), std::nullopt);
}

} // namespace vantrel
