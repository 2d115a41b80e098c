#include "PopupCanvas.h"

#include <QKeyEvent>
#include <QScreen>
#include <QSurfaceFormat>

#include <utility>

namespace vantrel {

PopupCanvas::PopupCanvas(const LayerShell &shell, QScreen &screen, Handler handler)
    : m_handler(std::move(handler)), m_origin(screen.geometry().topLeft()) {
    QSurfaceFormat format = this->format();
    format.setAlphaBufferSize(8);
    setFormat(format);
    setColor(Qt::transparent);
    setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    setTitle(QStringLiteral("Vantrel"));
    setScreen(&screen);
    // At first without what is the panels', to hear how much that is.
    m_surface = std::make_unique<LayerSurface>(
        shell, *this, screen, "vantrel-popup", PanelSpace::leftFree, KeyboardWish::none,
        LayerSurface::Listener{[this](QSize size) { adopt(size); },
                               [this] {
                                   if (const auto closed = m_handler.closed)
                                       closed();
                               }});
}

void PopupCanvas::takeDown() {
    m_handler = {};
    m_surface.reset();
    hide();
}

void PopupCanvas::takeKeyboard() {
    m_surface->setKeyboardWish(KeyboardWish::exclusive);
    requestActivate();
}

void PopupCanvas::adopt(QSize size) {
    if (!m_freeSize) {
        m_freeSize = size;
        m_surface->setPanelSpace(PanelSpace::covered);
        if (size != screen()->size())
            return; // Another size follows.
    }
    setGeometry(QRect(m_origin, size));
    setVisible(true);
    if (const auto configured = m_handler.configured)
        configured();
}

bool PopupCanvas::event(QEvent *event) {
    ++m_depth;
    const bool isTaken = deliver(*event);
    --m_depth;
    return isTaken;
}

bool PopupCanvas::deliver(QEvent &event) {
    const auto handler = m_handler;
    switch (event.type()) {
    case QEvent::Enter:
        if (handler.pointerEntered)
            handler.pointerEntered(m_origin +
                                   static_cast<QEnterEvent &>(event).position().toPoint());
        break;
    case QEvent::MouseButtonPress: {
        const QPoint place = m_origin + static_cast<QMouseEvent &>(event).position().toPoint();
        m_isSwallowingClick = handler.pressed && !handler.pressed(place);
        if (m_isSwallowingClick)
            return true;
        break;
    }
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        if (m_isSwallowingClick)
            return true;
        break;
    case QEvent::MouseButtonRelease:
        if (std::exchange(m_isSwallowingClick, false)) {
            if (handler.released)
                handler.released();
            return true;
        }
        break;
    default:
        break;
    }
    const bool isTaken = QQuickWindow::event(&event);
    if (event.type() == QEvent::KeyPress && !event.isAccepted() && handler.dismissed &&
        static_cast<QKeyEvent &>(event).key() == Qt::Key_Escape) {
        event.accept();
        handler.dismissed();
    }
    return isTaken;
}

} // namespace vantrel
