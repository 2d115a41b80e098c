#include "StatusItemFixture.h"
#include "Tray.h"

#include <session/PrivateBus.h>

#include <QCursor>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>
#include <optional>

namespace vantrel::tests {

namespace {

const QColor squareOnDarkGround(0xE0, 0xE0, 0xE0); ///< The symbol where the panel is dark.
const QColor squareOfUnknownGround(0x82, 0x82, 0x82);

class TrayIconTest : public StatusItemTest {
protected:
    /// Waits until the tray shows the colour at a place.
    static testing::AssertionResult shows(const Tray &tray, QPoint place, const QColor &color) {
        const bool isShown =
            waitUntil([&] { return tray.picture().pixelColor(place) == color; }, Looking::often);
        return isShown ? testing::AssertionSuccess()
                       : testing::AssertionFailure()
                             << "it shows " << qPrintable(tray.picture().pixelColor(place).name());
    }

    static bool isDocked(const std::optional<Tray> &tray) {
        return waitUntil([&] { return tray->docked().has_value(); });
    }
};

} // namespace

TEST_F(TrayIconTest, DocksWhereThereIsATrayAndNoWatcher) {
    std::optional<Tray> tray(std::in_place);
    makeItem();
    ASSERT_TRUE(isDocked(tray));
    EXPECT_TRUE(shows(*tray, {15, 15}, squareOnDarkGround));
    EXPECT_EQ(tray->depthOfDocked(), 24);
    EXPECT_EQ(tray->nameOfDocked(), "Vantrel");
}

TEST_F(TrayIconTest, DocksIntoATrayThatComesLater) {
    makeItem();
    Panel panel;
    panel.await(QStringLiteral("registered"));
    panel.stop();
    std::optional<Tray> tray(std::in_place);
    EXPECT_TRUE(isDocked(tray));
}

TEST_F(TrayIconTest, DocksAgainAfterTheTrayWasRestarted) {
    std::optional<Tray> tray(std::in_place);
    makeItem();
    ASSERT_TRUE(isDocked(tray));
    tray.reset();
    tray.emplace();
    ASSERT_TRUE(isDocked(tray));
    EXPECT_TRUE(shows(*tray, {15, 15}, squareOnDarkGround));
}

TEST_F(TrayIconTest, GoesWhenAWatcherAppearsAndComesBackWhenItGoes) {
    std::optional<Tray> tray(std::in_place);
    makeItem();
    ASSERT_TRUE(isDocked(tray));
    Panel panel;
    panel.await(QStringLiteral("registered"));
    EXPECT_TRUE(waitUntil([&] { return !tray->docked(); }));
    panel.stop();
    EXPECT_TRUE(isDocked(tray));
}

TEST_F(TrayIconTest, StandsInForAWatcherWithoutAHostUntilOneComes) {
    std::optional<Tray> tray(std::in_place);
    Panel panel({QStringLiteral("--host"), QStringLiteral("later")});
    makeItem();
    panel.await(QStringLiteral("registered"));
    ASSERT_TRUE(isDocked(tray));
    panel.ask(QStringLiteral("host"), {{QStringLiteral("there"), true}});
    EXPECT_TRUE(waitUntil([&] { return !tray->docked(); }));
}

TEST_F(TrayIconTest, StandsInForAWatcherThatRefusesTheItem) {
    std::optional<Tray> tray(std::in_place);
    const Panel panel({QStringLiteral("--items"), QStringLiteral("refused")});
    makeItem();
    EXPECT_TRUE(isDocked(tray));
}

TEST_F(TrayIconTest, StandsInForAPanelWhoseBusWasLost) {
    std::optional<Tray> tray(std::in_place);
    auto panel = std::make_unique<Panel>();
    makeItem();
    panel->await(QStringLiteral("registered"));
    EXPECT_FALSE(tray->docked());
    panel.reset();
    PrivateBus::current().stop();
    EXPECT_TRUE(isDocked(tray));
    PrivateBus::current().start();
    panel = std::make_unique<Panel>();
    panel->await(QStringLiteral("registered"));
    EXPECT_TRUE(waitUntil([&] { return !tray->docked(); }));
}

TEST_F(TrayIconTest, DocksWhereThereIsNoSessionBus) {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    std::optional<Tray> tray(std::in_place);
    makeItem();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    EXPECT_TRUE(isDocked(tray));
}

TEST_F(TrayIconTest, GoesWithTheItem) {
    std::optional<Tray> tray(std::in_place);
    makeItem();
    ASSERT_TRUE(isDocked(tray));
    item.reset();
    EXPECT_TRUE(waitUntil([&] { return !tray->docked(); }));
}

TEST_F(TrayIconTest, LetsTheTraysGroundShowAroundTheDotOfATitle) {
    std::optional<Tray> tray(std::in_place);
    makeItem();
    item->setTitle(titled(QStringLiteral("Stand-up")));
    ASSERT_TRUE(isDocked(tray));
    EXPECT_TRUE(shows(*tray, {23, 23}, QColor(0xff, 0x80, 0x00)));
    EXPECT_TRUE(shows(*tray, {29, 29}, Tray::ground));
    EXPECT_EQ(tray->nameOfDocked(), "Stand-up");
    item->setTitle(std::nullopt);
    EXPECT_TRUE(shows(*tray, {23, 23}, squareOnDarkGround));
}

TEST_F(TrayIconTest, TakesTheVisualOfATrayThatBlends) {
    std::optional<Tray> tray(std::in_place, Tray::Visual::withAlpha);
    makeItem();
    ASSERT_TRUE(isDocked(tray));
    EXPECT_EQ(tray->depthOfDocked(), 32);
    EXPECT_TRUE(shows(*tray, {15, 15}, squareOfUnknownGround));
}

TEST_F(TrayIconTest, TellsClicksWithButtonControlKeyAndTheItemsPlace) {
    std::optional<Tray> tray(std::in_place);
    makeItem();
    ASSERT_TRUE(isDocked(tray));
    ASSERT_TRUE(shows(*tray, {29, 29}, squareOnDarkGround)); // It has its size.
    const double scale = qGuiApp->devicePixelRatio();
    const QRect place((QPointF(Tray::frame.topLeft()) / scale).toPoint(),
                      (QSizeF(30, 30) / scale).toSize());

    tray->release(1, 0);
    StatusItemClick click = nextClick();
    EXPECT_EQ(click.button, PointerButton::left);
    EXPECT_FALSE(click.hasControl);
    EXPECT_EQ(click.place, place);

    tray->release(1, XCB_MOD_MASK_CONTROL);
    EXPECT_TRUE(nextClick().hasControl);

    for (const xcb_button_t button : {3, 2}) {
        tray->release(button, 0);
        click = nextClick();
        EXPECT_EQ(click.button, PointerButton::right);
        EXPECT_EQ(click.place, place);
    }
}

TEST_F(TrayIconTest, LeavesTheWheelAndAButtonLetGoOfElsewhereAlone) {
    std::optional<Tray> tray(std::in_place);
    makeItem();
    ASSERT_TRUE(isDocked(tray));
    tray->release(4, 0);
    tray->release(1, 0, {-5, 3});
    tray->release(1, 0, {500, 3});
    tray->release(3, 0);
    EXPECT_EQ(nextClick().button, PointerButton::right);
    EXPECT_TRUE(clicks.empty());
}

TEST_F(TrayIconTest, PlacesAClickOfAHostThatTellsNoPlaceAtThePointer) {
    Panel panel;
    makeItem();
    panel.await(QStringLiteral("registered"));
    QCursor::setPos(321, 123);
    panel.ask(QStringLiteral("call"),
              {{QStringLiteral("on"), QStringLiteral("item")},
               {QStringLiteral("member"), QStringLiteral("XAyatanaSecondaryActivate")},
               {QStringLiteral("signature"), QStringLiteral("u")},
               {QStringLiteral("arguments"), QJsonArray{12345}}});
    EXPECT_EQ(nextClick().place, QRect(321, 123, 0, 0));
}

TEST_F(TrayIconTest, CountsTheControlKeyThatIsHeldAsAHostTellsOfAClick) {
    Panel panel;
    makeItem();
    panel.await(QStringLiteral("registered"));
    const QString program = QStringLiteral("xdotool");
    const QString key = QStringLiteral("Control_L");
    ASSERT_EQ(QProcess::execute(program, {QStringLiteral("keydown"), key}), 0);
    panel.ask(QStringLiteral("activate"));
    const StatusItemClick click = nextClick();
    EXPECT_EQ(click.button, PointerButton::left);
    EXPECT_TRUE(click.hasControl);
    ASSERT_EQ(QProcess::execute(program, {QStringLiteral("keyup"), key}), 0);
    panel.ask(QStringLiteral("activate"));
    EXPECT_FALSE(nextClick().hasControl);
}

TEST_F(TrayIconTest, PlacesAClickOfAHostInDeviceIndependentPixels) {
    Panel panel;
    makeItem();
    panel.await(QStringLiteral("registered"));
    panel.ask(QStringLiteral("activate"), {{QStringLiteral("x"), 300}, {QStringLiteral("y"), 60}});
    const double scale = qGuiApp->devicePixelRatio();
    EXPECT_EQ(nextClick().place, QRect((QPointF(300, 60) / scale).toPoint(), QSize(0, 0)));
}

TEST_F(TrayIconTest, IsSeenInTheTrayOfARealPanel) {
    QTemporaryDir home;
    QFile settings(home.filePath(QStringLiteral("tint2rc")));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("panel_items = S\npanel_size = 100% 30\n");
    settings.close();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), home.path());
    QProcess windowManager; // Without one tint2 waits for one.
    windowManager.start(QStringLiteral("openbox"), QStringList{});
    ASSERT_TRUE(windowManager.waitForStarted());
    QProcess panel;
    panel.setProcessEnvironment(environment);
    panel.setProcessChannelMode(QProcess::MergedChannels);
    panel.start(QStringLiteral("tint2"), {QStringLiteral("-c"), settings.fileName()});
    ASSERT_TRUE(panel.waitForStarted());
    makeItem();
    item->setTitle(titled(QStringLiteral("Stand-up")));
    const X11Link link([](const xcb_generic_event_t &) {});
    const auto countOfDotPixels = [&] {
        const XReply<xcb_get_image_reply_t> reply(
            xcb_get_image_reply(link.connection(),
                                xcb_get_image(link.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP,
                                              link.screen().root, 0, 0, 800, 600, ~0U),
                                nullptr));
        const auto *first =
            reinterpret_cast<const std::uint32_t *>(xcb_get_image_data(reply.get()));
        return std::count_if(first, first + 800 * 600,
                             [](std::uint32_t pixel) { return (pixel & 0xffffff) == 0xff8000; });
    };
    EXPECT_TRUE(waitUntil([&] { return countOfDotPixels() > 10; }, Looking::often));
    for (QProcess *program : {&panel, &windowManager}) {
        program->terminate();
        program->waitForFinished();
    }
}

} // namespace vantrel::tests
