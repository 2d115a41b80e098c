#include "X11Keyboard.h"

#include "ShieldLog.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

using x11::connection;
using x11::Reply;

/// A quarter of an hour of asking, ten times in the first second.
const Backoff grabPauses(Seconds{0.01}, Seconds{1}, 900);

/// A locker that finds the keyboard taken asks for it many times a second.
constexpr Seconds loan{0.4};

/// Against a program that wants the focus just as badly there is no winning; the grab has the keys.
const Backoff focusPauses(Seconds{0.01}, Seconds{1}, 40);

std::bitset<256> keysDown(xcb_query_keymap_cookie_t asked) {
    const Reply<xcb_query_keymap_reply_t> keymap(
        xcb_query_keymap_reply(connection(), asked, nullptr));
    std::bitset<256> down;
    for (std::size_t key = 0; keymap && key < down.size(); ++key)
        down.set(key, keymap->keys[key / 8] >> (key % 8) & 1);
    return down;
}

/// Plain and shifted symbol of the first layout, then of the second (core protocol, section 5).
using Symbols = std::array<xcb_keysym_t, 4>;

Symbols symbolsOf(xcb_keycode_t key) {
    Symbols symbols{};
    const Reply<xcb_get_keyboard_mapping_reply_t> mapping(xcb_get_keyboard_mapping_reply(
        connection(), xcb_get_keyboard_mapping(connection(), key, 1), nullptr));
    if (mapping)
        std::copy_n(xcb_get_keyboard_mapping_keysyms(mapping.get()),
                    std::min<int>(mapping->keysyms_per_keycode, symbols.size()), symbols.begin());
    return symbols;
}

/// Whether the symbol names its character directly; those of other scripts do not.
bool isLatin1(xcb_keysym_t symbol) {
    return (symbol >= 0x20 && symbol <= 0x7e) || (symbol >= 0xa0 && symbol <= 0xff);
}

bool isLatinLetter(xcb_keysym_t symbol) {
    return symbol >= 'a' && symbol <= 'z';
}

/// By the place of the key, which is numbered alike on every keyboard of a PC.
QString americanLetter(xcb_keycode_t key) {
    struct Row {
        xcb_keycode_t first;
        QLatin1String letters;
    };
    for (const Row &row :
         {Row{24, QLatin1String("qwertyuiop")}, Row{38, QLatin1String("asdfghjkl")},
          Row{52, QLatin1String("zxcvbnm")}}) {
        if (key >= row.first && key < row.first + row.letters.size())
            return QString(row.letters[key - row.first]);
    }
    return {};
}

} // namespace

X11Keyboard::X11Keyboard(MainQueue &queue, const TypingGuard &guard)
    : m_queue(queue), m_guard(guard), m_grabPauses(grabPauses), m_focusPauses(focusPauses) {}

X11Keyboard::~X11Keyboard() {
    if (m_owner != XCB_NONE)
        giveBack(m_owner);
}

void X11Keyboard::take(xcb_window_t window) {
    if (m_owner == XCB_NONE) {
        m_guard.begin(m_queue.uptime(), x11::idleTime());
        m_downBefore.reset();
        m_focusedBefore = XCB_NONE;
    }
    const xcb_window_t formerOwner = std::exchange(m_owner, window);
    m_isGrabbed = false;
    m_isLent = false;
    m_grabPauses = grabPauses;
    m_focusPauses = focusPauses;
    focus(formerOwner);
    grab();
}

