#include <fakes/ManualMainQueue.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <linux/sessionbus/SessionBusLink.h>
#include <session/PrivateBus.h>
#include <session/Waiting.h>

#include <QDBusConnectionInterface>

#include <gtest/gtest.h>

#include <memory>

namespace vantrel::tests {

class SessionBusLinkTest : public testing::Test {
protected:
    void makeLink() {
        link = std::make_unique<SessionBusLink>(
            queue, QStringLiteral("test-link"),
            SessionBusLink::Listener{[this](const QDBusConnection &bus) {
                                         ++timesConnected;
                                         name = bus.baseService();
                                     },
                                     [this] { ++timesMissing; }});
    }

    bool isConnected(int times) {
        return waitUntil([this, times] { return timesConnected >= times; });
    }
    bool isMissing(int times) {
        return waitUntil([this, times] { return timesMissing >= times; });
    }

    QtMainQueue queue;
    int timesConnected = 0;
    int timesMissing = 0;
    QString name;
    std::unique_ptr<SessionBusLink> link;
};

TEST_F(SessionBusLinkTest, ConnectsFromTheEventLoopAndNotBefore) {
    makeLink();
    EXPECT_FALSE(link->isKnown());
    ASSERT_TRUE(isConnected(1));
    EXPECT_TRUE(link->bus()->isConnected());
    EXPECT_EQ(timesMissing, 0);
}

TEST_F(SessionBusLinkTest, ConnectsAgainAfterTheBusWasRestarted) {
    makeLink();
    ASSERT_TRUE(isConnected(1));
    PrivateBus::current().stop();
    ASSERT_TRUE(isMissing(1));
    EXPECT_EQ(link->bus(), std::nullopt);
    PrivateBus::current().start();
    ASSERT_TRUE(isConnected(2));
    EXPECT_TRUE(link->bus()->interface()->isServiceRegistered(name));
    EXPECT_EQ(timesMissing, 1);
}

TEST_F(SessionBusLinkTest, ConnectsToABusThatComesLater) {
    PrivateBus::current().stop();
    makeLink();
    ASSERT_TRUE(isMissing(1));
    PrivateBus::current().start();
    ASSERT_TRUE(isConnected(1));
    EXPECT_EQ(timesMissing, 1);
}

TEST_F(SessionBusLinkTest, LooksForNoneWhereTheEnvironmentNamesNone) {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    makeLink();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    EXPECT_FALSE(link->isKnown());
    ASSERT_TRUE(isMissing(1));
    EXPECT_TRUE(link->isKnown());
}

TEST_F(SessionBusLinkTest, MayGoWhileItConnects) {
    makeLink();
    link.reset();
    bool hasPassed = false;
    queue.async([&] { hasPassed = true; });
    EXPECT_TRUE(waitUntil([&] { return hasPassed; }));
    EXPECT_EQ(timesConnected, 0);
}

/// With time in the test's hand.
class SessionBusLinkPausesTest : public testing::Test {
protected:
    bool isConnected(int times) {
        return waitUntil([this, times] { return timesConnected >= times; });
    }

    /// Restarts the bus once the link has noticed its end.
    bool dropConnection() {
        PrivateBus::current().stop();
        const bool isLost = waitUntil([this] {
            queue.runDue();
            return !link.bus();
        });
        PrivateBus::current().start();
        return isLost;
    }

    fakes::ManualMainQueue queue{Instant{Seconds{0.0}}};
    int timesConnected = 0;
    SessionBusLink link{queue,
                        QStringLiteral("test-link"),
                        {[this](const QDBusConnection &) { ++timesConnected; }, [] {}}};
};

TEST_F(SessionBusLinkPausesTest, GrowWithEachConnectionThatDidNotLast) {
    ASSERT_TRUE(isConnected(1));
    for (const Seconds pause : {Seconds{1.0}, Seconds{2.0}, Seconds{4.0}}) {
        ASSERT_TRUE(dropConnection());
        queue.advance(pause - Seconds{0.1});
        EXPECT_EQ(queue.pendingCount(), 1U); // It waits for its next attempt.
        queue.advance(Seconds{0.1});
        EXPECT_EQ(queue.pendingCount(), 0U);
        ASSERT_TRUE(isConnected(timesConnected + 1));
    }
}

TEST_F(SessionBusLinkPausesTest, BeginAnewAfterAConnectionThatLasted) {
    ASSERT_TRUE(isConnected(1));
    ASSERT_TRUE(dropConnection());
    queue.advance(Seconds{1.0});
    ASSERT_TRUE(isConnected(2));
    queue.advance(SessionBusLink::lasting);
    ASSERT_TRUE(dropConnection());
    queue.advance(Seconds{1.0});
    EXPECT_TRUE(isConnected(3));
}

} // namespace vantrel::tests
