#include "PopupWindow.h"

#include <QKeyEvent>
#include <QSurfaceFormat>

#include <utility>

namespace vantrel {

PopupWindow::PopupWindow() {
    QSurfaceFormat format = this->format();
    format.setAlphaBufferSize(8);
    setFormat(format);
    setColor(Qt::transparent);
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
             Qt::BypassWindowManagerHint);
    setTitle(QStringLiteral("Vantrel"));
}

bool PopupWindow::event(QEvent *event) {
    ++m_depth;
    bool isTaken = isForAnother(*event);
    if (!isTaken)
        isTaken = QQuickWindow::event(event);
    const auto handler = m_handler;
    if (event->type() == QEvent::KeyPress && !event->isAccepted() && handler.dismissed &&
        static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        handler.dismissed();
    }
    if (event->type() == QEvent::Close && handler.dismissed)
        handler.dismissed();
    --m_depth;
    return isTaken;
}

bool PopupWindow::isForAnother(const QEvent &event) {
    const auto handler = m_handler;
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        m_isSwallowingClick = handler.takesPress && handler.takesPress();
        m_isSwallowingClick |= std::exchange(m_isNextClickSwallowed, false);
        return m_isSwallowingClick;
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return m_isSwallowingClick;
    case QEvent::MouseButtonRelease:
        return std::exchange(m_isSwallowingClick, false);
    default:
        return false;
    }
}

} // namespace vantrel
