#pragma once

#include "Backoff.h"
#include "X11.h"

#include <platform/MainQueue.h>
#include <platform/Published.h>

#include <QString>

#include <bitset>

namespace vantrel {

/// Takes the X server's keyboard for one window and gives it back: input focus for the desktop's
/// sake, and a grab, since a window that appears later would take the focus away.
///
/// Another program may hold a grab of its own, an open menu say; then it is asked for again and
/// again. Main thread only.
class X11Keyboard {
public:
    explicit X11Keyboard(MainQueue &queue);
    X11Keyboard(const X11Keyboard &) = delete;
    X11Keyboard &operator=(const X11Keyboard &) = delete;
    ~X11Keyboard();

    /// The window must be mapped. A window that had the keyboard before loses it to this one.
    void take(xcb_window_t window);

    /// Hands the focus back to the window that had it, unless somebody else has it by now. Does
    /// nothing for a window that does not have the keyboard.
    void giveBack(xcb_window_t window);

    /// Lets go of the grab for a moment, for a screen locker to take it; the focus stays. Answers
    /// whether there was a grab to let go of.
    bool lend();

    /// Whether another program keeps the keyboard from the window that wants it.
    [[nodiscard]] bool isWithheld() const { return m_owner != XCB_NONE && !m_isGrabbed; }

    /// Announced when the grab was granted after it had been withheld.
    Announcer<> granted;

    /// Whether the key has been down without a break since before the keyboard was taken.
    [[nodiscard]] bool wasDownBefore(xcb_keycode_t key) const { return m_downBefore.test(key); }

    /// Call it for each release of a key that was down before.
    void noteRelease(xcb_keycode_t key);

    /// What the key writes without Control, Alt and their like, in lower case unless Shift is
    /// held; the Latin letter of the user's other layout where this one has another script's.
    /// Empty when that cannot be said from here. `state` is the event's.
    [[nodiscard]] QString character(xcb_keycode_t key, std::uint16_t state) const;

    /// Watches the focus. Call it with each event of the connection.
    void handleEvent(const xcb_generic_event_t &event);

private:
    void askAgainAfter(Seconds pause);
    void focus(xcb_window_t formerOwner);
    void grab();
    void regainFocusSoon();

    MainQueue &m_queue;
    xcb_window_t m_owner = XCB_NONE;
    bool m_isGrabbed = false;
    bool m_isLent = false;
    xcb_window_t m_focusedBefore = XCB_NONE;
    std::bitset<256> m_downBefore;
    Backoff m_grabPauses;
    Backoff m_focusPauses;
    ScheduledWork m_nextGrab;
    ScheduledWork m_nextFocus;
};

} // namespace vantrel
