#include "QtShieldingPanel.h"

#include "PanelEvents.h"
#include "X11Shield.h"

#include <QScreen>
#include <QWindow>

#include <cmath>

namespace vantrel {

namespace {

Qt::WindowFlags flagsFor(PanelRole role, bool isOnX11) {
    Qt::WindowFlags flags = Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
    if (isOnX11)
        flags |= Qt::BypassWindowManagerHint;
    if (role == PanelRole::echo)
        flags |= Qt::WindowDoesNotAcceptFocus;
    return flags;
}

} // namespace

QtShieldingPanel::QtShieldingPanel(std::unique_ptr<QWindow> window, PanelEvents &events,
                                   QScreen &screen, PanelRole role, X11Shield *shield)
    : m_window(window.release()), m_events(events), m_role(role), m_shield(shield) {
    m_window->setFlags(flagsFor(role, shield != nullptr));
    m_window->setScreen(&screen);
    m_window->setGeometry(frameOver(screen));
    QWindow *shown = m_window;
    QObject::connect(&screen, &QScreen::geometryChanged, shown,
                     [shown, &screen] { shown->setGeometry(frameOver(screen)); });
}

/// With a scale such as 1.5 the monitor's size in device-independent pixels is a rounded one: one
/// more of them each way leaves no line of it uncovered.
QRect QtShieldingPanel::frameOver(const QScreen &screen) {
    const double scale = screen.devicePixelRatio();
    const bool isRounded = std::floor(scale) != scale;
    return screen.geometry().adjusted(0, 0, isRounded, isRounded);
}

QtShieldingPanel::~QtShieldingPanel() {
    if (!m_window)
        return;
    orderOut();
    if (m_events.isDelivering())
        m_window->deleteLater();
    else
        delete m_window;
}

void QtShieldingPanel::orderFront() {
    if (!m_window)
        return;
    if (!m_shield) {
        m_window->setWindowStates(Qt::WindowFullScreen);
        m_window->setVisible(true); // showFullScreen() would activate an echo panel as well.
        if (m_role == PanelRole::interactive)
            m_window->requestActivate();
        return;
    }
    m_window->show();
    m_shield->raise(*m_window, m_role);
}

/// Elsewhere Qt cannot, and a compositor may draw a full-screen window that is see-through black.
void QtShieldingPanel::setOpacity(double opacity) {
    if (!m_window || !m_shield)
        return;
    m_window->setOpacity(opacity);
    m_shield->flush();
}

void QtShieldingPanel::orderOut() {
    if (!m_window || !m_window->isVisible())
        return;
    if (m_shield)
        m_shield->letGo(*m_window);
    m_window->hide();
    if (m_shield)
        m_shield->flush();
}

} // namespace vantrel
