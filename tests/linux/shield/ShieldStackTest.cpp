#include "ShieldingPanelsTest.h"

#include <fakes/ManualMainQueue.h>
#include <linux/layershell/LayerShell.h>
#include <linux/shield/X11Stack.h>

#include <QAbstractNativeEventFilter>
#include <QGuiApplication>
#include <QWindow>

namespace vantrel::tests {
namespace {

using Kind = OtherProgram::Kind;

class ShieldStackTest : public ShieldingPanelsTest {};

TEST_P(ShieldStackTest, CoversADockAndAFullScreenWindowThatWereThereBefore) {
    desktop.show(Kind::fullScreen, leftMonitor, Qt::red);
    desktop.show(Kind::dock, QRect(800, 560, 800, 40), Qt::green);
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
}

/// A real dock, which shows itself only beside a window manager.
class ShieldDockTest : public ShieldingPanelsTest {};

TEST_P(ShieldDockTest, CoversIt) {
    ChildProcess dock({"tint2"});
    ASSERT_TRUE(waitUntil([this] { return program().showsWindowOfClass("tint2"); }));
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
}

class ShieldStackLatecomerTest : public ShieldStackTest {
protected:
    /// Whether the panels cover all again, once the window has had its chance.
    bool areCoveredAgain(xcb_window_t latecomer) {
        return waitUntil([&] { return program().isViewable(latecomer); }) && hearsAnotherKey() &&
               waitUntil([this] { return areBothCovered(); });
    }
};

TEST_P(ShieldStackLatecomerTest, CoversAFullScreenWindowThatIsMappedLater) {
    showPanels();
    EXPECT_TRUE(areCoveredAgain(program().openWindow(Kind::fullScreen, leftMonitor, Qt::red)));
}

TEST_P(ShieldStackLatecomerTest, CoversAnUnmanagedWindowThatIsMappedLater) {
    showPanels();
    EXPECT_TRUE(
        areCoveredAgain(program().openWindow(Kind::unmanaged, QRect(700, 100, 200, 200), Qt::red)));
}

TEST_P(ShieldStackLatecomerTest, CoversADockThatIsMappedLater) {
    showPanels();
    EXPECT_TRUE(
        areCoveredAgain(program().openWindow(Kind::dock, QRect(0, 560, 800, 40), Qt::green)));
}

TEST_P(ShieldStackLatecomerTest, CoversAWindowThatIsRaisedAgainAndAgain) {
    showPanels();
    const xcb_window_t rival = program().openWindow(Kind::unmanaged, rightMonitor, Qt::red);
    for (int round = 0; round < 5; ++round) {
        program().raise(rival);
        EXPECT_TRUE(waitUntil([this] { return shows(rightMonitor, echoColor); })) << round;
    }
}

TEST_P(ShieldStackTest, LeavesTheOthersAsTheyWereOnceItIsGone) {
    const xcb_window_t before = desktop.show(Kind::unmanaged, leftMonitor, Qt::red);
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
    interactive.reset();
    echo.reset();
    EXPECT_TRUE(waitUntil([this] { return shows(leftMonitor, Qt::red); }));
    EXPECT_TRUE(program().isViewable(before));
}

/// A screen locker is an unmanaged window over everything whose program holds the keyboard. The
/// panels' time is manual, so that "never" can be told from "not yet".
class ShieldLockerTest : public ShieldingPanelsTest {
protected:
    ShieldLockerTest() : ShieldingPanelsTest(manualQueue) {}

    xcb_window_t lock() {
        const xcb_window_t locker = desktop.show(Kind::unmanaged, wholeScreen, Qt::darkGray);
        EXPECT_TRUE(program().grabKeyboard());
        return locker;
    }

    /// Has all news from the X server dealt with, and whatever waits.
    void letTimePass() {
        for (int round = 0; round < 3; ++round) {
            QCoreApplication::processEvents();
            manualQueue.advance(Seconds{60});
        }
    }
};

TEST_P(ShieldLockerTest, StaysBelowALockedScreen) {
    const xcb_window_t locker = lock();
    showPanels();
    EXPECT_TRUE(areBelow(locker)) << "the meeting flashed up on a locked screen";
    letTimePass();
    EXPECT_TRUE(areBelow(locker));
    EXPECT_TRUE(shows(wholeScreen, Qt::darkGray));
}

TEST_P(ShieldLockerTest, StaysBelowALockedScreenWhenOtherWindowsComeUp) {
    const xcb_window_t locker = lock();
    showPanels();
    const QRect place(10, 10, 50, 50);
    desktop.show(Kind::unmanaged, place, Qt::red);
    letTimePass();
    EXPECT_TRUE(areBelow(locker));
    EXPECT_TRUE(shows(place, Qt::red));
}

TEST_P(ShieldLockerTest, HearsNoKeyThatIsTypedAtALockedScreen) {
    lock();
    showPanels();
    program().strikeKey(keycode::space);
    letTimePass();
    program().letGoOfKeyboard();
    letTimePass();
    EXPECT_TRUE(hearsAnotherKey());
    EXPECT_EQ(presses.size(), 1u);
}

TEST_P(ShieldLockerTest, ComesUpWhenTheScreenIsUnlocked) {
    const xcb_window_t locker = lock();
    showPanels();
    program().letGoOfKeyboard();
    letTimePass();
    EXPECT_TRUE(areAbove(locker));
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
}

TEST_P(ShieldLockerTest, LetsALockerHaveTheKeyboardThatItAsksForAgainAndAgain) {
    showPanels();
    EXPECT_FALSE(program().grabKeyboard());
    const xcb_window_t locker = program().openWindow(Kind::unmanaged, wholeScreen, Qt::darkGray);
    EXPECT_TRUE(waitUntil([&] {
        manualQueue.advance(Seconds{0.001});
        return program().grabKeyboard();
    }));
    letTimePass();
    EXPECT_TRUE(areBelow(locker));
    EXPECT_TRUE(waitUntil([this] { return shows(wholeScreen, Qt::darkGray); }));
}

TEST_P(ShieldLockerTest, CoversASmallWindowWhoseProgramHoldsTheKeyboard) {
    // An open menu.
    const xcb_window_t menu = desktop.show(Kind::unmanaged, QRect(50, 50, 200, 300), Qt::gray);
    ASSERT_TRUE(program().grabKeyboard());
    showPanels();
    letTimePass();
    EXPECT_TRUE(areAbove(menu));
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
}

TEST_P(ShieldLockerTest, CoversAnUnmanagedFullScreenWindowWithoutTheKeyboard) {
    const xcb_window_t window = desktop.show(Kind::unmanaged, wholeScreen, Qt::gray);
    showPanels();
    letTimePass();
    EXPECT_TRUE(areAbove(window));
}

/// Notices when this program hears of a window's new place.
class RestackingNews : public QAbstractNativeEventFilter {
public:
    explicit RestackingNews(xcb_window_t window) : m_window(window) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    ~RestackingNews() override { QCoreApplication::instance()->removeNativeEventFilter(this); }

