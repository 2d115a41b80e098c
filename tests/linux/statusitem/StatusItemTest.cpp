#include "StatusItemFixture.h"

#include <session/PrivateBus.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <gmock/gmock.h>

namespace vantrel::tests {

using testing::ElementsAre;

namespace {

QString text(const char *latin1) {
    return QString::fromLatin1(latin1);
}

QJsonObject properties(Panel &panel) {
    return panel.ask(text("properties")).value(u"value").toObject();
}

/// The bytes of a pixel, alpha first.
QByteArray pixel(const QJsonArray &pixmap, int x, int y) {
    const QByteArray bytes = QByteArray::fromBase64(pixmap[2].toString().toLatin1());
    return bytes.mid((y * pixmap[0].toInt() + x) * 4, 4).toHex();
}

} // namespace

TEST_F(StatusItemTest, RegistersWithAWatcherThatIsThere) {
    Panel panel;
    makeItem();
    const QString service = panel.await(text("registered")).value(u"service").toString();
    EXPECT_EQ(service.section(u'-', 0, 1),
              QStringLiteral("org.kde.StatusNotifierItem-%1").arg(getpid()));
    const QJsonObject shown = panel.await(text("item"));
    EXPECT_EQ(shown.value(u"icon"), text("vantrel-pawprint-fill-symbolic"));
    EXPECT_EQ(shown.value(u"title"), text("Vantrel"));
    EXPECT_EQ(shown.value(u"label"), QString());
}

TEST_F(StatusItemTest, RegistersWithAWatcherThatComesLater) {
    makeItem();
    Panel panel({text("--start"), text("later")});
    panel.start();
    panel.await(text("registered"));
    panel.awaitItem(text("title"), text("Vantrel"));
}

TEST_F(StatusItemTest, RegistersAgainWhenThePanelGivesUpItsNameAndTakesItAgain) {
    Panel panel;
    makeItem();
    panel.awaitItem(text("title"), text("Vantrel"));
    panel.stop();
    item->setTitle(titled(text("Stand-up")));
    panel.start();
    panel.await(text("registered"));
    panel.awaitItem(text("title"), text("Stand-up"));
}

TEST_F(StatusItemTest, RegistersWithThePanelThatIsStartedInPlaceOfADeadOne) {
    makeItem();
    {
        Panel first;
        first.awaitItem(text("title"), text("Vantrel"));
    }
    Panel second;
    second.awaitItem(text("title"), text("Vantrel"));
}

TEST_F(StatusItemTest, RegistersAgainAfterTheBusWasRestarted) {
    makeItem();
    {
        Panel first;
        first.awaitItem(text("title"), text("Vantrel"));
    }
    PrivateBus::current().stop();
    item->setTitle(titled(text("Stand-up")));
    PrivateBus::current().start();
    Panel second;
    second.awaitItem(text("title"), text("Stand-up"));
    second.ask(text("activate"), {{text("x"), 310}, {text("y"), 12}});
    EXPECT_EQ(nextClick().place, QRect(310, 12, 0, 0));
    EXPECT_FALSE(second.ask(text("menu")).contains(u"error"));
}

TEST_F(StatusItemTest, LeavesThePanelWhenItIsDestroyed) {
    Panel panel;
    makeItem();
    const QString folder =
        properties((panel.await(text("item")), panel)).value(u"IconThemePath").toString();
    ASSERT_TRUE(QFileInfo::exists(folder + text("/vantrel-pawprint-fill-symbolic.svg")));
    item.reset();
    panel.await(text("gone"));
    EXPECT_FALSE(QFileInfo::exists(folder));
}

TEST_F(StatusItemTest, StandsBesideASecondItem) {
    Panel panel;
    makeItem();
    panel.await(text("registered"));
    const auto other = bar.makeItem({});
    other->setImage(text("pawprint"), text("Other"));
    panel.await(text("registered"));
    panel.awaitItem(text("title"), text("Other"));
}

TEST_F(StatusItemTest, IsEnteredByItsConnectionWhereAnotherProgramHasItsName) {
    QDBusConnection stranger =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, text("stranger"));
    // Items of this process are counted, so one of these numbers is the next one.
    for (int number = 1; number <= 100; ++number)
        stranger.interface()->registerService(
            QStringLiteral("org.kde.StatusNotifierItem-%1-%2").arg(getpid()).arg(number));
    Panel panel;
    makeItem();
    const QString service = panel.await(text("registered")).value(u"service").toString();
    EXPECT_EQ(service.front(), u':');
    EXPECT_NE(service, stranger.baseService());
    panel.awaitItem(text("title"), text("Vantrel"));
    QDBusConnection::disconnectFromBus(text("stranger"));
}

