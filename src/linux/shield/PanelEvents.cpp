#include "PanelEvents.h"

#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace vantrel {

PanelEvents::PanelEvents(QWindow &window, PanelRole role, KeyPresses presses,
                         std::function<bool(const KeyPress &)> listener)
    : QObject(&window), m_role(role), m_presses(presses), m_listener(std::move(listener)) {
    window.installEventFilter(this);
}

bool PanelEvents::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::DeferredDelete)
        return false; // Ends the window, and this object with it.
    ++m_depth;
    if (!isSwallowed(*event))
        watched->event(event);
    --m_depth;
    return true;
}

bool PanelEvents::isSwallowed(QEvent &event) {
    if (event.type() == QEvent::Close) { // Only the panel's owner takes it off the screen.
        event.ignore();
        return true;
    }
    if (m_role == PanelRole::echo) {
        hearMisplacedKey(event);
        return event.isInputEvent();
    }
    switch (event.type()) {
    case QEvent::FocusIn:
        m_presses.noteFocus();
        return false;
    case QEvent::KeyPress: {
        const auto press = m_presses.press(static_cast<QKeyEvent &>(event));
        return !press || m_listener(*press);
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
        return m_presses.isClickedAhead();
    case QEvent::KeyRelease:
        return !m_presses.release(static_cast<QKeyEvent &>(event));
    default:
        return false;
    }
}

/// Some compositors give the keyboard to each window that comes up, an echo panel's as well: then
/// what is pressed in it is for the takeover all the same.
void PanelEvents::hearMisplacedKey(QEvent &event) {
    if (event.type() != QEvent::KeyPress)
        return;
    if (const auto press = m_presses.press(static_cast<QKeyEvent &>(event)))
        m_listener(*press);
}

} // namespace vantrel
