#include <platform/Activation.h>

#include <gtest/gtest.h>

namespace vantrel {

TEST(ActivationRequestTest, IsFoundByItsName) {
    using enum ActivationRequest;
    for (const auto request :
         {showPopover, togglePause, pause, resume, showPreferences, showRecap, preview, quit})
        EXPECT_EQ(activationRequest(activationName(request)), request);
    EXPECT_EQ(activationRequest(QStringLiteral("toggle-pause")), togglePause);
    EXPECT_EQ(activationRequest(QStringLiteral("pause")), pause);
}

TEST(ActivationRequestTest, IsNoneForAnyOtherName) {
    EXPECT_EQ(activationRequest({}), std::nullopt);
    EXPECT_EQ(activationRequest(QStringLiteral("Popover")), std::nullopt);
}

} // namespace vantrel
