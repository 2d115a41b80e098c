#pragma once

#include "TypingGuard.h"
#include "X11.h"

#include <platform/Backoff.h>
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
    X11Keyboard(MainQueue &queue, const TypingGuard &guard);
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

    /// Whether a key, or a click, that comes in now is what the user was at as the keyboard was
    /// taken, and no answer.
    [[nodiscard]] bool isTypedAhead() { return m_guard.takesKey(m_queue.uptime()); }
    [[nodiscard]] bool isClickedAhead() const { return m_guard.takesClick(m_queue.uptime()); }

    /// Call it for each release of a key that was down before.
    void noteRelease(xcb_keycode_t key);

    /// What the key writes without Control, Alt and their like, in lower case unless Shift is
    /// held. Empty for a character beyond Latin-1, and for a third or fourth layout, of which the
    /// core protocol does not tell. `state` is the event's.
    [[nodiscard]] QString character(xcb_keycode_t key, std::uint16_t state) const;

    /// For a key that bears a letter of another script: the Latin letter that it has in the user's
    /// first or second layout, else the one that it bears on an American keyboard. Empty for none.
    [[nodiscard]] QString latinLetter(xcb_keycode_t key) const;

    /// Watches the focus. Call it with each event of the connection.
    void handleEvent(const xcb_generic_event_t &event);

private:
    void askAgainAfter(Seconds pause);
    void focus(xcb_window_t formerOwner);
    void grab();
    void grabLater();
    void regainFocusSoon();

    MainQueue &m_queue;
    TypingGuard m_guard;
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
