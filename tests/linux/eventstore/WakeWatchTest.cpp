#include "CapturedLog.h"
#include "LoginManager.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/LocalEventStore.h>
#include <linux/eventstore/StoreAccess.h>
#include <linux/eventstore/WakeWatch.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLocalServer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using namespace tests;

constexpr int patience = 20'000; // milliseconds until a test gives up

class WakeWatchTest : public testing::Test {
protected:
    /// Waits until that many reports have come, and a little for one too many.
    void expectReports(int count) {
        const QDeadlineTimer deadline(patience);
        while (reports < count && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        for (int round = 0; round < 10; ++round)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        EXPECT_EQ(reports, count);
    }

    /// Lets the event loop run until the condition holds; the clock stands still.
    template <typename Condition>
    void settle(Condition condition) {
        const QDeadlineTimer deadline(patience);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired()) << log.text();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    static void awaitListening(const WakeWatch &watch) {
        const QDeadlineTimer deadline(patience);
        while (!watch.isListening() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        ASSERT_TRUE(watch.isListening());
    }

    fakes::ManualMainQueue queue{fakes::at("2026-03-02T08:00:00")};
    LoginManager manager;
    CapturedLog log;
    int reports = 0;
};

TEST_F(WakeWatchTest, TellsThatTheMachineWokeAndNotThatItGoesToSleep) {
    const WakeWatch watch(
        queue, [this] { ++reports; }, manager.address());
    awaitListening(watch);
    manager.announceSleep();
    manager.announceWaking();
    expectReports(1);
    manager.announceSleep();
    manager.announceWaking();
    expectReports(2);
    EXPECT_EQ(log.text(), "");
}

TEST_F(WakeWatchTest, BelievesTheLoginManagerAlone) {
    const WakeWatch watch(
        queue, [this] { ++reports; }, manager.address());
    awaitListening(watch);
    LoginManager::send(manager.stranger(), false);
    LoginManager::send(manager.connection(), false, QStringLiteral("/elsewhere"));
    manager.announceWaking();
    expectReports(1);
}

TEST_F(WakeWatchTest, HearsALoginManagerThatStartsAgain) {
    const WakeWatch watch(
        queue, [this] { ++reports; }, manager.address());
    awaitListening(watch);
    QDBusConnection next = manager.stranger();
    manager.passNameTo(next);
    // The watch learns of the new owner over the bus, ahead of what that one sends.
    LoginManager::send(next, false);
    expectReports(1);
}

TEST_F(WakeWatchTest, HearsTheLoginManagerOnABusThatCameBack) {
    const WakeWatch watch(
        queue, [this] { ++reports; }, manager.address());
    awaitListening(watch);
    manager.endBus();
    settle([&] { return !watch.isListening(); });
    EXPECT_TRUE(log.has("the system bus went away", "")) << log.text();
    manager.startBus();
    queue.advance(Seconds{1.0});
    awaitListening(watch);
    EXPECT_TRUE(log.has("the system bus is back", "")) << log.text();
    manager.announceWaking();
    expectReports(1);
}

TEST_F(WakeWatchTest, TriesABusThatWentAwayWithGrowingPauses) {
    const WakeWatch watch(
        queue, [this] { ++reports; }, manager.address());
    awaitListening(watch);
    manager.endBus();
    for (const double pause : {1.0, 2.0, 4.0, 8.0}) {
        settle([this] { return queue.pendingCount() == 1; });
        queue.advance(Seconds{pause - 0.01});
        EXPECT_EQ(queue.pendingCount(), 1U) << pause;
        queue.advance(Seconds{0.02});
        EXPECT_EQ(queue.pendingCount(), 0U) << pause;
    }
    settle([this] { return queue.pendingCount() == 1; });
    EXPECT_EQ(log.lines().size(), 1U) << log.text();
}

TEST_F(WakeWatchTest, TheStoreAnnouncesThatTheMachineWoke) {
    const QByteArray before = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", manager.address().toUtf8());
    LocalEventStore store(
        queue, StoreConfiguration(), [] { return fakes::calendarIn("UTC"); },
        StoreAccess::granted());
    store.start();
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", before);
    const QDeadlineTimer deadline(patience);
    while (!store.isLoaded() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    const auto subscription = store.changed.subscribe([this] { ++reports; });
    queue.suspend(Seconds{28800.0});
    // Nobody outside knows from when on the store listens.
    while (reports == 0 && !deadline.hasExpired()) {
        manager.announceWaking();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    EXPECT_GE(reports, 1);
}

TEST_F(WakeWatchTest, WaitsForNoBusThatTakesCallsAndNeverAnswers) {
    const QTemporaryDir folder;
    QLocalServer mute;
    ASSERT_TRUE(mute.listen(folder.filePath(QStringLiteral("bus"))));
    {
        const WakeWatch watch(
            queue, [this] { ++reports; }, QStringLiteral("unix:path=") + mute.fullServerName());
        const QDeadlineTimer deadline(patience);
        while (!mute.hasPendingConnections() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        EXPECT_TRUE(mute.hasPendingConnections());
        EXPECT_FALSE(watch.isListening());
    }
    EXPECT_EQ(reports, 0);
}

TEST_F(WakeWatchTest, SaysNothingOnceItIsGone) {
    {
        const WakeWatch watch(
            queue, [this] { ++reports; }, manager.address());
        awaitListening(watch);
    }
    manager.announceWaking();
    expectReports(0);
}

TEST(WakeWatchWithoutBusTest, StaysQuiet) {
    const CapturedLog log;
    fakes::ManualMainQueue queue(fakes::at("2026-03-02T08:00:00"));
    const WakeWatch watch(
        queue, [] {}, QStringLiteral("unix:path=/nonexistent/bus"));
    const QDeadlineTimer deadline(patience);
    while (!log.has("no system bus", "") && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_TRUE(log.has("no system bus", "")) << log.text();
    EXPECT_EQ(queue.pendingCount(), 0U);
}

} // namespace
} // namespace vantrel
