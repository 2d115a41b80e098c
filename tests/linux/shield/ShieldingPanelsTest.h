#pragma once

#include <fakes/ManualMainQueue.h>
#include <linux/layershell/LayerShell.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <linux/shield/QtScreenLayout.h>
#include <linux/shield/QtShieldingPanels.h>
#include <linux/views/ViewEngine.h>

#include <QColor>

#include <desktop/Desktop.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace vantrel::tests {

inline const QColor interactiveColor(0x20, 0x60, 0x90);
inline const QColor echoColor(0x90, 0x60, 0x20);

/// The real panels on a real X server, under the window manager that the
/// parameter names.
class ShieldingPanelsTest : public testing::TestWithParam<const char *> {
protected:
    ShieldingPanelsTest() : ShieldingPanelsTest(realQueue) {}
    explicit ShieldingPanelsTest(MainQueue &queueOfPanels,
                                 const TypingGuard &guard = TypingGuard::none())
        : panels(queueOfPanels, views, layerShell, guard) {}

    QtMainQueue realQueue;
    fakes::ManualMainQueue manualQueue{Instant{}};
    Desktop desktop{GetParam()};
    QtScreenLayout layout{realQueue};
    LayerShell layerShell;
    ViewEngine views;
    QtShieldingPanels panels;
    std::vector<KeyPress> presses;
    bool consumes = true;
    Subscription monitor = panels.monitorKeyDown([this](const KeyPress &press) {
        presses.push_back(press);
        return consumes;
    });

    OtherProgram &program() { return desktop.program(); }

    /// The left monitor is number zero.
    [[nodiscard]] std::unique_ptr<ShieldingPanel>
    makePanel(std::size_t monitorNumber, PanelRole role, const QString &type = u"Plain"_qs);

    /// Panels over both monitors, in front; the left one is interactive.
    std::unique_ptr<ShieldingPanel> interactive;
    std::unique_ptr<ShieldingPanel> echo;
    void showPanels();

    /// Whether all windows of this program are below the other program's, or all above it.
    [[nodiscard]] bool areBelow(xcb_window_t other);
    [[nodiscard]] bool areAbove(xcb_window_t other);

    /// Whether every single pixel of the area has the colour.
    [[nodiscard]] bool shows(const QRect &area, const QColor &color);
    [[nodiscard]] bool areBothCovered();

    /// Runs the loop until the interactive panel hears a key pressed from here
    /// on; shows that all events from before have been dealt with.
    bool hearsAnotherKey();
};

[[nodiscard]] inline std::string nameOfManager(const testing::TestParamInfo<const char *> &info) {
    return *info.param ? info.param : "none";
}

/// Runs a suite's tests with each window manager and with none.
#define VANTREL_UNDER_EACH_WINDOW_MANAGER(Suite)                                                   \
    INSTANTIATE_TEST_SUITE_P(WindowManager, Suite, testing::Values("", "openbox", "xfwm4"),        \
                             nameOfManager)

} // namespace vantrel::tests
