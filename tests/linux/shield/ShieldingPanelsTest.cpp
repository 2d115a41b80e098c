#include "ShieldingPanelsTest.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace vantrel::tests {

std::unique_ptr<ShieldingPanel>
ShieldingPanelsTest::makePanel(const QRect &monitorFrame, PanelRole role, const QString &type) {
    for (const Screen &screen : layout.screens()) {
        if (screen.frame != monitorFrame)
            continue;
        PanelContent content{u"Shield.Tests"_qs, type, {{u"title"_qs, u"Standup"_qs}}};
        if (type == u"Plain")
            content.properties.insert(u"color"_qs, role == PanelRole::interactive ? interactiveColor
                                                                                  : echoColor);
        return panels.makePanel(screen, role, content);
    }
    return nullptr;
}

void ShieldingPanelsTest::showPanels() {
    interactive = makePanel(leftMonitor, PanelRole::interactive);
    echo = makePanel(rightMonitor, PanelRole::echo);
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

TEST_P(ShieldingPanelsTest, LeaveTheOtherMonitorAlone) {
    interactive = makePanel(leftMonitor, PanelRole::interactive);
    interactive->orderFront();
    EXPECT_TRUE(waitUntil([this] { return shows(leftMonitor, interactiveColor); }));
    EXPECT_TRUE(shows(rightMonitor, Qt::black));
}

} // namespace

VANTREL_UNDER_EACH_WINDOW_MANAGER(ShieldingPanelsTest);

} // namespace vantrel::tests
