#pragma once

#include "Backoff.h"
#include "X11.h"

#include <platform/MainQueue.h>

#include <functional>
#include <vector>

namespace vantrel {

/// Keeps windows of ours above all others of an X server, also those that are mapped or raised
/// later. It gives way to a screen locker alone.
///
/// A locker is told by what it does: an unmanaged window over a whole monitor whose program holds
/// the keyboard. Main thread only.
class X11Stack {
public:
    /// `isKeyboardWithheld` answers whether another program holds the keyboard.
    X11Stack(MainQueue &queue, std::function<bool()> isKeyboardWithheld);
    X11Stack(const X11Stack &) = delete;
    X11Stack &operator=(const X11Stack &) = delete;
    ~X11Stack();

    /// Takes a mapped window under its care, on top of the others.
    void add(xcb_window_t window);

    /// Harmless for a window that is not under its care.
    void remove(xcb_window_t window);

    /// Puts the windows where they belong: below a locker, else on top.
    void arrange();

    /// Whether a locker covers one of the windows.
    [[nodiscard]] bool isLocked() const;

    /// Watches the other windows. Call it with each event of the connection.
    void handleEvent(const xcb_generic_event_t &event);

private:
    [[nodiscard]] bool isOurs(xcb_window_t window) const;
    [[nodiscard]] xcb_window_t lowestLocker() const;
    [[nodiscard]] bool isObscured() const;
    void checkSoon();

    MainQueue &m_queue;
    std::function<bool()> m_isKeyboardWithheld;
    std::vector<xcb_window_t> m_windows; ///< In the order in which they came.
    Backoff m_pauses;
    ScheduledWork m_check;
    bool m_isChecking = false;
};

} // namespace vantrel
