#pragma once

#include <platform/ShieldingPanels.h>

#include <QSize>

#include <memory>

class QQmlEngine;
class QWindow;

namespace vantrel {

/// Makes windows that show a panel's content. The QML engine behind them is made for the first
/// one: a program at rest carries none of its weight.
class PanelEngine {
public:
    PanelEngine();
    PanelEngine(const PanelEngine &) = delete;
    PanelEngine &operator=(const PanelEngine &) = delete;
    ~PanelEngine();

    /// A window of that size, in device-independent pixels; nothing is laid out at another one.
    /// Content that has a property `reducedMotion` is told what the desktop wants of it.
    /// Never null: content that cannot be made is logged, and a plain window with the title stands
    /// in for it. The window must not outlive the engine.
    [[nodiscard]] std::unique_ptr<QWindow> makeWindow(const ViewContent &content, QSize size,
                                                      bool isMotionReduced);

private:
    [[nodiscard]] QQmlEngine &engine();
    [[nodiscard]] std::unique_ptr<QWindow> makeView(const ViewContent &content, QSize size,
                                                    bool isMotionReduced);

    std::unique_ptr<QQmlEngine> m_engine;
};

} // namespace vantrel