TEST_F(StatusItemTest, ShowsTheTitleAsLabelWithADotWhereTheHostHasLabels) {
    Panel panel;
    makeItem();
    item->setTitle(titled(QStringLiteral("Stand-up • in 5 min")));
    const QJsonObject shown =
        panel.awaitItem(text("label"), QStringLiteral("● Stand-up • in 5 min"));
    EXPECT_EQ(shown.value(u"title"), QStringLiteral("Stand-up • in 5 min"));
    EXPECT_EQ(shown.value(u"icon"), text("vantrel-pawprint-fill-ff8000-symbolic"));
    EXPECT_EQ(shown.value(u"overlay"), QString());
    item->setTitle(std::nullopt);
    panel.awaitItem(text("label"), QString());
}

TEST_F(StatusItemTest, TellsHowWideTheLabelWillBeWithEachChangeOfIt) {
    Panel panel;
    makeItem();
    panel.awaitItem(text("title"), text("Vantrel"));
    item->setTitle(
        StatusTitle{orange, text("Stand-up in 10 min"), text("Stand-up ends in 00 min")});
    const QJsonObject change = panel.await(text("signal"), [](const QJsonObject &signal) {
        return signal.value(u"name") == text("XAyatanaNewLabel");
    });
    EXPECT_EQ(change.value(u"arguments").toArray(),
              (QJsonArray{QStringLiteral("● Stand-up in 10 min"),
                          QStringLiteral("● Stand-up ends in 00 min")}));
    EXPECT_EQ(properties(panel).value(u"XAyatanaLabelGuide"),
              QStringLiteral("● Stand-up ends in 00 min"));
    item->setTitle(titled(text("Retro")));
    panel.awaitItem(text("title"), text("Retro"));
    EXPECT_EQ(properties(panel).value(u"XAyatanaLabelGuide"), QStringLiteral("● Retro"));
}

TEST_F(StatusItemTest, TellsAHostWithoutLabelsTheTitleInNameAndToolTip) {
    Panel panel({text("--label"), text("hidden")});
    makeItem();
    item->setToolTip(text("Stand-up of the whole team"));
    item->setTitle(titled(text("Stand-up")));
    const QJsonObject shown = panel.awaitItem(text("title"), text("Stand-up"));
    EXPECT_TRUE(shown.value(u"label").isNull());
    EXPECT_EQ(
        shown.value(u"tooltip").toArray(),
        (QJsonArray{text("Vantrel"), text("<span>Stand-up\nStand-up of the whole team</span>")}));
}

TEST_F(StatusItemTest, EscapesMarkupInTheToolTipAndNowhereElse) {
    Panel panel;
    makeItem();
    item->setToolTip(text("<b>Q&A</b>"));
    item->setTitle(titled(text("<b>Q&A</b>")));
    const QJsonObject shown = panel.awaitItem(text("title"), text("<b>Q&A</b>"));
    EXPECT_EQ(shown.value(u"label"), QStringLiteral("● <b>Q&A</b>"));
    EXPECT_EQ(shown.value(u"tooltip").toArray()[1],
              text("<span>&lt;b&gt;Q&amp;A&lt;/b&gt;\n&lt;b&gt;Q&amp;A&lt;/b&gt;</span>"));
}

TEST_F(StatusItemTest, HasPicturesInEverySizeWithTheDotAtTheLowerRight) {
    Panel panel;
    makeItem();
    item->setTitle(titled(text("Stand-up")));
    panel.awaitItem(text("title"), text("Stand-up"));
    const QJsonArray pixmaps = properties(panel).value(u"IconPixmap").toArray();
    std::vector<int> sides;
    for (const QJsonValue &pixmap : pixmaps) {
        const int side = pixmap[0].toInt();
        sides.push_back(side);
        EXPECT_EQ(pixmap[1].toInt(), side);
        EXPECT_EQ(pixel(pixmap.toArray(), 1, 1), "ff828282");
        EXPECT_EQ(pixel(pixmap.toArray(), side - side / 5, side - side / 5), "ffff8000");
    }
    EXPECT_THAT(sides, ElementsAre(16, 22, 24, 32, 48, 64));
}

TEST_F(StatusItemTest, AnswersEveryPropertyThatHostsAskFor) {
    Panel panel;
    makeItem();
    panel.awaitItem(text("title"), text("Vantrel"));
    const QJsonObject all = properties(panel);
    EXPECT_EQ(all.value(u"Category"), text("ApplicationStatus"));
    EXPECT_EQ(all.value(u"Id"), text("vantrel"));
    EXPECT_EQ(all.value(u"Status"), text("Active"));
    EXPECT_EQ(all.value(u"ItemIsMenu"), false);
    EXPECT_EQ(all.value(u"Menu"), text("/MenuBar"));
    EXPECT_EQ(all.value(u"IconAccessibleDesc"), text("Vantrel"));
    EXPECT_EQ(all.value(u"XAyatanaOrderingIndex"), 0);
    EXPECT_EQ(all.value(u"OverlayIconName"), QString());
    EXPECT_EQ(all.value(u"AttentionIconName"), QString());
    EXPECT_EQ(all.size(), 20);
}

