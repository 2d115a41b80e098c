#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>

#include <gtest/gtest.h>

#include <string>

namespace vantrel {
namespace {

using fakes::at;

class MainQueueTest : public testing::Test {
protected:
    fakes::ManualMainQueue queue{at("2026-03-02T09:00:00")};
    std::string log;

    std::function<void()> write(char letter) {
        return [this, letter] { log += letter; };
    }
};

TEST_F(MainQueueTest, RunsWorkAtItsDeadlineAndNoEarlier) {
    const auto work = queue.after(Seconds{10}, write('a'));
    queue.advance(Seconds{9.999});
    EXPECT_EQ(log, "");
    queue.advance(Seconds{0.001});
    EXPECT_EQ(log, "a");
}

TEST_F(MainQueueTest, RunsWorkInTheOrderOfDeadlinesAndThenOfScheduling) {
    const auto last = queue.after(Seconds{2}, write('c'));
    const auto first = queue.after(Seconds{1}, write('a'));
    const auto second = queue.after(Seconds{1}, write('b'));
    queue.advance(Seconds{5});
    EXPECT_EQ(log, "abc");
}

TEST_F(MainQueueTest, ForgetsWorkWhoseHandleWasDroppedOrCancelled) {
    auto cancelled = queue.after(Seconds{1}, write('a'));
    cancelled.cancel();
    { const auto dropped = queue.after(Seconds{1}, write('b')); }
    auto replaced = queue.after(Seconds{1}, write('c'));
    replaced = queue.after(Seconds{1}, write('d'));
    queue.advance(Seconds{5});
    EXPECT_EQ(log, "d");
}

TEST_F(MainQueueTest, LetsWorkDropItsOwnHandle) {
    ScheduledWork handle;
    const std::string captured(100, 'x');
    handle = queue.after(Seconds{1}, [&, captured] {
        handle = ScheduledWork();
        log += captured.substr(0, 1);
    });
    queue.advance(Seconds{1});
    EXPECT_EQ(log, "x");
}

TEST_F(MainQueueTest, RepeatsWorkUntilItCancelsItself) {
    ScheduledWork handle;
    handle = queue.every(Seconds{60}, [&] {
        log += 'a';
        if (log.size() == 3)
            handle.cancel();
    });
    queue.advance(Seconds{600});
    EXPECT_EQ(log, "aaa");
}

TEST_F(MainQueueTest, RunsAsynchronousWorkBehindWhatWaitsForTheSameMoment) {
    const auto work = queue.after(Seconds{0}, write('a'));
    queue.async(write('b'));
    EXPECT_EQ(log, "");
    queue.runDue();
    EXPECT_EQ(log, "ab");
}

TEST_F(MainQueueTest, KeepsDeadlinesWhenTheWallClockIsSet) {
    const auto work = queue.after(Seconds{60}, write('a'));
    queue.jumpWallTo(at("2026-03-02T12:00:00"));
    queue.runDue();
    EXPECT_EQ(log, "");
    queue.advance(Seconds{60});
    EXPECT_EQ(log, "a");
    EXPECT_EQ(queue.now(), at("2026-03-02T12:01:00"));
}

TEST_F(MainQueueTest, KeepsTheRestOfAWaitOverASleep) {
    const auto work = queue.after(Seconds{60}, write('a'));
    queue.advance(Seconds{30});
    queue.suspend(Seconds{3600});
    queue.advance(Seconds{29});
    EXPECT_EQ(log, "");
    queue.advance(Seconds{1});
    EXPECT_EQ(log, "a");
}

} // namespace
} // namespace vantrel
