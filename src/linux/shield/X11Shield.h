#pragma once

#include "X11Keyboard.h"
#include "X11Stack.h"

#include <platform/MainQueue.h>
#include <platform/ShieldingPanels.h>

#include <QAbstractNativeEventFilter>

class QWindow;

namespace vantrel {

/// What a panel needs of an X server beyond what Qt does for it: to be and to stay on top, and to
/// have the keyboard. Main thread only.
class X11Shield : public QAbstractNativeEventFilter {
public:
    /// `queue` must outlive the shield.
    X11Shield(MainQueue &queue, const TypingGuard &guard);
    ~X11Shield() override;

    /// Whether the program runs on X11.
    [[nodiscard]] static bool isAvailable() { return x11::connection() != nullptr; }

    /// Call it for a window that bypasses the window manager, as soon as it is shown.
    void raise(QWindow &window, PanelRole role);

    /// Call it before the window is hidden. Harmless for one that was not raised.
    void letGo(QWindow &window);

    /// Sends what Qt has been asked for to the server. Qt itself may leave it lying until the next
    /// event comes in.
    void flush();

    [[nodiscard]] X11Keyboard &keyboard() { return m_keyboard; }

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    X11Keyboard m_keyboard;
    X11Stack m_stack;
    Subscription m_grant;
};

} // namespace vantrel
