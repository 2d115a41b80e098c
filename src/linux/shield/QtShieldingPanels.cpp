#include "QtShieldingPanels.h"

#include "LayerPanel.h"
#include "PanelEvents.h"
#include "PanelWindow.h"
#include "QtShieldingPanel.h"
#include "ScreenId.h"
#include "X11Shield.h"

#include <linux/layershell/LayerShell.h>

#include <QWindow>

#include <utility>

namespace vantrel {

QtShieldingPanels::QtShieldingPanels(MainQueue &queue, ViewEngine &engine, const LayerShell &shell,
                                     const TypingGuard &guard)
    : m_queue(queue),
      m_engine(engine),
      m_layerShell(shell),
      m_guard(guard),
      m_shield(X11Shield::isAvailable() ? std::make_unique<X11Shield>(queue, guard) : nullptr) {}

QtShieldingPanels::~QtShieldingPanels() {
    // Windows that wait for their deletion show items of the engine, which may go next.
    for (const QPointer<QWindow> &window : m_windows)
        delete window;
}

std::unique_ptr<ShieldingPanel> QtShieldingPanels::makePanel(const Screen &screen, PanelRole role,
                                                             const ViewContent &content) {
    QScreen *monitor = findScreen(screen.id);
    if (!monitor)
        return nullptr;
    std::erase_if(m_windows, [](const QPointer<QWindow> &window) { return !window; });
    std::unique_ptr<QWindow> window =
        makePanelWindow(m_engine, content, QtShieldingPanel::frameOver(*monitor).size());
    window->setTitle(QStringLiteral("Vantrel takeover"));
    m_windows.emplace_back(window.get());
    auto *events = new PanelEvents(
        *window, role, m_shield ? KeyPresses(m_shield->keyboard()) : KeyPresses(m_queue, m_guard),
        [this](const KeyPress &press) { return hear(press); });
    if (m_layerShell.isOffered())
        return std::make_unique<LayerPanel>(m_layerShell, std::move(window), *events, *monitor,
                                            role);
    return std::make_unique<QtShieldingPanel>(std::move(window), *events, *monitor, role,
                                              m_shield.get());
}

QString QtShieldingPanels::way() const {
    if (m_layerShell.isOffered())
        return QStringLiteral("layer-shell");
    return m_shield ? QStringLiteral("x11") : QStringLiteral("full-screen");
}

Subscription QtShieldingPanels::monitorKeyDown(KeyHandler handler) {
    auto held = std::make_shared<KeyHandler>(std::move(handler));
    std::erase_if(m_handlers, [](const auto &weak) { return weak.expired(); });
    m_handlers.push_back(held);
    return held;
}

bool QtShieldingPanels::hear(const KeyPress &press) {
    const auto handlers = m_handlers;
    for (const auto &weak : handlers) {
        const auto handler = weak.lock();
        if (handler && (*handler)(press))
            return true;
    }
    return false;
}

} // namespace vantrel