void X11Keyboard::giveBack(xcb_window_t window) {
    if (m_owner != window)
        return;
    m_nextGrab.cancel();
    m_nextFocus.cancel();
    const Reply<xcb_get_input_focus_reply_t> current(
        xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
    if (current && current->focus == m_owner && m_focusedBefore != XCB_NONE) {
        xcb_discard_reply(connection(),
                          xcb_set_input_focus_checked(connection(), XCB_INPUT_FOCUS_POINTER_ROOT,
                                                      m_focusedBefore, XCB_CURRENT_TIME)
                              .sequence);
    }
    xcb_ungrab_keyboard(connection(), XCB_CURRENT_TIME);
    xcb_flush(connection());
    m_owner = XCB_NONE;
    m_isGrabbed = false;
}

bool X11Keyboard::lend() {
    if (!m_isGrabbed)
        return false;
    xcb_ungrab_keyboard(connection(), XCB_CURRENT_TIME);
    xcb_flush(connection());
    m_isGrabbed = false;
    m_isLent = true;
    askAgainAfter(loan);
    return true;
}

void X11Keyboard::askAgainAfter(Seconds pause) {
    m_nextGrab = m_queue.after(pause, [this] {
        m_isLent = false;
        grabLater();
    });
}

/// The user was busy elsewhere until now, with a menu or a password, say.
void X11Keyboard::grabLater() {
    if (m_isGrabbed)
        return;
    grab();
    if (m_isGrabbed)
        m_guard.begin(m_queue.uptime(), x11::idleTime());
}

void X11Keyboard::focus(xcb_window_t formerOwner) {
    const Reply<xcb_get_input_focus_reply_t> current(
        xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
    if (current && current->focus == m_owner)
        return;
    if (current && (formerOwner == XCB_NONE || current->focus != formerOwner))
        m_focusedBefore = current->focus;
    // Should the program die, the keys go to whatever the pointer is on, not nowhere.
    xcb_discard_reply(connection(),
                      xcb_set_input_focus_checked(connection(), XCB_INPUT_FOCUS_POINTER_ROOT,
                                                  m_owner, XCB_CURRENT_TIME)
                          .sequence);
}

void X11Keyboard::grab() {
    if (m_isGrabbed || m_isLent || m_owner == XCB_NONE)
        return;
    // In one breath: a key that goes down later than the question is a press of ours.
    const auto keymapAsked = xcb_query_keymap(connection());
    const auto grabAsked = xcb_grab_keyboard(connection(), false, m_owner, XCB_CURRENT_TIME,
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const std::bitset<256> down = keysDown(keymapAsked);
    const Reply<xcb_grab_keyboard_reply_t> answer(
        xcb_grab_keyboard_reply(connection(), grabAsked, nullptr));
    m_isGrabbed = answer && answer->status == XCB_GRAB_STATUS_SUCCESS;
    m_downBefore |= down;
    if (m_isGrabbed) {
        m_nextGrab.cancel();
        granted.announce();
    } else if (const auto pause = m_grabPauses.next()) {
        askAgainAfter(*pause);
    } else {
        qCWarning(shieldLog, "Another program keeps the keyboard; no longer asking for it");
    }
}

void X11Keyboard::noteRelease(xcb_keycode_t key) {
    // The server reports a release ahead of each auto-repeat, too.
    if (m_downBefore.test(key) && !keysDown(xcb_query_keymap(connection())).test(key))
        m_downBefore.reset(key);
}

QString X11Keyboard::character(xcb_keycode_t key, std::uint16_t state) const {
    const unsigned layout = state >> 13 & 3;
    if (layout > 1)
        return {};
    const Symbols symbols = symbolsOf(key);
    xcb_keysym_t symbol = symbols[2 * layout + (state & XCB_MOD_MASK_SHIFT ? 1 : 0)];
    if (symbol == XCB_NO_SYMBOL)
        symbol = symbols[2 * layout];
    return isLatin1(symbol) ? QString(QChar(static_cast<char16_t>(symbol))) : QString();
}

QString X11Keyboard::latinLetter(xcb_keycode_t key) const {
    const Symbols symbols = symbolsOf(key);
    for (const xcb_keysym_t symbol : {symbols[0], symbols[2]}) {
        if (isLatinLetter(symbol))
            return QString(QLatin1Char(static_cast<char>(symbol)));
    }
    return americanLetter(key);
}

void X11Keyboard::handleEvent(const xcb_generic_event_t &event) {
    const auto type = event.response_type & ~0x80;
    if (m_owner == XCB_NONE || (type != XCB_FOCUS_IN && type != XCB_FOCUS_OUT))
        return;
    const auto &change = reinterpret_cast<const xcb_focus_in_event_t &>(event);
    if (change.event != m_owner)
        return;
    if (type == XCB_FOCUS_IN) {
        // Also sent at the end of another program's grab: no need to wait for the next attempt.
        grabLater();
    } else if (change.mode == XCB_NOTIFY_MODE_NORMAL ||
               change.mode == XCB_NOTIFY_MODE_WHILE_GRABBED) {
        regainFocusSoon();
    }
}

void X11Keyboard::regainFocusSoon() {
    if (const auto pause = m_focusPauses.next()) {
        m_nextFocus = m_queue.after(*pause, [this] {
            if (m_owner != XCB_NONE)
                focus(XCB_NONE);
        });
    }
}

} // namespace vantrel
