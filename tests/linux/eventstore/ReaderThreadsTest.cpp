#include "CapturedLog.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/ReaderThreads.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>

#include <gmock/gmock.h>

#include <atomic>
#include <semaphore>
#include <set>

namespace vantrel {
namespace {

using namespace tests;

constexpr int patience = 20'000; // milliseconds until a test gives up

class ReaderThreadsTest : public testing::Test {
protected:
    ~ReaderThreadsTest() override { gate.release(1000); }

    /// Rounds that stand still until the gate lets them through.
    void runStuck(int count) {
        for (int index = 0; index < count; ++index)
            threads->run(
                [this] {
                    ++begun;
                    gate.acquire();
                },
                [this] { ++done; });
    }

    void runQuick() {
        threads->run([] {}, [this] { ++quickDone; });
    }

    template <typename Condition>
    void settle(Condition condition) {
        const QDeadlineTimer deadline(patience);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired());
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:00:00")};
    CapturedLog log;
    std::counting_semaphore<> gate{0};
    std::atomic<int> begun = 0;
    int done = 0;
    int quickDone = 0;
    std::unique_ptr<ReaderThreads> threads = std::make_unique<ReaderThreads>(queue);
};

TEST_F(ReaderThreadsTest, WorksElsewhereAndTellsOnTheMainThread) {
    QThread *worker = nullptr;
    QThread *told = nullptr;
    threads->run([&] { worker = QThread::currentThread(); },
                 [&] { told = QThread::currentThread(); });
    settle([&] { return told != nullptr; });
    EXPECT_EQ(told, QThread::currentThread());
    EXPECT_NE(worker, QThread::currentThread());
}

TEST_F(ReaderThreadsTest, RunsFourRoundsAtATime) {
    runStuck(100);
    settle([this] { return begun == 4; });
    gate.release();
    settle([this] { return begun == 5 && done == 1; });
    gate.release(99);
    settle([this] { return done == 100; });
    EXPECT_EQ(queue.pendingCount(), 0U);
}

TEST_F(ReaderThreadsTest, ARoundDoesNotWaitForOnesThatStandStill) {
    runStuck(4);
    settle([this] { return begun == 4; });
    runQuick();
    queue.advance(Seconds{0.9});
    QCoreApplication::processEvents();
    EXPECT_EQ(quickDone, 0);
    queue.advance(Seconds{0.1});
    settle([this] { return quickDone == 1; });
    runQuick(); // Those four are not waited for again.
    settle([this] { return quickDone == 2; });
    EXPECT_EQ(done, 0);
}

TEST_F(ReaderThreadsTest, ManyThatStandStillTakeMoreThreadsStepByStep) {
    runStuck(10);
    runQuick();
    settle([this] { return begun == 4; });
    queue.advance(Seconds{1.0});
    settle([this] { return begun == 8; });
    queue.advance(Seconds{1.0});
    settle([this] { return begun == 10 && quickDone == 1; });
}

TEST_F(ReaderThreadsTest, GoesAwayInTimeThoughManyStandStill) {
    runStuck(8);
    settle([this] { return begun == 4; });
    QElapsedTimer clock;
    clock.start();
    threads.reset();
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_TRUE(log.has("does not answer", "left behind")) << log.text();
    gate.release(1000);
    const QDeadlineTimer quiet(200);
    while (!quiet.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(begun, 4) << "what had not begun is dropped";
    EXPECT_EQ(done, 0);
}

TEST_F(ReaderThreadsTest, LetsGoOfWhatTheWorkHoldsOnTheMainThread) {
    QThread *last = nullptr;
    {
        const std::shared_ptr<int> held(new int, [&last](const int *number) {
            last = QThread::currentThread();
            delete number;
        });
        threads->run([held] {}, [this] { ++done; });
    }
    settle([this] { return done == 1; });
    EXPECT_EQ(last, QThread::currentThread());
}

} // namespace
} // namespace vantrel
