#include "X11Shield.h"

#include <QCoreApplication>
#include <QWindow>

namespace vantrel {

X11Shield::X11Shield(MainQueue &queue, const TypingGuard &guard)
    : m_keyboard(queue, guard), m_stack(queue, m_keyboard) {
    QCoreApplication::instance()->installNativeEventFilter(this);
    m_grant = m_keyboard.granted.subscribe([this] { m_stack.arrange(); });
}

X11Shield::~X11Shield() {
    if (auto *application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
}

void X11Shield::raise(QWindow &window, PanelRole role) {
    const auto id = static_cast<xcb_window_t>(window.winId());
    m_stack.add(id);
    if (role == PanelRole::interactive)
        m_keyboard.take(id);
    // A locked screen stays locked and dark.
    if (m_stack.isLocked())
        m_stack.arrange();
    else
        x11::wakeMonitors();
    flush();
}

void X11Shield::letGo(QWindow &window) {
    const auto id = static_cast<xcb_window_t>(window.winId());
    m_keyboard.giveBack(id);
    m_stack.remove(id);
    flush();
}

void X11Shield::flush() {
    xcb_flush(x11::connection());
}

bool X11Shield::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *) {
    if (eventType == "xcb_generic_event_t") {
        const auto &event = *static_cast<const xcb_generic_event_t *>(message);
        m_keyboard.handleEvent(event);
        m_stack.handleEvent(event);
    }
    return false;
}

} // namespace vantrel
