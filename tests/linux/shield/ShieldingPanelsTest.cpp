#include "ShieldingPanelsTest.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace vantrel::tests {

std::unique_ptr<ShieldingPanel>
ShieldingPanelsTest::makePanel(std::size_t monitorNumber, PanelRole role, const QString &type) {
    ViewContent content{u"Shield.Tests"_qs, type, {{u"title"_qs, u"Standup"_qs}}};
    if (type == u"Plain")
        content.properties.insert(u"color"_qs,
                                  role == PanelRole::interactive ? interactiveColor : echoColor);
    return panels.makePanel(layout.screens().at(monitorNumber), role, content);
}

void ShieldingPanelsTest::showPanels() {
    interactive = makePanel(0, PanelRole::interactive);
    echo = makePanel(1, PanelRole::echo);
    ASSERT_TRUE(interactive && echo);
    interactive->orderFront();
    echo->orderFront();
}

bool ShieldingPanelsTest::areBelow(xcb_window_t other) {
    const auto windows = QGuiApplication::topLevelWindows();
    return std::all_of(windows.begin(), windows.end(), [&](const QWindow *window) {
        return program().isAbove(other, static_cast<xcb_window_t>(window->winId()));
    });
}

bool ShieldingPanelsTest::areAbove(xcb_window_t other) {
    const auto windows = QGuiApplication::topLevelWindows();
    return std::all_of(windows.begin(), windows.end(), [&](const QWindow *window) {
        return program().isAbove(static_cast<xcb_window_t>(window->winId()), other);
    });
}

bool ShieldingPanelsTest::shows(const QRect &area, const QColor &color) {
    const QImage picture = program().picture(area);
    QImage expected(picture.size(), picture.format());
    expected.fill(color);
    return !picture.isNull() && picture == expected;
}

bool ShieldingPanelsTest::areBothCovered() {
    return shows(leftMonitor, interactiveColor) && shows(rightMonitor, echoColor);
}

bool ShieldingPanelsTest::hearsAnotherKey() {
    const std::size_t before = presses.size();
    program().strikeKey(keycode::a);
    return waitUntil([&] { return presses.size() > before; });
}

