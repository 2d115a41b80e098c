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

} // namespace vantrel::tests
