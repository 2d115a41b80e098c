#include "PopupTest.h"

#include <desktop/SettingsDaemon.h>

namespace vantrel::tests {
namespace {

using Button = OtherProgram::Button;
using Kind = OtherProgram::Kind;

INSTANTIATE_TEST_SUITE_P(WindowManager, PopupTest, testing::Values("", "openbox"), nameOfManager);

TEST_P(PopupTest, HangsBeneathItsAnchorInTheMiddle) {
    const QQuickWindow *window = show(*popup, place);
    EXPECT_EQ(window->geometry(), QRect(70, 44, 200, 100));
    EXPECT_EQ(showings, 1);
    EXPECT_TRUE(popup->isShown());
    const QPoint inside = pixel({170.0, 94.0});
    EXPECT_TRUE(waitUntil([&] {
        return QColor(program().picture(QRect(inside, QSize(1, 1))).pixel(0, 0)) ==
               QColor("#008000");
    }));
}

TEST_P(PopupTest, StaysWholeOnTheScreenAtEachEdge) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize size(200, 100);
    for (const QPoint corner :
         {screen.topLeft(), screen.topRight(), screen.bottomLeft(), screen.bottomRight()}) {
        const QRect anchor(corner, QSize());
        const QQuickWindow *window = show(*popup, {anchor});
        EXPECT_TRUE(screen.contains(window->geometry()));
        EXPECT_EQ(window->size(), size);
        const bool isAtLeft = corner.x() == screen.left();
        EXPECT_EQ(isAtLeft ? window->x() - screen.x() : screen.right() - window->geometry().right(),
                  0);
        EXPECT_LE(std::abs(window->geometry().center().y() - corner.y()), 60);
    }
    EXPECT_EQ(showings, 1); // It was only moved.
}

TEST_P(PopupTest, TakesTheKeys) {
    const xcb_window_t other = desktop.show(Kind::ordinary, QRect(20, 400, 100, 100), Qt::red);
    program().focus(other);
    const QQuickWindow *window = show(*popup, place);
    program().strikeKey(keycode::a);
    EXPECT_TRUE(waitUntil([&] { return card(*window).property("typed") == u"a"_qs; }));
}

TEST_P(PopupTest, GivesTheKeysBackWhenItCloses) {
    const xcb_window_t other = desktop.show(Kind::ordinary, QRect(20, 400, 100, 100), Qt::red);
    program().focus(other);
    show(*popup, place);
    popup->close();
    EXPECT_TRUE(waitUntil([&] { return program().focused() == other; }));
    EXPECT_EQ(closings, 1);
}

TEST_P(PopupTest, ClosesOnEscape) {
    const QQuickWindow *window = show(*popup, place);
    program().strikeKey(keycode::escape);
    EXPECT_TRUE(waitUntil([&] { return closings == 1; }));
    EXPECT_FALSE(popup->isShown());
    EXPECT_FALSE(window->isVisible());
}

TEST_P(PopupTest, ClosesOnAClickOnAnotherWindow) {
    desktop.show(Kind::ordinary, QRect(20, 400, 100, 100), Qt::red);
    show(*popup, place);
    program().click({70, 450});
    EXPECT_TRUE(waitUntil([&] { return closings == 1; }));
    EXPECT_FALSE(popup->isShown());
}

TEST_P(PopupTest, ClosesOnAClickOnTheDesktop) {
    for (const Button button : {Button::left, Button::right}) {
        closings = 0;
        show(*popup, place);
        program().pressButton({700, 500}, button);
        program().releaseButton(button);
        EXPECT_TRUE(waitUntil([&] { return closings == 1; }));
        program().strikeKey(keycode::escape); // For the window manager's menu, if there is one.
    }
}

TEST_P(PopupTest, StaysOnAClickInItAndWhenTheWheelTurnsElsewhere) {
    const QQuickWindow *window = show(*popup, place);
    program().pressButton({700, 500}, Button::wheelDown);
    program().releaseButton(Button::wheelDown);
    settle(*window);
    EXPECT_TRUE(popup->isShown());
    EXPECT_EQ(closings, 0);
}

TEST_P(PopupTest, ClosesWhenAnotherWindowGetsTheKeys) {
    const xcb_window_t other = desktop.show(Kind::ordinary, QRect(20, 400, 100, 100), Qt::red);
    show(*popup, place);
    program().focus(other);
    EXPECT_TRUE(waitUntil([&] { return closings == 1; }));
    EXPECT_EQ(program().focused(), other);
}

TEST_P(PopupTest, IsStillShownWhileTheButtonOfAClickElsewhereIsDown) {
    const QPoint item = pixel(QRectF(*place.anchor).center());
    desktop.show(Kind::unmanaged, QRect(item - QPoint(10, 10), QSize(20, 20)), Qt::red);
    const QQuickWindow *window = show(*popup, place);
    program().pressButton(item);
    program().strikeKey(keycode::a);
    EXPECT_TRUE(waitUntil([&] { return card(*window).property("typed") == u"a"_qs; }));
    EXPECT_TRUE(popup->isShown()); // A host that tells of the press finds it to be closed.
    program().releaseButton();
    EXPECT_TRUE(waitUntil([&] { return closings == 1; }));
}

TEST_P(PopupTest, StaysWhenTheClickThatAskedForItEnds) {
    program().pressButton({700, 500});
    const QQuickWindow *window = show(*popup, place);
    program().releaseButton();
    settle(*window);
    EXPECT_TRUE(popup->isShown());
}

TEST_P(PopupTest, ClosesWhenAMonitorGoesOrComes) {
    const auto hasMonitors = [](int count) {
        return waitUntil([count] { return QGuiApplication::screens().size() == count; });
    };
    ASSERT_TRUE(hasMonitors(2));
    const PopupPlace onTheRight{
        QRect(QGuiApplication::screens().back()->geometry().center(), QSize())};
    const QQuickWindow *window = show(*popup, onTheRight);
    disconnectRightMonitor();
    EXPECT_TRUE(waitUntil([&] { return closings == 1; }));
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(hasMonitors(1));
    show(*popup, place);
    connectBothMonitors();
    EXPECT_TRUE(waitUntil([&] { return closings == 2; }));
    EXPECT_TRUE(hasMonitors(2));
}

TEST_P(PopupTest, FollowsTheSizeOfItsContent) {
    const QQuickWindow *window = show(*popup, place);
    card(*window).setImplicitWidth(300);
    card(*window).setImplicitHeight(150);
    EXPECT_TRUE(waitUntil([&] { return window->geometry() == QRect(20, 44, 300, 150); }));
    EXPECT_EQ(card(*window).size(), QSizeF(300, 150));
    card(*window).setImplicitHeight(4000);
    EXPECT_TRUE(waitUntil([&] {
        return window->height() == QGuiApplication::primaryScreen()->availableGeometry().height();
    }));
}

TEST_P(PopupTest, ShowsAgainHoweverQuickly) {
    for (int round = 0; round < 20; ++round) {
        popup->show(place);
        popup->close();
    }
    EXPECT_EQ(showings, 20);
    EXPECT_EQ(closings, 20);
    const QQuickWindow *window = show(*popup, place);
    program().strikeKey(keycode::a);
    EXPECT_TRUE(waitUntil([&] { return card(*window).property("typed") == u"a"_qs; }));
    EXPECT_EQ(showings, 21);
}

TEST_P(PopupTest, MayBeDestroyedFromWithinItsContent) {
    listener.action = [this] { popup.reset(); };
    const QPointer<QQuickWindow> window = show(*popup, place);
    program().click(pixel(QRectF(window->geometry()).center()));
    EXPECT_TRUE(waitUntil([&] { return !popup && !window; }));
    EXPECT_EQ(closings, 0);
}

TEST_P(PopupTest, MayBeDestroyedAsItTellsOfItsClosing) {
    popup = popups.makePopup({u"Popup.Tests"_qs, u"Card"_qs, {}}, {{}, [this] { popup.reset(); }});
    const QPointer<QQuickWindow> window = show(*popup, place);
    program().strikeKey(keycode::escape);
    EXPECT_TRUE(waitUntil([&] { return !popup && !window; }));
}

TEST_P(PopupTest, HasSquareCornersWhereNothingBlendsWindows) {
    const QQuickWindow *window = show(*popup, place);
    EXPECT_EQ(card(*window).property("cornerRadius").toInt(), 0);
    const ChildProcess compositor({"picom", "--backend", "xrender", "--config", "/dev/null"});
    ASSERT_TRUE(waitUntil([&] { return program().isBlended(); }));
    popup->close();
    show(*popup, place);
    EXPECT_EQ(card(*window).property("cornerRadius").toInt(), 16);
}

TEST_P(PopupTest, MovesNothingFromTheNextTimeOnOnceTheDesktopAsksForIt) {
    const QQuickWindow *window = show(*popup, place);
    EXPECT_FALSE(card(*window).property("reducedMotion").toBool());
    const SettingsDaemon daemon(program(), SettingsList().number("Gtk/EnableAnimations", 0).data());
    popup->close();
    show(*popup, place);
    EXPECT_TRUE(card(*window).property("reducedMotion").toBool());
}

TEST_P(PopupTest, ShowsNothingOfAContentThatCannotBeMade) {
    const auto broken = popups.makePopup({u"Popup.Tests"_qs, u"NoSuchType"_qs, {}}, {});
    broken->show(place);
    EXPECT_FALSE(broken->isShown());
    broken->close();
}

TEST_P(PopupTest, NeedsNoAnchor) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QQuickWindow *window = show(*popup, {});
    EXPECT_EQ(window->geometry(), QRect(screen.right() - 207, screen.top() + 8, 200, 100));
}

TEST_P(PopupTest, IsMirroredWhereReadingGoesToTheLeft) {
    const QLocale former;
    QLocale::setDefault(QLocale(QLocale::Arabic));
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(show(*popup, {})->geometry().topLeft(), screen.topLeft() + QPoint(8, 8));
    const PopupPlace leading{QRect(250, 60, 0, 0), PopupAlignment::leading};
    EXPECT_EQ(show(*popup, leading)->geometry(), QRect(50, 60, 200, 100));
    QLocale::setDefault(former);
}

} // namespace
} // namespace vantrel::tests