    bool hasCome = false;

    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override {
        const auto *event = static_cast<xcb_configure_notify_event_t *>(message);
        hasCome |=
            (event->response_type & ~0x80) == XCB_CONFIGURE_NOTIFY && event->window == m_window;
        return false;
    }

private:
    xcb_window_t m_window;
};

/// The contest with others that want to be on top just as badly, on the manual clock.
class ShieldContestTest : public testing::Test {
protected:
    ShieldContestTest() {
        panel->orderFront();
        window = static_cast<xcb_window_t>(QGuiApplication::topLevelWindows()[0]->winId());
    }

    /// Puts the rival above the panel and lets this program hear of it.
    void raise(xcb_window_t rival) {
        if (program.isAbove(rival, window))
            return;
        RestackingNews news(rival);
        program.raise(rival);
        EXPECT_TRUE(waitUntil([&] { return news.hasCome; }));
    }

    /// Whether the panel has come back on top when so much time has passed.
    bool isOnTopAfter(Seconds time, xcb_window_t rival) {
        queue.advance(time);
        (void)x11::stackingOrder(); // The server has done by now what it was asked.
        return program.isAbove(window, rival);
    }

    xcb_window_t openRival() {
        const xcb_window_t rival = program.openWindow(Kind::unmanaged, leftMonitor, Qt::red);
        EXPECT_TRUE(waitUntil([&] { return isOnTopAfter(Seconds{1}, rival); }));
        return rival;
    }

    Desktop desktop{""};
    OtherProgram &program = desktop.program();
    fakes::ManualMainQueue queue{Instant{}};
    QtMainQueue clock;
    QtScreenLayout layout{clock};
    ViewEngine views;
    const LayerShell layerShell;
    QtShieldingPanels panels{queue, views, layerShell, TypingGuard::none()};
    std::unique_ptr<ShieldingPanel> panel = panels.makePanel(
        layout.screens()[0], PanelRole::echo,
        {u"Shield.Tests"_qs, u"Plain"_qs, {{u"title"_qs, u"x"_qs}, {u"color"_qs, echoColor}}});
    xcb_window_t window = XCB_NONE;
};

TEST_F(ShieldContestTest, GetsSlower) {
    const xcb_window_t rival = openRival();
    int lost = 0;
    for (int round = 0; round < 20; ++round) {
        raise(rival);
        lost += !isOnTopAfter(Seconds{0.1}, rival);
    }
    EXPECT_GE(lost, 8);
}

TEST_F(ShieldContestTest, IsNeverGivenUp) {
    const xcb_window_t rival = openRival();
    for (int round = 0; round < 200; ++round) {
        raise(rival);
        ASSERT_TRUE(isOnTopAfter(Seconds{1}, rival)) << round;
    }
}

TEST_F(ShieldContestTest, CoversEachFurtherWindowAtOnceHoweverManyCame) {
    for (int round = 0; round < 100; ++round) {
        const xcb_window_t other = program.openWindow(Kind::unmanaged, leftMonitor, Qt::red);
        ASSERT_TRUE(waitUntil([&] { return isOnTopAfter(Seconds{0.001}, other); })) << round;
        program.closeWindow(other);
    }
}

TEST_F(ShieldContestTest, BeginsAfreshAfterACalm) {
    const xcb_window_t rival = openRival();
    for (int round = 0; round < 20; ++round) {
        raise(rival);
        queue.advance(Seconds{1});
    }
    queue.advance(Seconds{10});
    raise(rival);
    EXPECT_TRUE(isOnTopAfter(Seconds{0.002}, rival));
}

} // namespace

INSTANTIATE_TEST_SUITE_P(WindowManager, ShieldDockTest, testing::Values("openbox", "xfwm4"),
                         nameOfManager);
VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldStackTest);
VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldStackLatecomerTest);
VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldLockerTest);

} // namespace vantrel::tests
