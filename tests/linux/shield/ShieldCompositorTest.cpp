#include "ShieldingPanelsTest.h"

#include <QGuiApplication>
#include <QWindow>

#include <cstdlib>

namespace vantrel::tests {
namespace {

using Kind = OtherProgram::Kind;

/// With a program that blends the windows; the parameter is its command line.
struct Compositor {
    const char *name;
    std::vector<std::string> commandLine;
};

void PrintTo(const Compositor &compositor, std::ostream *stream) {
    *stream << compositor.name;
}

class ShieldCompositorTest : public testing::TestWithParam<Compositor> {
protected:
    void SetUp() override {
        ASSERT_TRUE(waitUntil([this] { return desktop.program().isBlended(); }))
            << GetParam().name << " did not start";
        panel = panels.makePanel(layout.screens()[0], PanelRole::interactive,
                                 {u"Shield.Tests"_qs,
                                  u"Plain"_qs,
                                  {{u"title"_qs, u"x"_qs}, {u"color"_qs, QColor(0, 0, 200)}}});
    }

    void showBelow(Kind kind, const QRect &frame) {
        const QColor color(200, 0, 0);
        desktop.program().openWindow(kind, frame, color);
        EXPECT_TRUE(waitUntil([&] { return isNearly(color); }));
    }

    /// Whether the left monitor's middle has the colour, but for rounding.
    bool isNearly(const QColor &color) {
        const QColor seen(desktop.program().picture(QRect(400, 300, 1, 1)).pixel(0, 0));
        return std::abs(seen.red() - color.red()) < 8 &&
               std::abs(seen.green() - color.green()) < 8 &&
               std::abs(seen.blue() - color.blue()) < 8;
    }

    Desktop desktop{""};
    ChildProcess compositor{GetParam().commandLine};
    QtMainQueue queue;
    QtScreenLayout layout{queue};
    ViewEngine views;
    const LayerShell layerShell;
    QtShieldingPanels panels{queue, views, layerShell, TypingGuard::none()};
    std::unique_ptr<ShieldingPanel> panel;
};

TEST_P(ShieldCompositorTest, BlendsThePanelWithAWindowBelow) {
    showBelow(Kind::ordinary, QRect(100, 100, 600, 400));
    panel->setOpacity(0.0);
    panel->orderFront();
    panel->setOpacity(0.5);
    EXPECT_TRUE(waitUntil([this] { return isNearly(QColor(100, 0, 100)); }));
    panel->setOpacity(0.25);
    EXPECT_TRUE(waitUntil([this] { return isNearly(QColor(150, 0, 50)); }));
    panel->setOpacity(1.0);
    EXPECT_TRUE(waitUntil([this] { return isNearly(QColor(0, 0, 200)); }));
    panel->setOpacity(0.0);
    EXPECT_TRUE(waitUntil([this] { return isNearly(QColor(200, 0, 0)); }));
}

TEST_P(ShieldCompositorTest, ComesUpOverAFullScreenWindow) {
    showBelow(Kind::fullScreen, leftMonitor);
    panel->setOpacity(0.0);
    panel->orderFront();
    panel->setOpacity(0.5);
    QCoreApplication::processEvents();
    panel->setOpacity(1.0);
    EXPECT_TRUE(waitUntil([this] { return isNearly(QColor(0, 0, 200)); }));
}

TEST_P(ShieldCompositorTest, CoversAWindowThatIsMappedLater) {
    panel->orderFront();
    EXPECT_TRUE(waitUntil([this] { return isNearly(QColor(0, 0, 200)); }));
    const xcb_window_t latecomer =
        desktop.program().openWindow(Kind::unmanaged, QRect(300, 200, 200, 200), Qt::green);
    const auto window = static_cast<xcb_window_t>(QGuiApplication::topLevelWindows()[0]->winId());
    EXPECT_TRUE(waitUntil([&] { return desktop.program().isAbove(window, latecomer); }));
    EXPECT_TRUE(waitUntil([this] { return isNearly(QColor(0, 0, 200)); }));
}

INSTANTIATE_TEST_SUITE_P(
    Compositors, ShieldCompositorTest,
    testing::Values(Compositor{"picom", {"picom", "--backend", "xrender", "--config", "/dev/null"}},
                    Compositor{"xfwm4", {"xfwm4", "--compositor=on", "--vblank=off"}}),
    [](const auto &instance) { return std::string(instance.param.name); });

} // namespace
} // namespace vantrel::tests
