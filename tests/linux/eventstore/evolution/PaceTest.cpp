#include <linux/eventstore/evolution/Pace.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(RetryPause, DoublesFromASecondToFiveMinutesAndStaysThere) {
    RetryPause pause;
    for (const double expected : {1.0, 2.0, 4.0, 8.0, 16.0, 32.0, 64.0, 128.0, 256.0, 300.0, 300.0})
        EXPECT_EQ(pause.next(), Seconds{expected});
}

TEST(RetryPause, BeginsAnewOnceItWentWell) {
    RetryPause pause;
    EXPECT_EQ(pause.next(), Seconds{1.0});
    EXPECT_EQ(pause.next(), Seconds{2.0});
    pause.reset();
    EXPECT_EQ(pause.next(), Seconds{1.0});
}

TEST(AnnouncementPace, WaitsForATenthOfASecondWithoutChanges) {
    AnnouncementPace pace;
    EXPECT_EQ(pace.waitAfterChange(Seconds{10.0}), Seconds{0.1});
    EXPECT_EQ(pace.waitAfterChange(Seconds{10.05}), Seconds{0.1});
}

TEST(AnnouncementPace, NeverWaitsLongerThanASecondFromTheFirstChange) {
    AnnouncementPace pace;
    EXPECT_EQ(pace.waitAfterChange(Seconds{10.0}), Seconds{0.1});
    EXPECT_NEAR(pace.waitAfterChange(Seconds{10.96}).count(), 0.04, 1e-9);
    EXPECT_EQ(pace.waitAfterChange(Seconds{11.5}), Seconds::zero());
}

TEST(AnnouncementPace, CountsTheSecondAnewAfterAnAnnouncement) {
    AnnouncementPace pace;
    EXPECT_EQ(pace.waitAfterChange(Seconds{10.0}), Seconds{0.1});
    pace.announced();
    EXPECT_EQ(pace.waitAfterChange(Seconds{11.5}), Seconds{0.1});
}

} // namespace
} // namespace vantrel