TEST_F(StatusItemTest, TellsOfAChangeOnceAndOfNoneNever) {
    Panel panel;
    makeItem();
    panel.awaitItem(text("title"), text("Vantrel"));
    panel.takeSignals();

    item->setTitle(titled(text("Stand-up")));
    EXPECT_THAT(panel.takeSignals(),
                ElementsAre(text("NewIconThemePath"), text("NewIcon"), text("NewTitle"),
                            text("NewToolTip"), text("XAyatanaNewLabel")));
    item->setTitle(titled(text("Retro")));
    EXPECT_THAT(panel.takeSignals(),
                ElementsAre(text("NewTitle"), text("NewToolTip"), text("XAyatanaNewLabel")));
    item->setTitle(titled(text("Retro")));
    item->setImage(text("pawprint.fill"), text("Vantrel"));
    item->setToolTip(text("Vantrel"));
    EXPECT_THAT(panel.takeSignals(), ElementsAre());
    item->setImage(text("pawprint"), text("Vantrel"));
    EXPECT_THAT(panel.takeSignals(), ElementsAre(text("NewIconThemePath"), text("NewIcon")));
}

TEST_F(StatusItemTest, HandsOnAnActivationWithItsPlace) {
    Panel panel;
    makeItem();
    panel.await(text("registered"));
    panel.ask(text("activate"), {{text("x"), 310}, {text("y"), 12}});
    const StatusItemClick click = nextClick();
    EXPECT_EQ(click.button, PointerButton::left);
    EXPECT_FALSE(click.hasControl);
    EXPECT_EQ(click.place, QRect(310, 12, 0, 0));
}

TEST_F(StatusItemTest, KnowsNoPlaceWhereTheHostTellsNone) {
    Panel panel;
    makeItem();
    panel.await(text("registered"));
    panel.ask(text("activate"));
    EXPECT_EQ(nextClick().place, std::nullopt);
    panel.ask(text("activate"), {{text("x"), -2000000000}, {text("y"), 2000000000}});
    EXPECT_EQ(nextClick().place, std::nullopt);
}

TEST_F(StatusItemTest, TakesTheSecondaryActivationsForTheRightButton) {
    Panel panel;
    makeItem();
    panel.await(text("registered"));
    for (const QString &command : {text("secondary-activate"), text("context-menu")}) {
        panel.ask(command, {{text("x"), 5}, {text("y"), 6}});
        const StatusItemClick click = nextClick();
        EXPECT_EQ(click.button, PointerButton::right);
        EXPECT_EQ(click.place, QRect(5, 6, 0, 0));
    }
}

TEST_F(StatusItemTest, TakesTheMiddleButtonOfHostsThatHaveTheMenuOnTheOthersForTheLeftOne) {
    Panel panel;
    makeItem();
    panel.await(text("registered"));
    panel.ask(text("call"), {{text("on"), text("item")},
                             {text("member"), text("XAyatanaSecondaryActivate")},
                             {text("signature"), text("u")},
                             {text("arguments"), QJsonArray{12345}}});
    const StatusItemClick click = nextClick();
    EXPECT_EQ(click.button, PointerButton::left);
    EXPECT_EQ(click.place, std::nullopt);
}

TEST_F(StatusItemTest, LetsScrollingBe) {
    Panel panel;
    makeItem();
    panel.await(text("registered"));
    EXPECT_FALSE(panel.ask(text("scroll")).contains(u"error"));
    panel.ask(text("activate"), {{text("x"), 7}, {text("y"), 7}});
    EXPECT_EQ(nextClick().place, QRect(7, 7, 0, 0));
    EXPECT_TRUE(clicks.empty());
}

TEST_F(StatusItemTest, MayBeDestroyedByItsOwnClick) {
    Panel panel;
    item = bar.makeItem({[this](const StatusItemClick &) { item.reset(); }, {}});
    item->setImage(text("pawprint"), text("Vantrel"));
    panel.await(text("registered"));
    panel.ask(text("activate"));
    panel.await(text("gone"));
    EXPECT_EQ(item, nullptr);
}

TEST_F(StatusItemTest, WaitsQuietlyWithoutASessionBus) {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    makeItem();
    item->setTitle(titled(text("Stand-up")));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    Panel panel;
    bool hasPassed = false;
    queue.async([&] { hasPassed = true; });
    EXPECT_TRUE(waitUntil([&] { return hasPassed; }));
    EXPECT_EQ(panel.ask(text("properties")).value(u"error"), text("no item"));
}

} // namespace vantrel::tests
