#include <linux/views/ViewEngine.h>
#include <linux/windows/QtWindow.h>
#include <linux/windows/QtWindows.h>

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>

#include <desktop/Desktop.h>
#include <desktop/SettingsDaemon.h>
#include <gtest/gtest.h>

#include <memory>

namespace vantrel::tests {
namespace {

using Kind = OtherProgram::Kind;

/// Real windows on a real X server, under a window manager.
class WindowTest : public testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<DesktopWindow> make(WindowLevel level = WindowLevel::normal,
                                                      const QString &type = u"Page"_qs,
                                                      WindowSizing sizing = WindowSizing::free) {
        return windows.makeWindow({u"Windows.Tests"_qs, type, {}},
                                  {u"A Title"_qs, {320, 240}, {200, 160}, level, sizing});
    }

    /// Shows it and waits until it can be seen with the keyboard in it.
    QQuickWindow &show(DesktopWindow &shown) {
        shown.show();
        QQuickWindow *window = dynamic_cast<QtWindow &>(shown).window();
        EXPECT_TRUE(waitUntil(
            [&] { return window->isExposed() && QGuiApplication::focusWindow() == window; }));
        return *window;
    }

    [[nodiscard]] static QQuickItem &page(const QQuickWindow &window) {
        return *window.contentItem()->childItems().front();
    }

    Desktop desktop{"openbox"};
    ViewEngine views;
    QtWindows windows{views};
};

TEST_F(WindowTest, StandsInTheMiddleOfTheScreenWithThePointerAtItsSize) {
    const auto window = make();
    const QQuickWindow &shown = show(*window);
    EXPECT_EQ(shown.size(), QSize(320, 240));
    EXPECT_EQ(shown.minimumSize(), QSize(200, 160));
    EXPECT_EQ(shown.title(), u"A Title");
    const QPoint middle = shown.screen()->availableGeometry().center();
    EXPECT_LE((shown.frameGeometry().center() - middle).manhattanLength(), 60);
}

TEST_F(WindowTest, MovesNothingFromTheNextTimeOnOnceTheDesktopAsksForIt) {
    const auto window = make();
    const QQuickWindow &shown = show(*window);
    EXPECT_FALSE(page(shown).property("reducedMotion").toBool());
    const SettingsDaemon daemon(desktop.program(),
                                SettingsList().number("Gtk/EnableAnimations", 0).data());
    window->hide();
    show(*window);
    EXPECT_TRUE(page(shown).property("reducedMotion").toBool());
}

TEST_F(WindowTest, FillsTheWindowWithItsContentAtEverySize) {
    const auto window = make();
    QQuickWindow &shown = show(*window);
    EXPECT_EQ(page(shown).size(), QSizeF(320, 240));
    shown.resize(400, 300);
    EXPECT_TRUE(waitUntil([&] { return page(shown).size() == QSizeF(400, 300); }));
}

TEST_F(WindowTest, GetsTheKeys) {
    const auto window = make();
    const QQuickWindow &shown = show(*window);
    desktop.program().strikeKey(keycode::a);
    EXPECT_TRUE(waitUntil([&] { return page(shown).property("typed") == u"a"_qs; }));
}

TEST_F(WindowTest, ComesBackAsItWasAfterItWasClosed) {
    const auto window = make();
    QQuickWindow &shown = show(*window);
    page(shown).setProperty("typed", u"kept"_qs);
    shown.close();
    EXPECT_TRUE(waitUntil([&] { return !shown.isVisible(); }));
    show(*window);
    EXPECT_EQ(page(shown).property("typed"), u"kept"_qs);
}

TEST_F(WindowTest, ComesBackAsItWasAfterItWasHidden) {
    const auto window = make();
    window->hide();
    QQuickWindow &shown = show(*window);
    page(shown).setProperty("typed", u"kept"_qs);
    window->hide();
    EXPECT_FALSE(shown.isVisible());
    show(*window);
    EXPECT_EQ(page(shown).property("typed"), u"kept"_qs);
}

TEST_F(WindowTest, KeepsASizeThatIsFixed) {
    const auto window = make(WindowLevel::normal, u"Page"_qs, WindowSizing::fixed);
    const QQuickWindow &shown = show(*window);
    EXPECT_EQ(shown.size(), QSize(320, 240));
    EXPECT_EQ(shown.minimumSize(), QSize(320, 240));
    EXPECT_EQ(shown.maximumSize(), QSize(320, 240));
}

TEST_F(WindowTest, ComesToTheFrontWhenItIsShownAgain) {
    const auto window = make();
    const QQuickWindow &shown = show(*window);
    const xcb_window_t other = desktop.show(Kind::ordinary, wholeScreen, Qt::red);
    desktop.program().focus(other);
    EXPECT_TRUE(waitUntil([&] { return QGuiApplication::focusWindow() == nullptr; }));
    show(*window);
    const QPoint inside =
        (QPointF(shown.geometry().center()) * qGuiApp->devicePixelRatio()).toPoint();
    EXPECT_TRUE(waitUntil([&] {
        return QColor(desktop.program().picture(QRect(inside, QSize(1, 1))).pixel(0, 0)) ==
               QColor("#008000");
    }));
}

TEST_F(WindowTest, AFloatingOneStaysAboveNormalWindows) {
    const auto window = make(WindowLevel::floating);
    const QQuickWindow &shown = show(*window);
    const xcb_window_t other = desktop.show(Kind::ordinary, wholeScreen, Qt::red);
    desktop.program().focus(other);
    EXPECT_TRUE(waitUntil([&] { return QGuiApplication::focusWindow() == nullptr; }));
    const QPoint inside =
        (QPointF(shown.geometry().center()) * qGuiApp->devicePixelRatio()).toPoint();
    EXPECT_EQ(QColor(desktop.program().picture(QRect(inside, QSize(1, 1))).pixel(0, 0)),
              QColor("#008000"));
}

TEST_F(WindowTest, ContentThatCannotBeMadeShowsNothing) {
    const auto window = make(WindowLevel::normal, u"Nothing"_qs);
    window->show();
    EXPECT_EQ(dynamic_cast<QtWindow &>(*window).window(), nullptr);
}

} // namespace
} // namespace vantrel::tests
