#include "X11.h"

#include <xcb/dpms.h>
#include <xcb/screensaver.h>

namespace vantrel::x11 {

namespace {

/// The windows concerned may belong to others and vanish at any moment. A request that names one
/// is sent so that its error comes back here, to be dropped, instead of to Qt, which prints it.
void ignoreErrors(xcb_void_cookie_t cookie) {
    xcb_discard_reply(connection(), cookie.sequence);
}

std::uint32_t selectedEvents(xcb_window_t window) {
    const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection(), xcb_get_window_attributes(connection(), window), nullptr));
    return attributes ? attributes->your_event_mask : 0;
}

void setEvents(xcb_window_t window, std::uint32_t mask) {
    ignoreErrors(
        xcb_change_window_attributes_checked(connection(), window, XCB_CW_EVENT_MASK, &mask));
}

} // namespace

std::vector<xcb_window_t> stackingOrder() {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection(), xcb_query_tree(connection(), rootWindow()), nullptr));
    if (!tree)
        return {};
    const xcb_window_t *first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

WindowFacts describe(xcb_window_t window) {
    const auto attributesAsked = xcb_get_window_attributes(connection(), window);
    const auto geometryAsked = xcb_get_geometry(connection(), window);
    const Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection(), attributesAsked, nullptr));
    const Reply<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection(), geometryAsked, nullptr));
    if (!attributes || !geometry)
        return {};
    WindowFacts facts;
    facts.isVisible = attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                      attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT;
    facts.isUnmanaged = attributes->override_redirect;
    const int border = 2 * geometry->border_width;
    facts.frame =
        QRect(geometry->x, geometry->y, geometry->width + border, geometry->height + border);
    return facts;
}

bool isServersOwn(xcb_window_t window) {
    // An id is made of its client's number and, in the mask's bits, the client's own count. The
    // server is client number zero; the bits at the very top are no part of the number.
    constexpr std::uint32_t idBits = 0x1fffffff;
    return (window & idBits & ~xcb_get_setup(connection())->resource_id_mask) == 0;
}

void raise(xcb_window_t window) {
    const std::uint32_t mode = XCB_STACK_MODE_ABOVE;
    ignoreErrors(
        xcb_configure_window_checked(connection(), window, XCB_CONFIG_WINDOW_STACK_MODE, &mode));
}

void placeBelow(xcb_window_t window, xcb_window_t sibling) {
    const std::uint32_t values[] = {sibling, XCB_STACK_MODE_BELOW};
    ignoreErrors(xcb_configure_window_checked(
        connection(), window, XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values));
}

void wakeMonitors() {
    xcb_force_screen_saver(connection(), XCB_SCREEN_SAVER_RESET);
    // The screen saver knows nothing of the monitors' power, which only input switches on again.
    const auto *power = xcb_get_extension_data(connection(), &xcb_dpms_id);
    if (power && power->present)
        ignoreErrors(xcb_dpms_force_level_checked(connection(), XCB_DPMS_DPMS_MODE_ON));
}

Seconds idleTime() {
    constexpr Seconds unknown{86400};
    const auto *extension = xcb_get_extension_data(connection(), &xcb_screensaver_id);
    if (!extension || !extension->present)
        return unknown;
    const Reply<xcb_screensaver_query_info_reply_t> info(xcb_screensaver_query_info_reply(
        connection(), xcb_screensaver_query_info(connection(), rootWindow()), nullptr));
    return info ? Seconds{info->ms_since_user_input / 1000.0} : unknown;
}

void selectEvents(xcb_window_t window, std::uint32_t mask) {
    setEvents(window, selectedEvents(window) | mask);
}

void deselectEvents(xcb_window_t window, std::uint32_t mask) {
    setEvents(window, selectedEvents(window) & ~mask);
}

} // namespace vantrel::x11
