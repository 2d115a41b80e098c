#pragma once

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
    /// `keyboard` is null off X11, where a compositor tells a window of no key that was down
    /// before; otherwise it must outlive this object.
    explicit KeyPresses(X11Keyboard *keyboard) : m_keyboard(keyboard) {}

    /// Whether a click that comes in now is none of the panel's.
    [[nodiscard]] bool isClickedAhead() const;

    /// Empty for what is no press.
    [[nodiscard]] std::optional<KeyPress> press(const QKeyEvent &event);

    /// False for the release of a key whose press did not count.
    [[nodiscard]] bool release(const QKeyEvent &event);

private:
    [[nodiscard]] bool isRepeat(const QKeyEvent &event) const;
    [[nodiscard]] QString charactersIgnoringModifiers(const QKeyEvent &event) const;

    X11Keyboard *m_keyboard;
    quint32 m_releasedKey = 0;
    quint64 m_releaseTime = 0;
};

} // namespace vantrel
