#include <linux/mainqueue/QtMainQueue.h>

#include <QCoreApplication>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {
namespace {

/// Counts how often the event loop delivers a timer's event.
class TimerEvents : public QObject {
public:
    TimerEvents() { QCoreApplication::instance()->installEventFilter(this); }

    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override {
        count += event->type() == QEvent::Timer;
        return false;
    }
};

/// Tells when the last copy of a closure that holds it has gone.
using Token = std::shared_ptr<int>;

class QtMainQueueTest : public testing::Test {
protected:
    QtMainQueue queue;
    std::string log;

    std::function<void()> write(char letter) {
        return [this, letter] { log += letter; };
    }

    /// Runs the real loop until `wait` has passed; what is due by then has run.
    void runFor(Seconds wait) {
        QEventLoop loop;
        const auto end = queue.after(wait, [&] { loop.quit(); });
        loop.exec();
    }

    /// Holds up the loop, as a slow disk or a stopped machine would.
    void keepBusyUntil(MonotonicInstant end) {
        while (queue.uptime() < end) {
        }
    }

    void runOneTurn() {
        QEventLoop loop;
        queue.async([&] { loop.quit(); });
        loop.exec();
    }
};

TEST_F(QtMainQueueTest, ReadsTheWallClockInSecondsSince1970) {
    const Instant before = std::chrono::system_clock::now();
    const Instant read = queue.now();
    const Instant after = std::chrono::system_clock::now();
    EXPECT_LE(before, read);
    EXPECT_LE(read, after);
}

TEST_F(QtMainQueueTest, ReadsAClockThatOnlyMovesForward) {
    MonotonicInstant last = queue.uptime();
    for (int i = 0; i < 1000; ++i) {
        const MonotonicInstant next = queue.uptime();
        ASSERT_GE(next, last);
        last = next;
    }
}

TEST_F(QtMainQueueTest, NeverRunsWorkBeforeItsDeadline) {
    std::vector<ScheduledWork> handles;
    int early = 0;
    int ran = 0;
    for (int i = 0; i < 200; ++i) {
        const Seconds delay{i * 0.00037}; // Whole milliseconds would hide a rounding down.
        const MonotonicInstant deadline = queue.uptime() + delay;
        handles.push_back(queue.after(delay, [&, deadline] {
            ++ran;
            early += queue.uptime() < deadline;
        }));
    }
    runFor(Seconds{0.08});
    EXPECT_EQ(ran, 200);
    EXPECT_EQ(early, 0);
}

TEST_F(QtMainQueueTest, RunsWorkInTheOrderOfDeadlinesWhateverTheOrderOfScheduling) {
    const auto last = queue.after(Seconds{0.012}, write('c'));
    const auto first = queue.after(Seconds{0.004}, write('a'));
    const auto second = queue.after(Seconds{0.008}, write('b'));
    runFor(Seconds{0.02});
    EXPECT_EQ(log, "abc");
}

TEST_F(QtMainQueueTest, RunsWhatIsDueTogetherInTheOrderOfDeadlinesAfterABusySpell) {
    const auto last = queue.after(Seconds{0.003}, write('c'));
    const auto first = queue.after(Seconds{0.001}, write('a'));
    const auto second = queue.after(Seconds{0.002}, write('b'));
    keepBusyUntil(queue.uptime() + Seconds{0.005});
    runOneTurn();
    EXPECT_EQ(log, "abc");
}

TEST_F(QtMainQueueTest, RunsAsynchronousWorkInTheOrderInWhichItWasHandedIn) {
    for (char letter = 'a'; letter <= 'e'; ++letter)
        queue.async(write(letter));
    EXPECT_EQ(log, "");
    runOneTurn();
    EXPECT_EQ(log, "abcde");
}

TEST_F(QtMainQueueTest, TakesANegativeDelayForTheNextTurn) {
    const auto work = queue.after(Seconds{-5}, write('a'));
    EXPECT_EQ(log, "");
    runOneTurn();
    EXPECT_EQ(log, "a");
}

TEST_F(QtMainQueueTest, RunsWorkScheduledFromWithinWorkOnALaterTurnOfTheLoop) {
    // An event posted from within the work runs between it and what it schedules without delay.
    QObject receiver;
    queue.async([&] {
        log += 'a';
        QMetaObject::invokeMethod(&receiver, write('b'), Qt::QueuedConnection);
        queue.async(write('c'));
    });
    runOneTurn();
    runOneTurn();
    EXPECT_EQ(log, "abc");
}

TEST_F(QtMainQueueTest, KeepsTheLoopAliveUnderWorkThatSchedulesItselfForEver) {
    std::function<void()> again = [&] { queue.async(again); };
    queue.async(again);
    runFor(Seconds{0.005}); // Comes back only if the loop got to its timers.
    SUCCEED();
}

TEST_F(QtMainQueueTest, ForgetsWorkWhoseHandleWasDroppedCancelledOrReplaced) {
    auto cancelled = queue.after(Seconds{0.002}, write('a'));
    cancelled.cancel();
    { const auto dropped = queue.after(Seconds{0.002}, write('b')); }
    auto replaced = queue.after(Seconds{0.002}, write('c'));
    replaced = queue.after(Seconds{0.003}, write('d'));
    runFor(Seconds{0.01});
    EXPECT_EQ(log, "d");
}

TEST_F(QtMainQueueTest, LetsWorkCallOffOtherWorkThatIsDueInTheSameTurn) {
    ScheduledWork second;
    const auto first = queue.after(Seconds{0}, [&] { second.cancel(); });
    second = queue.after(Seconds{0}, write('b'));
    runOneTurn();
    EXPECT_EQ(log, "");
}

TEST_F(QtMainQueueTest, LetsWorkDropItsOwnHandle) {
    ScheduledWork handle;
    const std::string captured(100, 'x');
    handle = queue.after(Seconds{0.001}, [&, captured] {
        handle = ScheduledWork();
        log += captured.substr(0, 1);
    });
    runFor(Seconds{0.005});
    EXPECT_EQ(log, "x");
}

TEST_F(QtMainQueueTest, LetsWorkReplaceItsOwnHandleByItsSuccessor) {
    ScheduledWork handle;
    QEventLoop loop;
    std::function<void()> step = [&] {
        log += 'x';
        if (log.size() < 4)
            handle = queue.after(Seconds{0.001}, step);
        else
            loop.quit();
    };
    handle = queue.after(Seconds{0.001}, step);
    loop.exec();
    runOneTurn();
    EXPECT_EQ(log, "xxxx");
}

TEST_F(QtMainQueueTest, RepeatsWorkAtMultiplesOfItsIntervalUntilItCancelsItself) {
    const MonotonicInstant start = queue.uptime();
    std::vector<Seconds> times;
    QEventLoop loop;
    ScheduledWork handle = queue.every(Seconds{0.01}, [&] {
        times.push_back(queue.uptime() - start);
        if (times.size() == 4) {
            handle.cancel();
            loop.quit();
        }
    });
    loop.exec();
    runFor(Seconds{0.025});
    ASSERT_EQ(times.size(), 4u);
    for (std::size_t i = 0; i < times.size(); ++i)
        EXPECT_GE(times[i].count(), 0.01 * static_cast<double>(i + 1));
}

TEST_F(QtMainQueueTest, RunsALateTickOnceLeavesOutTheMissedOnesAndKeepsToTheOldRaster) {
    const Seconds interval{0.01};
    const MonotonicInstant start = queue.uptime();
    std::vector<double> ticks;
    QEventLoop loop;
    const auto handle = queue.every(interval, [&] {
        ticks.push_back((queue.uptime() - start) / interval);
        if (ticks.size() == 1)
            keepBusyUntil(start + 4.5 * interval);
        if (ticks.size() == 8)
            loop.quit();
    });
    loop.exec();
    // Ticks 2, 3 and 4 fell into the busy spell: one of them runs, late, and then comes tick 5.
    double nearest = 1.0; // How far behind the raster the most punctual of the later ones is.
    for (std::size_t i = 2; i < ticks.size(); ++i) {
        EXPECT_GE(ticks[i], 3.0 + static_cast<double>(i)) << "a missed tick was made up for";
        nearest = std::min(nearest, ticks[i] - std::floor(ticks[i]));
    }
    EXPECT_LT(nearest, 0.4);
}

TEST_F(QtMainQueueTest, GoesOnInsideALoopThatWorkSpins) {
    const auto nested = queue.after(Seconds{0.001}, [&] {
        log += '(';
        runFor(Seconds{0.006});
        log += ')';
    });
    const auto behind = queue.after(Seconds{0.003}, write('b'));
    runFor(Seconds{0.02});
    EXPECT_EQ(log, "(b)");
}

TEST_F(QtMainQueueTest, RunsTheRestOfATurnInsideALoopThatItsFirstWorkSpins) {
    const auto first = queue.after(Seconds{0}, [&] {
        log += '(';
        runOneTurn();
        log += ')';
    });
    const auto second = queue.after(Seconds{0}, write('b'));
    runOneTurn();
    EXPECT_EQ(log, "(b)");
}

TEST_F(QtMainQueueTest, HoldsDelaysThatNoIntOfMillisecondsCan) {
    const auto month = queue.after(std::chrono::hours{24 * 60}, write('m'));
    const auto century = queue.after(std::chrono::hours{24 * 36525}, write('c'));
    const auto endless = queue.after(Seconds::max(), write('e'));
    runFor(Seconds{0.005});
    EXPECT_EQ(log, "");
}

TEST_F(QtMainQueueTest, WakesOnceForADeadlineAndNotInBetween) {
    const auto far = queue.after(std::chrono::hours{1}, write('f'));
    TimerEvents events;
    runFor(Seconds{0.03});
    EXPECT_EQ(events.count, 1);
    EXPECT_EQ(log, "");
}

TEST_F(QtMainQueueTest, DoesNotWakeForCancelledWorkOnceSomethingElseWasScheduled) {
    for (int i = 0; i < 10; ++i)
        const auto dropped = queue.after(Seconds{0.001 * i}, write('x'));
    TimerEvents events;
    runFor(Seconds{0.03});
    EXPECT_EQ(events.count, 1);
}

TEST_F(QtMainQueueTest, LetsGoOfCancelledWorkLongBeforeItsDeadline) {
    const Token token = std::make_shared<int>();
    for (int i = 0; i < 1000; ++i)
        const auto dropped = queue.after(std::chrono::hours{24}, [token] { (void)token; });
    EXPECT_LT(token.use_count(), 100);
}

TEST_F(QtMainQueueTest, LetsGoOfWorkThatHasRunThoughItsHandleIsKept) {
    const Token token = std::make_shared<int>();
    const auto kept = queue.after(Seconds{0}, [token] { (void)token; });
    runOneTurn();
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(QtMainQueueTest, LetsGoOfAllWorkWhenItEnds) {
    const Token token = std::make_shared<int>();
    {
        QtMainQueue shortLived;
        shortLived.async([token] { (void)token; });
    }
    EXPECT_EQ(token.use_count(), 1);
}

} // namespace
} // namespace vantrel

int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
