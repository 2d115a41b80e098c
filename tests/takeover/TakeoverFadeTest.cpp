#include "WindowControllerFixture.h"

namespace vantrel {
namespace {

class TakeoverFadeTest : public WindowControllerFixture {};

TEST_F(TakeoverFadeTest, FadesAllPanelsInWithinTheGivenTime) {
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

TEST_F(TakeoverFadeTest, FadesAllPanelsOutAndOrdersThemOut) {
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

TEST_F(TakeoverFadeTest, FadesOutFromWhereTheFadeInHadCome) {
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

} // namespace
} // namespace vantrel