namespace {

using Kind = OtherProgram::Kind;

TEST_P(ShieldingPanelsTest, CoverEveryPixelOfBothMonitors) {
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
}

TEST_P(ShieldingPanelsTest, CoverEveryPixelOfAMonitorWhoseSizeTheScaleDoesNotDivide) {
    joinMonitors();
    setSmallMode(true);
    const QRect smaller(0, 0, 1280, 500); // By 1.75 it is 731.4 wide.
    ASSERT_TRUE(waitUntil([this] { return layout.screens().size() == 1; }));
    interactive = makePanel(0, PanelRole::interactive);
    interactive->orderFront();
    EXPECT_TRUE(waitUntil([&] { return shows(smaller, interactiveColor); }));
    interactive.reset();
    setSmallMode(false);
    connectBothMonitors();
    EXPECT_TRUE(waitUntil([this] { return layout.screens().size() == 2; }));
}

TEST_P(ShieldingPanelsTest, LeaveTheOtherMonitorAlone) {
    interactive = makePanel(0, PanelRole::interactive);
    interactive->orderFront();
    EXPECT_TRUE(waitUntil([this] { return shows(leftMonitor, interactiveColor); }));
    EXPECT_TRUE(shows(rightMonitor, Qt::black));
}

TEST_P(ShieldingPanelsTest, AreNotSeenBeforeTheyAreOrderedFrontNorAfterTheyAreOrderedOut) {
    interactive = makePanel(0, PanelRole::interactive);
    interactive->setOpacity(0.5);
    QCoreApplication::processEvents();
    EXPECT_TRUE(shows(wholeScreen, Qt::black));
    interactive->orderFront();
    EXPECT_TRUE(waitUntil([this] { return shows(leftMonitor, interactiveColor); }));
    interactive->orderOut();
    EXPECT_TRUE(waitUntil([this] { return shows(wholeScreen, Qt::black); }));
    interactive->orderOut();
    interactive->orderFront();
    EXPECT_TRUE(waitUntil([this] { return shows(leftMonitor, interactiveColor); }));
    EXPECT_TRUE(hearsAnotherKey());
}

TEST_P(ShieldingPanelsTest, LeaveTheScreenWhenTheyAreDestroyed) {
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
    interactive.reset();
    echo.reset();
    EXPECT_TRUE(waitUntil([this] { return shows(wholeScreen, Qt::black); }));
    EXPECT_TRUE(QGuiApplication::topLevelWindows().isEmpty());
}

TEST_P(ShieldingPanelsTest, DoNothingAtAClickOnAnEchoPanel) {
    const xcb_window_t other = desktop.show(Kind::ordinary, QRect(100, 100, 300, 200), Qt::red);
    program().focus(other);
    echo = makePanel(1, PanelRole::echo, u"Clickable"_qs);
    echo->orderFront();
    const QColor untouched(0x80, 0, 0);
    EXPECT_TRUE(waitUntil([&] { return shows(rightMonitor, untouched); }));
    program().click(rightMonitor.center());

    interactive = makePanel(0, PanelRole::interactive);
    interactive->orderFront();
    EXPECT_TRUE(hearsAnotherKey()); // By now the click has come in as well.
    EXPECT_TRUE(shows(rightMonitor, untouched));
    interactive.reset();
    EXPECT_TRUE(waitUntil([&] { return program().focused() == other; }));
}

TEST_P(ShieldingPanelsTest, HandAClickToTheContentOfAnInteractivePanel) {
    interactive = makePanel(0, PanelRole::interactive, u"Clickable"_qs);
    interactive->orderFront();
    EXPECT_TRUE(waitUntil([&] { return shows(leftMonitor, QColor(0x80, 0, 0)); }));
    program().click(leftMonitor.center());
    EXPECT_TRUE(waitUntil([&] { return shows(leftMonitor, QColor(0, 0x80, 0)); }));
}

TEST_P(ShieldingPanelsTest, HandOnAKeyThatNobodyConsumed) {
    interactive = makePanel(0, PanelRole::interactive, u"Clickable"_qs);
    interactive->orderFront();
    EXPECT_TRUE(hearsAnotherKey());
    EXPECT_TRUE(waitUntil([&] { return shows(leftMonitor, QColor(0x80, 0, 0)); }));
    consumes = false;
    EXPECT_TRUE(hearsAnotherKey());
    EXPECT_TRUE(waitUntil([&] { return shows(leftMonitor, QColor(0, 0, 0x80)); }));
}

TEST_P(ShieldingPanelsTest, GoWithAMonitorThatChangesItsSize) {
    disconnectRightMonitor();
    joinMonitors();
    ASSERT_TRUE(waitUntil([this] { return layout.screens()[0].frame == wholeScreen; }));
    interactive = makePanel(0, PanelRole::interactive);
    interactive->orderFront();
    EXPECT_TRUE(waitUntil([this] { return shows(wholeScreen, interactiveColor); }));
    const QRect smaller(0, 0, 1280, 500);
    setSmallMode(true);
    EXPECT_TRUE(waitUntil([&] {
        return QGuiApplication::topLevelWindows()[0]->geometry() == smaller &&
               shows(smaller, interactiveColor);
    }));
    setSmallMode(false);
    EXPECT_TRUE(waitUntil([this] { return shows(wholeScreen, interactiveColor); }));
    interactive.reset();
    connectBothMonitors();
    EXPECT_TRUE(waitUntil([this] { return layout.screens().size() == 2; }));
}

TEST_P(ShieldingPanelsTest, SurviveTheLossOfTheirMonitor) {
    showPanels();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
    disconnectRightMonitor();
    EXPECT_TRUE(waitUntil([this] { return layout.screens().size() == 1; }));
    EXPECT_TRUE(shows(leftMonitor, interactiveColor)) << "a stray panel lies over the other one";
    echo->setOpacity(0.3);
    echo->orderOut();
    echo.reset();
    EXPECT_TRUE(hearsAnotherKey());
    connectBothMonitors();
    EXPECT_TRUE(waitUntil([this] { return layout.screens().size() == 2; }));
}

TEST_P(ShieldingPanelsTest, CloseForNobodyButTheirOwner) {
    showPanels();
    for (QWindow *window : QGuiApplication::topLevelWindows())
        window->close();
    EXPECT_TRUE(waitUntil([this] { return areBothCovered(); }));
    EXPECT_TRUE(hearsAnotherKey());
}

TEST_P(ShieldingPanelsTest, ComeAndGoManyTimes) {
    for (int round = 0; round < 20; ++round) {
        showPanels();
        EXPECT_TRUE(hearsAnotherKey());
        interactive.reset();
        echo.reset();
    }
    EXPECT_TRUE(QGuiApplication::topLevelWindows().isEmpty());
}

} // namespace

VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldingPanelsTest);

} // namespace vantrel::tests
