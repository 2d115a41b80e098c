#include "KeyPresses.h"

#include "X11Keyboard.h"

#include <QKeyEvent>

#include <utility>

namespace vantrel {

namespace {

Key keyOf(const QKeyEvent &event) {
    switch (event.key()) {
    case Qt::Key_Escape:
        return Key::escape;
    case Qt::Key_Space:
        return Key::space;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::enter;
    default:
        return Key::other;
    }
}

xcb_keycode_t keycode(const QKeyEvent &event) {
    return static_cast<xcb_keycode_t>(event.nativeScanCode());
}

} // namespace

std::optional<KeyPress> KeyPresses::press(const QKeyEvent &event) {
    noteFocus();
    if (isRepeat(event) || (m_keyboard && m_keyboard->wasDownBefore(keycode(event))))
        return std::nullopt;
    if (isTypedAhead())
        return std::nullopt;
    return KeyPress{keyOf(event), charactersIgnoringModifiers(event)};
}

bool KeyPresses::isClickedAhead() const {
    return m_keyboard ? m_keyboard->isClickedAhead() : m_guard.takesClick(m_queue->uptime());
}

bool KeyPresses::isTypedAhead() {
    return m_keyboard ? m_keyboard->isTypedAhead() : m_guard.takesKey(m_queue->uptime());
}

void KeyPresses::noteFocus() {
    if (m_queue && !std::exchange(m_hasHadFocus, true))
        m_guard.begin(m_queue->uptime(), Seconds::zero());
}

bool KeyPresses::release(const QKeyEvent &event) {
    m_releasedKey = event.nativeScanCode();
    m_releaseTime = event.timestamp();
    if (event.isAutoRepeat())
        return false;
    if (!m_keyboard || !m_keyboard->wasDownBefore(keycode(event)))
        return true;
    m_keyboard->noteRelease(keycode(event));
    return false;
}

/// An X server reports an auto-repeat as a release and a press at the same moment. Qt tells it from
/// the two by looking ahead for the press, in vain when the press has not come in yet.
bool KeyPresses::isRepeat(const QKeyEvent &event) const {
    return event.isAutoRepeat() || (m_keyboard && event.nativeScanCode() == m_releasedKey &&
                                    event.timestamp() == m_releaseTime);
}

QString KeyPresses::charactersIgnoringModifiers(const QKeyEvent &event) const {
    if (m_keyboard) {
        const QString character = m_keyboard->character(
            keycode(event), static_cast<std::uint16_t>(event.nativeModifiers()));
        if (!character.isEmpty())
            return character;
    }
    // The event's text would be a control character with Control held. The key is named by the
    // upper-case letter, whatever the modifiers; keys that write nothing start here.
    constexpr int firstWithoutText = Qt::Key_Escape;
    if (event.key() <= 0 || event.key() >= firstWithoutText)
        return {};
    const char32_t letter = static_cast<char32_t>(event.key());
    if (m_keyboard && letter > 0xff) {
        const QString latin = m_keyboard->latinLetter(keycode(event));
        if (!latin.isEmpty())
            return latin;
    }
    const QString upper = QString::fromUcs4(&letter, 1);
    return event.modifiers().testFlag(Qt::ShiftModifier) ? upper : upper.toLower();
}

} // namespace vantrel
