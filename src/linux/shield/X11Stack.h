#pragma once

#include "X11Keyboard.h"

#include <platform/Backoff.h>
#include <platform/MainQueue.h>

#include <set>
#include <vector>

namespace vantrel {

/// Keeps windows of ours above all others of an X server, also those that are mapped or raised
/// later. It gives way to a screen locker alone.
///
/// A window that comes up for the first time is covered at once, however many came before it. One
/// that keeps coming up is covered again and again, more and more slowly, so that two programs that
/// both want to be on top do not flicker; but it is never left there.
///
/// A locker is told by what it does: an unmanaged window over a whole monitor whose program holds
/// the keyboard. One that comes up while the panels have the keyboard could not lock the screen:
/// each such window is lent the keyboard once. Main thread only.
class X11Stack {
public:
    /// Both must outlive the stack.
    X11Stack(MainQueue &queue, X11Keyboard &keyboard);
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
    [[nodiscard]] std::vector<xcb_window_t> windowsAbove() const;
    [[nodiscard]] Seconds pauseFor(const std::vector<xcb_window_t> &above);
    [[nodiscard]] bool isLockerToBe(xcb_window_t window) const;
    [[nodiscard]] bool makeWayForLocker();
    void checkSoon();
    void check();

    MainQueue &m_queue;
    X11Keyboard &m_keyboard;
    std::vector<xcb_window_t> m_windows;   ///< In the order in which they came.
    std::set<xcb_window_t> m_triedLockers; ///< Those that had their chance.
    std::set<xcb_window_t> m_rivals;       ///< Those that were covered before.
    Backoff m_pauses;
    MonotonicInstant m_arrangedAt;
    ScheduledWork m_check;
    bool m_isChecking = false;
};

} // namespace vantrel
