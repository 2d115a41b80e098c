#include "X11Focus.h"

#include <linux/views/X11Connection.h>

#include <QWindow>

#include <string_view>

namespace vantrel::x11 {

namespace {

void focus(xcb_window_t window) {
    // The window may be gone: its error comes back here, to be dropped.
    const auto cookie =
        xcb_set_input_focus_checked(connection(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_discard_reply(connection(), cookie.sequence);
    xcb_flush(connection());
}

} // namespace

xcb_window_t focusedWindow() {
    if (!connection())
        return XCB_NONE;
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

void takeFocus(const QWindow &window) {
    if (connection())
        focus(static_cast<xcb_window_t>(window.winId()));
}

void passFocus(const QWindow &window, xcb_window_t next) {
    constexpr xcb_window_t pointerRoot = XCB_INPUT_FOCUS_POINTER_ROOT;
    if (connection() && next != XCB_NONE && next != pointerRoot &&
        focusedWindow() == static_cast<xcb_window_t>(window.winId()))
        focus(next);
}

bool isBlended() {
    if (!connection())
        return true;
    constexpr std::string_view name = "_NET_WM_CM_S0";
    const Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection(), xcb_intern_atom(connection(), false, name.size(), name.data()), nullptr));
    if (!atom)
        return false;
    const Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection(), xcb_get_selection_owner(connection(), atom->atom), nullptr));
    return owner && owner->owner != XCB_NONE;
}

} // namespace vantrel::x11
