#include <linux/eventstore/evolution/module/ServiceThread.h>

#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <utility>

namespace vantrel {
namespace {

/// Says when it goes.
struct Kept {
    std::promise<void> isGone;
    ~Kept() { isGone.set_value(); }
};

TEST(ServiceThread, RunsWhatWasPostedAndThenTheLast) {
    ServiceThread thread;
    std::vector<int> order;
    thread.post([&order] { order.push_back(1); });
    thread.start(nullptr);
    thread.post([&order] { order.push_back(2); });
    thread.stop([&order] { order.push_back(3); });
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST(ServiceThread, LetsGoOfAStuckThreadWhichKeepsWhatItWorksWithUntilItEnds) {
    std::promise<void> release;
    std::promise<void> isStuck;
    std::promise<void> hasRunLast;
    auto kept = std::make_shared<Kept>();
    auto isGone = kept->isGone.get_future();
    {
        ServiceThread thread;
        thread.start(std::exchange(kept, nullptr));
        thread.post([&] {
            isStuck.set_value();
            release.get_future().wait();
        });
        isStuck.get_future().wait();
        const QDeadlineTimer limit(10'000);
        thread.stop([&hasRunLast] { hasRunLast.set_value(); });
        EXPECT_FALSE(limit.hasExpired());
    }
    EXPECT_EQ(isGone.wait_for(std::chrono::seconds(0)), std::future_status::timeout);
    release.set_value();
    EXPECT_EQ(hasRunLast.get_future().wait_for(std::chrono::seconds(60)),
              std::future_status::ready);
    EXPECT_EQ(isGone.wait_for(std::chrono::seconds(60)), std::future_status::ready);
}

} // namespace
} // namespace vantrel
