#include "UnreadKeys.h"

#include <QEvent>
#include <QQuickWindow>

#include <algorithm>

namespace vantrel {

UnreadKeys::UnreadKeys(MainQueue &queue, QQuickWindow &window) : m_queue(queue), m_window(window) {
    window.installEventFilter(this);
    connect(&window, &QWindow::activeChanged, this, &UnreadKeys::begin);
    // Making and drawing the first window takes a while, in which keys queue up behind it.
    const auto drawn = [this] {
        m_isDrawn = true;
        begin();
    };
    connect(&window, &QQuickWindow::frameSwapped, this, drawn, Qt::SingleShotConnection);
}

bool UnreadKeys::eventFilter(QObject *watched, QEvent *event) {
    // What a key means to Qt Quick is asked ahead of it.
    const bool isPress =
        event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    return (isPress && takesKey()) || QObject::eventFilter(watched, event);
}

void UnreadKeys::begin() {
    m_end.reset();
    m_end.reset();
    if (m_isDrawn && m_window.isActive())
        m_end = m_queue.uptime() + reading;
}

bool UnreadKeys::takesKey() {
    if (!m_end)
        return true;
    const MonotonicInstant now = m_queue.uptime();
    if (now >= *m_end)
        return false;
    m_end = std::max(*m_end, now + pause);
    return true;
}

} // namespace vantrel
