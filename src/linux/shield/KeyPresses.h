#pragma once

#include "TypingGuard.h"

#include <platform/MainQueue.h>
#include <platform/ShieldingPanels.h>

#include <QtGlobal>

#include <optional>

class QKeyEvent;

namespace vantrel {

class X11Keyboard;

/// Tells presses of keys from what merely looks like one: the auto-repeat of a key that is held,
/// the keys that were down before the panel had the keyboard, and the text that the user was typing
/// as it came up.
class KeyPresses {
public:
    /// On X11. `keyboard` must outlive this object.
    explicit KeyPresses(X11Keyboard &keyboard) : m_keyboard(&keyboard) {}

    /// Elsewhere: a compositor tells a window of no key that was down before, but neither how long
    /// ago the last one was, so that everyone counts as busy. `queue` must outlive this object.
    KeyPresses(MainQueue &queue, const TypingGuard &guard) : m_queue(&queue), m_guard(guard) {}

    /// The panel has the keyboard. On X11 that is known before the window's event tells; on
    /// Wayland the first key may come ahead of it.
    void noteFocus();

    /// Whether a click that comes in now is none of the panel's.
    [[nodiscard]] bool isClickedAhead() const;

    /// Empty for what is no press.
    [[nodiscard]] std::optional<KeyPress> press(const QKeyEvent &event);

    /// False for the release of a key whose press did not count.
    [[nodiscard]] bool release(const QKeyEvent &event);

private:
    [[nodiscard]] bool isTypedAhead();
    [[nodiscard]] bool isRepeat(const QKeyEvent &event) const;
    [[nodiscard]] QString charactersIgnoringModifiers(const QKeyEvent &event) const;

    X11Keyboard *m_keyboard = nullptr;
    MainQueue *m_queue = nullptr; ///< Null on X11, and used nowhere there.
    TypingGuard m_guard;
    bool m_hasHadFocus = false;
    quint32 m_releasedKey = 0;
    quint64 m_releaseTime = 0;
};

} // namespace vantrel
