#pragma once

#include "TypingGuard.h"

#include <platform/MainQueue.h>
#include <platform/ShieldingPanels.h>

#include <QPointer>
#include <QString>

#include <memory>
#include <vector>

class QWindow;

namespace vantrel {

class LayerShell;
class ViewEngine;
class X11Shield;

/// Panels on Qt Quick's windows: on X11 past the window manager, on Wayland in the layer shell
/// where the compositor has one, elsewhere an ordinary full-screen window on each monitor. Nothing
/// heavy is made before the first panel.
class QtShieldingPanels : public ShieldingPanels {
public:
    /// `queue`, `engine` and `shell` must outlive the panels.
    QtShieldingPanels(MainQueue &queue, ViewEngine &engine, const LayerShell &shell,
                      const TypingGuard &guard = TypingGuard());
    QtShieldingPanels(const QtShieldingPanels &) = delete;
    QtShieldingPanels &operator=(const QtShieldingPanels &) = delete;

    /// Each panel must be gone before.
    ~QtShieldingPanels() override;

    [[nodiscard]] std::unique_ptr<ShieldingPanel> makePanel(const Screen &screen, PanelRole role,
                                                            const ViewContent &content) override;

    /// The way in which panels cover the screens, for people: "x11", "layer-shell", "full-screen".
    [[nodiscard]] QString way() const;

    [[nodiscard]] Subscription monitorKeyDown(KeyHandler handler) override;

private:
    [[nodiscard]] bool hear(const KeyPress &press);

    MainQueue &m_queue;
    ViewEngine &m_engine;
    const LayerShell &m_layerShell;
    const TypingGuard m_guard;
    std::unique_ptr<X11Shield> m_shield; ///< Null off X11.
    std::vector<std::weak_ptr<KeyHandler>> m_handlers;
    std::vector<QPointer<QWindow>> m_windows; ///< All that were made; null the ones deleted since.
};

} // namespace vantrel
