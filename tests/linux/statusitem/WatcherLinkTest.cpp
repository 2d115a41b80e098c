#include "Panel.h"

#include <fakes/ManualMainQueue.h>
#include <linux/statusitem/WatcherLink.h>

#include <gmock/gmock.h>

#include <optional>
#include <vector>

namespace vantrel::tests {

using testing::ElementsAre;

class WatcherLinkTest : public testing::Test {
protected:
    WatcherLinkTest()
        : bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                            QStringLiteral("watcher-link"))) {}

    ~WatcherLinkTest() override {
        link.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("watcher-link"));
    }

    void makeLink() {
        link.emplace(queue, bus, bus.baseService(),
                     [this](bool isShown) { presence.push_back(isShown); });
    }

    bool isTold(std::size_t times) {
        return waitUntil([&] { return presence.size() >= times; });
    }

    static void setHost(Panel &panel, bool isThere) {
        panel.ask(QStringLiteral("host"), {{QStringLiteral("there"), isThere}});
    }

    /// Until the link has asked and heard about the host, which it tells nobody for the time being.
    bool isWaitingForHost() {
        return waitUntil([this] { return queue.pendingCount() > 0; });
    }

    fakes::ManualMainQueue queue{Instant{Seconds{0.0}}};
    QDBusConnection bus;
    std::vector<bool> presence;
    std::optional<WatcherLink> link;
};

TEST_F(WatcherLinkTest, CountsAWatcherWithAHostAtOnce) {
    const Panel panel;
    makeLink();
    ASSERT_TRUE(isTold(1));
    EXPECT_THAT(presence, ElementsAre(true));
}

TEST_F(WatcherLinkTest, CountsAWatcherWithoutAHostForNoneAfterAMoment) {
    Panel panel({QStringLiteral("--host"), QStringLiteral("later")});
    makeLink();
    ASSERT_TRUE(isWaitingForHost());
    queue.advance(WatcherLink::patienceWithHost - Seconds{0.1});
    EXPECT_THAT(presence, ElementsAre());
    queue.advance(Seconds{0.1});
    EXPECT_THAT(presence, ElementsAre(false));
    setHost(panel, true);
    ASSERT_TRUE(isTold(2));
    EXPECT_THAT(presence, ElementsAre(false, true));
}

TEST_F(WatcherLinkTest, TellsNothingOfAHostThatIsRestarted) {
    Panel panel;
    makeLink();
    ASSERT_TRUE(isTold(1));
    setHost(panel, false);
    ASSERT_TRUE(isWaitingForHost());
    setHost(panel, true);
    ASSERT_TRUE(waitUntil([this] { return queue.pendingCount() == 0; }));
    queue.advance(WatcherLink::patienceWithHost);
    EXPECT_THAT(presence, ElementsAre(true));
}

TEST_F(WatcherLinkTest, TellsOfAHostThatStaysAway) {
    Panel panel;
    makeLink();
    ASSERT_TRUE(isTold(1));
    setHost(panel, false);
    ASSERT_TRUE(isWaitingForHost());
    queue.advance(WatcherLink::patienceWithHost);
    EXPECT_THAT(presence, ElementsAre(true, false));
}

TEST_F(WatcherLinkTest, CountsAWatcherThatRefusesTheItemForNone) {
    const Panel panel({QStringLiteral("--items"), QStringLiteral("refused")});
    makeLink();
    ASSERT_TRUE(isTold(1));
    EXPECT_THAT(presence, ElementsAre(false));
}

TEST_F(WatcherLinkTest, DoesNotWaitForTheHostOfAWatcherThatGoes) {
    Panel panel({QStringLiteral("--host"), QStringLiteral("later")});
    makeLink();
    ASSERT_TRUE(isWaitingForHost());
    panel.stop();
    ASSERT_TRUE(isTold(1));
    queue.advance(WatcherLink::patienceWithHost);
    EXPECT_THAT(presence, ElementsAre(false));
}

} // namespace vantrel::tests
