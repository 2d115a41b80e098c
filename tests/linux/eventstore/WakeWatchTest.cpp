#include "CapturedLog.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/LocalEventStore.h>
#include <linux/eventstore/StoreAccess.h>
#include <linux/eventstore/WakeWatch.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QLocalServer>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using namespace tests;

constexpr int patience = 20'000; // milliseconds until a test gives up

/// A bus of the test's own with a stand-in for the login manager on it.
class WakeWatchTest : public testing::Test {
protected:
    void SetUp() override {
        m_bus.start(QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--session"), QStringLiteral("--nofork"),
                     QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1")});
        while (!m_bus.canReadLine())
            ASSERT_TRUE(m_bus.waitForReadyRead(patience)) << m_bus.readAllStandardError().data();
        address = QString::fromUtf8(m_bus.readLine()).trimmed();
        manager = QDBusConnection::connectToBus(address, QStringLiteral("test-manager"));
        ASSERT_TRUE(manager.registerService(QStringLiteral("org.freedesktop.login1")));
    }

    void TearDown() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("test-manager"));
        m_bus.terminate();
        m_bus.waitForFinished(patience);
    }

    static void sendSleep(const QDBusConnection &from, bool isGoingToSleep,
                          const QString &path = QStringLiteral("/org/freedesktop/login1")) {
        QDBusMessage signal =
            QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.login1.Manager"),
                                       QStringLiteral("PrepareForSleep"));
        signal << isGoingToSleep;
        ASSERT_TRUE(from.send(signal));
    }

    /// Waits until that many reports have come, and a little for one too many.
    void expectReports(int count) {
        const QDeadlineTimer deadline(patience);
        while (reports < count && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        for (int round = 0; round < 10; ++round)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        EXPECT_EQ(reports, count);
    }

    static void awaitListening(const WakeWatch &watch) {
        const QDeadlineTimer deadline(patience);
        while (!watch.isListening() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        ASSERT_TRUE(watch.isListening());
    }

    QString address;
    QDBusConnection manager{QStringLiteral("none")};
    CapturedLog log;
    int reports = 0;

private:
    QProcess m_bus;
};

TEST_F(WakeWatchTest, TellsThatTheMachineWokeAndNotThatItGoesToSleep) {
    const WakeWatch watch([this] { ++reports; }, address);
    awaitListening(watch);
    sendSleep(manager, true);
    sendSleep(manager, false);
    expectReports(1);
    sendSleep(manager, true);
    sendSleep(manager, false);
    expectReports(2);
    EXPECT_EQ(log.text(), "");
}

TEST_F(WakeWatchTest, BelievesTheLoginManagerAlone) {
    const WakeWatch watch([this] { ++reports; }, address);
    awaitListening(watch);
    const QDBusConnection stranger =
        QDBusConnection::connectToBus(address, QStringLiteral("test-stranger"));
    sendSleep(stranger, false);
    sendSleep(manager, false, QStringLiteral("/elsewhere"));
    sendSleep(manager, false);
    expectReports(1);
    QDBusConnection::disconnectFromBus(QStringLiteral("test-stranger"));
}

TEST_F(WakeWatchTest, HearsALoginManagerThatStartsAgain) {
    const WakeWatch watch([this] { ++reports; }, address);
    awaitListening(watch);
    ASSERT_TRUE(manager.unregisterService(QStringLiteral("org.freedesktop.login1")));
    QDBusConnection next = QDBusConnection::connectToBus(address, QStringLiteral("test-next"));
    ASSERT_TRUE(next.registerService(QStringLiteral("org.freedesktop.login1")));
    // The watch learns of the new owner over the bus, ahead of what that one sends.
    sendSleep(next, false);
    expectReports(1);
    QDBusConnection::disconnectFromBus(QStringLiteral("test-next"));
}

TEST_F(WakeWatchTest, TheStoreAnnouncesThatTheMachineWoke) {
    const QByteArray before = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address.toUtf8());
    fakes::ManualMainQueue queue(fakes::at("2026-03-02T08:00:00"));
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
        sendSleep(manager, false);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    EXPECT_GE(reports, 1);
}

TEST_F(WakeWatchTest, WaitsForNoBusThatTakesCallsAndNeverAnswers) {
    const QTemporaryDir folder;
    QLocalServer mute;
    ASSERT_TRUE(mute.listen(folder.filePath(QStringLiteral("bus"))));
    {
        const WakeWatch watch([this] { ++reports; },
                              QStringLiteral("unix:path=") + mute.fullServerName());
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
        const WakeWatch watch([this] { ++reports; }, address);
        awaitListening(watch);
    }
    sendSleep(manager, false);
    expectReports(0);
}

TEST(WakeWatchWithoutBusTest, StaysQuiet) {
    const CapturedLog log;
    const WakeWatch watch([] {}, QStringLiteral("unix:path=/nonexistent/bus"));
    const QDeadlineTimer deadline(patience);
    while (!log.has("no system bus", "") && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_TRUE(log.has("no system bus", "")) << log.text();
}

} // namespace
} // namespace vantrel
