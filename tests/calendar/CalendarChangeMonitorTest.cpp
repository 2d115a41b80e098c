#include <calendar/CalendarChangeMonitor.h>
#include <fakes/FakeEventStore.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>

#include <gtest/gtest.h>

#include <memory>

namespace vantrel {
namespace {

class CalendarChangeMonitorTest : public testing::Test {
protected:
    CalendarChangeMonitorTest() { monitor->start(); }

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T09:00:00")};
    fakes::FakeEventStore store{[this] { return queue.now(); }};
    int changes = 0;
    std::unique_ptr<CalendarChangeMonitor> monitor =
        std::make_unique<CalendarChangeMonitor>(store, Seconds{0.5}, queue, [this] { ++changes; });
};

TEST_F(CalendarChangeMonitorTest, CallsOnceHalfASecondAfterTheLastNoticeOfABurst) {
    for (int notice = 0; notice < 10; ++notice) {
        if (notice > 0)
            queue.advance(Seconds{0.1});
        store.changed.announce();
    }
    queue.advance(Seconds{0.499});
    EXPECT_EQ(changes, 0);
    queue.advance(Seconds{0.001});
    EXPECT_EQ(changes, 1);
    queue.advance(Seconds{10.0});
    EXPECT_EQ(changes, 1);
}

TEST_F(CalendarChangeMonitorTest, CallsForEachOfTwoNoticesFurtherApart) {
    store.changed.announce();
    queue.advance(Seconds{0.6});
    EXPECT_EQ(changes, 1);
    store.changed.announce();
    queue.advance(Seconds{0.6});
    EXPECT_EQ(changes, 2);
}

TEST_F(CalendarChangeMonitorTest, DropsAPendingCallWhenItIsStopped) {
    store.changed.announce();
    queue.advance(Seconds{0.2});
    monitor->stop();
    queue.advance(Seconds{10.0});
    EXPECT_EQ(changes, 0);
}

TEST_F(CalendarChangeMonitorTest, HearsNothingBeforeItIsStartedAndAfterItIsStopped) {
    monitor->stop();
    monitor->stop();
    store.changed.announce();
    queue.advance(Seconds{10.0});
    EXPECT_EQ(changes, 0);

    CalendarChangeMonitor fresh(store, Seconds{0.5}, queue, [this] { ++changes; });
    fresh.stop();
    store.changed.announce();
    queue.advance(Seconds{10.0});
    EXPECT_EQ(changes, 0);
}

TEST_F(CalendarChangeMonitorTest, ObservesOnceHoweverOftenItIsStarted) {
    monitor->start();
    store.changed.announce();
    EXPECT_EQ(queue.pendingCount(), 1u);
    monitor->stop();
    store.changed.announce();
    queue.advance(Seconds{10.0});
    EXPECT_EQ(changes, 0);
}

TEST_F(CalendarChangeMonitorTest, HearsAgainWhenItIsStartedAgain) {
    monitor->stop();
    monitor->start();
    store.changed.announce();
    queue.advance(Seconds{0.5});
    EXPECT_EQ(changes, 1);
}

TEST_F(CalendarChangeMonitorTest, IgnoresAnotherStore) {
    fakes::FakeEventStore other([this] { return queue.now(); });
    other.changed.announce();
    queue.advance(Seconds{10.0});
    EXPECT_EQ(changes, 0);
}

TEST_F(CalendarChangeMonitorTest, WaitsByTheMonotonicClock) {
    store.changed.announce();
    queue.jumpWallTo(queue.now() + std::chrono::hours(5));
    queue.advance(Seconds{0.4});
    EXPECT_EQ(changes, 0);
    queue.jumpWallTo(queue.now() - std::chrono::hours(9));
    queue.advance(Seconds{0.1});
    EXPECT_EQ(changes, 1);
}

TEST_F(CalendarChangeMonitorTest, CallsNobodyOnceItIsDestroyed) {
    store.changed.announce();
    monitor.reset();
    store.changed.announce();
    queue.advance(Seconds{10.0});
    EXPECT_EQ(changes, 0);
}

TEST_F(CalendarChangeMonitorTest, LetsItsCallbackDestroyIt) {
    std::unique_ptr<CalendarChangeMonitor> shortLived;
    // The vector lives in the callback: it would be gone if the callback went with the monitor.
    shortLived = std::make_unique<CalendarChangeMonitor>(
        store, Seconds{0.5}, queue, [this, &shortLived, kept = std::vector<int>(100, 1)] {
            shortLived.reset();
            changes += kept.at(99);
        });
    monitor->stop();
    shortLived->start();
    store.changed.announce();
    queue.advance(Seconds{0.5});
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(shortLived);
}

TEST_F(CalendarChangeMonitorTest, CountsANoticeThatComesWhileTheCallbackRuns) {
    int ownChanges = 0;
    CalendarChangeMonitor chatty(store, Seconds{0.5}, queue, [&] {
        if (++ownChanges == 1)
            store.changed.announce();
    });
    chatty.start();
    store.changed.announce();
    queue.advance(Seconds{0.5});
    EXPECT_EQ(ownChanges, 1);
    queue.advance(Seconds{0.5});
    EXPECT_EQ(ownChanges, 2);
}

} // namespace
} // namespace vantrel
