#pragma once

#include <platform/ShieldingPanels.h>

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

    /// Never null: content that cannot be made is logged, and a plain window with the title stands
    /// in for it. The window must not outlive the engine.
    [[nodiscard]] std::unique_ptr<QWindow> makeWindow(const PanelContent &content);

private:
    [[nodiscard]] QQmlEngine &engine();
    [[nodiscard]] std::unique_ptr<QWindow> makeView(const PanelContent &content);

    std::unique_ptr<QQmlEngine> m_engine;
};

} // namespace vantrel
