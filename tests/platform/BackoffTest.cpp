#include <platform/Backoff.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(BackoffTest, DoublesThePausesUpToTheLongestAndEnds) {
    Backoff backoff(Seconds{0.1}, Seconds{0.5}, 5);
    EXPECT_EQ(backoff.next(), Seconds{0.1});
    EXPECT_EQ(backoff.next(), Seconds{0.2});
    EXPECT_EQ(backoff.next(), Seconds{0.4});
    EXPECT_EQ(backoff.next(), Seconds{0.5});
    EXPECT_EQ(backoff.next(), Seconds{0.5});
    EXPECT_EQ(backoff.next(), std::nullopt);
    EXPECT_EQ(backoff.next(), std::nullopt);
}

} // namespace
} // namespace vantrel
