#include "LayerPanel.h"

#include "PanelEvents.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QSurfaceFormat>

namespace vantrel {

LayerPanel::LayerPanel(const LayerShell &shell, std::unique_ptr<QWindow> window,
                       PanelEvents &events, QScreen &screen, PanelRole role)
    : m_shell(shell),
      m_window(window.release()),
      m_events(events),
      m_screen(&screen),
      m_role(role) {
    Qt::WindowFlags flags = Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
    if (role == PanelRole::echo)
        flags |= Qt::WindowDoesNotAcceptFocus;
    m_window->setFlags(flags);
    QSurfaceFormat format = m_window->format();
    format.setAlphaBufferSize(8);
    m_window->setFormat(format);
    m_window->setScreen(&screen);
}

LayerPanel::~LayerPanel() {
    orderOut();
    if (m_window && m_events.isDelivering())
        m_window->deleteLater();
    else
        delete m_window;
}

void LayerPanel::orderFront() {
    if (!m_window || !m_screen || m_surface)
        return;
    m_window->destroy(); // What is left beneath a window that was hidden takes no surface again.
    m_surface = std::make_unique<LayerSurface>(
        m_shell, *m_window, *m_screen, "vantrel-takeover", PanelSpace::covered,
        m_role == PanelRole::interactive ? KeyboardWish::exclusive : KeyboardWish::none,
        LayerSurface::Listener{[this](QSize size) { cover(size); }, [this] { orderOut(); }});
}

void LayerPanel::cover(QSize size) {
    if (!m_window || !m_screen)
        return;
    m_window->setGeometry(QRect(m_screen->geometry().topLeft(), size));
    m_window->setVisible(true);
    if (m_role == PanelRole::interactive)
        m_window->requestActivate();
}

/// No client tells a compositor how opaque a window is: what is drawn has to be see-through. Where
/// plain text stands in for the content there is nothing to draw so, and the panel is simply seen.
void LayerPanel::setOpacity(double opacity) {
    auto *window = qobject_cast<QQuickWindow *>(m_window);
    if (!window)
        return;
    window->contentItem()->setOpacity(opacity);
    // Behind the content, of which a scale such as 1.5 may leave a last line free.
    window->setColor(opacity < 1.0 ? Qt::transparent : Qt::black);
}

void LayerPanel::orderOut() {
    m_surface.reset();
    if (m_window)
        m_window->hide();
}

} // namespace vantrel
