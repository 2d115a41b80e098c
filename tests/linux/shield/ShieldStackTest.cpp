#include "ShieldingPanelsTest.h"

#include <fakes/ManualMainQueue.h>
#include <linux/shield/X11Stack.h>

#include <QCoreApplication>

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

TEST_P(ShieldStackTest, CoversThePanelOfADesktop) {
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

/// A screen locker is an unmanaged window over everything whose program holds the keyboard.
class ShieldLockerTest : public ShieldingPanelsTest {
protected:
    void lock() {
        desktop.show(Kind::unmanaged, wholeScreen, Qt::darkGray);
        ASSERT_TRUE(program().grabKeyboard());
    }
};

TEST_P(ShieldLockerTest, StaysBelowALockedScreenAndHearsNoneOfItsKeys) {
    lock();
    showPanels();
    program().strikeKey(keycode::space);
    // Another program's window comes and goes meanwhile: no occasion to show up either.
    program().openWindow(Kind::unmanaged, QRect(10, 10, 50, 50), Qt::red);
    EXPECT_TRUE(waitUntil([this] { return shows(QRect(10, 10, 50, 50), Qt::red); }));
    EXPECT_TRUE(waitUntil([this] { return shows(rightMonitor, Qt::darkGray); }));
    EXPECT_TRUE(presses.empty());
}

TEST_P(ShieldLockerTest, ComesUpWhenTheScreenIsUnlocked) {
    lock();
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return shows(wholeScreen, Qt::darkGray); }));
    program().letGoOfKeyboard();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
    EXPECT_TRUE(hearsAnotherKey());
}

TEST_P(ShieldLockerTest, CoversASmallWindowWhoseProgramHoldsTheKeyboard) {
    desktop.show(Kind::unmanaged, QRect(50, 50, 200, 300), Qt::darkGray); // An open menu.
    ASSERT_TRUE(program().grabKeyboard());
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
}

/// The contest with a rival that wants to be on top just as badly, on the manual clock.
TEST(ShieldContestTest, EndsAfterAWhile) {
    Desktop desktop{""};
    OtherProgram &program = desktop.program();
    fakes::ManualMainQueue queue{Instant{}};
    QtMainQueue clock;
    QtScreenLayout layout{clock};
    QtShieldingPanels panels{queue};
    const auto panel = panels.makePanel(
        layout.screens()[0], PanelRole::echo,
        {u"Shield.Tests"_qs, u"Plain"_qs, {{u"title"_qs, u"x"_qs}, {u"color"_qs, echoColor}}});
    panel->orderFront();
    const auto isCovered = [&] {
        return program.picture(QRect(400, 300, 1, 1)).pixel(0, 0) == echoColor.rgb();
    };
    ASSERT_TRUE(waitUntil(isCovered));
    const xcb_window_t rival = program.openWindow(Kind::unmanaged, leftMonitor, Qt::red);

    int lost = 0;
    for (int round = 0; round < 200; ++round) {
        program.raise(rival);
        // The news of it has come in once the panel's own connection has seen a later event.
        QCoreApplication::processEvents();
        queue.advance(Seconds{2});
        QCoreApplication::processEvents();
        lost += !waitUntil(isCovered, Seconds{0.02});
    }
    EXPECT_GE(lost, 100) << "the contest goes on for ever";
    EXPECT_LE(lost, 150) << "given up too soon";
}

} // namespace

VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldStackTest);
VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldStackLatecomerTest);
VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldLockerTest);

} // namespace vantrel::tests
