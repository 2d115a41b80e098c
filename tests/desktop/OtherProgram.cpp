#include "OtherProgram.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <vector>

namespace vantrel::tests {

namespace {

struct FreeDeleter {
    void operator()(void *reply) const { std::free(reply); }
};

template <typename T>
std::unique_ptr<T, FreeDeleter> own(T *reply) {
    return std::unique_ptr<T, FreeDeleter>(reply);
}

} // namespace

OtherProgram::OtherProgram() : m_connection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(m_connection))
        throw std::runtime_error("no X server");
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
}

OtherProgram::~OtherProgram() {
    const std::set<xcb_keycode_t> held = m_heldKeys;
    for (const xcb_keycode_t key : held)
        releaseKey(key);
    xcb_disconnect(m_connection);
}

xcb_window_t OtherProgram::openWindow(Kind kind, const QRect &frame, const QColor &color) {
    const xcb_window_t window = xcb_generate_id(m_connection);
    const std::uint32_t values[] = {color.rgb() & 0xffffff, kind == Kind::unmanaged ? 1u : 0u};
    xcb_create_window(m_connection, m_screen->root_depth, window, m_screen->root,
                      static_cast<std::int16_t>(frame.x()), static_cast<std::int16_t>(frame.y()),
                      static_cast<std::uint16_t>(frame.width()),
                      static_cast<std::uint16_t>(frame.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      m_screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    if (kind == Kind::fullScreen)
        setAtoms(window, "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN");
    if (kind == Kind::dock)
        setAtoms(window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK");
    // WM_NORMAL_HINTS: the user asked for this position and size.
    std::uint32_t hints[18] = {1u | 2u};
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
    xcb_map_window(m_connection, window);
    settle();
    return window;
}

void OtherProgram::setAtoms(xcb_window_t window, const char *property, const char *value) {
    const xcb_atom_t held = atom(value);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_ATOM,
                        32, 1, &held);
}

void OtherProgram::closeWindow(xcb_window_t window) {
    xcb_destroy_window(m_connection, window);
    settle();
}

void OtherProgram::raise(xcb_window_t window) {
    const std::uint32_t mode = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
    settle();
}

void OtherProgram::focus(xcb_window_t window) {
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    settle();
}

xcb_window_t OtherProgram::focused() {
    return own(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr))
        ->focus;
}

bool OtherProgram::isViewable(xcb_window_t window) {
    const auto attributes = own(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool OtherProgram::isAbove(xcb_window_t higher, xcb_window_t lower) {
    const auto tree =
        own(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, root()), nullptr));
    const xcb_window_t *begin = xcb_query_tree_children(tree.get());
    const xcb_window_t *end = begin + xcb_query_tree_children_length(tree.get());
    const xcb_window_t *found = std::find(begin, end, lower);
    return found != end && std::find(found, end, higher) != end;
}

bool OtherProgram::grabKeyboard() {
    const auto answer = own(xcb_grab_keyboard_reply(
        m_connection,
        xcb_grab_keyboard(m_connection, false, m_screen->root, XCB_CURRENT_TIME,
                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    return answer && answer->status == XCB_GRAB_STATUS_SUCCESS;
}

void OtherProgram::letGoOfKeyboard() {
    xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
    settle();
}

void OtherProgram::pressKey(xcb_keycode_t key) {
    m_heldKeys.insert(key);
    fake(XCB_KEY_PRESS, key);
}

void OtherProgram::releaseKey(xcb_keycode_t key) {
    m_heldKeys.erase(key);
    fake(XCB_KEY_RELEASE, key);
}

void OtherProgram::strikeKey(xcb_keycode_t key) {
    pressKey(key);
    releaseKey(key);
}

void OtherProgram::pressButton(QPoint place, Button button) {
    fake(XCB_MOTION_NOTIFY, 0, place);
    fake(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
}

void OtherProgram::releaseButton(Button button) {
    fake(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

void OtherProgram::click(QPoint place) {
    pressButton(place);
    releaseButton();
}

void OtherProgram::fake(std::uint8_t type, std::uint8_t detail, QPoint place) {
    xcb_test_fake_input(m_connection, type, detail, XCB_CURRENT_TIME, m_screen->root,
                        static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()),
                        0);
    settle();
}

QImage OtherProgram::picture(const QRect &area) {
    const auto image = own(xcb_get_image_reply(
        m_connection,
        xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root,
                      static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
                      static_cast<std::uint16_t>(area.width()),
                      static_cast<std::uint16_t>(area.height()), ~0u),
        nullptr));
    if (!image)
        return {};
    return QImage(xcb_get_image_data(image.get()), area.width(), area.height(),
                  QImage::Format_RGB32)
        .copy();
}

bool OtherProgram::hasWindowManager() {
    return number(root(), "_NET_SUPPORTING_WM_CHECK") != 0;
}

void OtherProgram::forgetWindowManager() {
    xcb_delete_property(m_connection, root(), atom("_NET_SUPPORTING_WM_CHECK"));
    settle();
}

bool OtherProgram::isBlended() {
    return own(xcb_get_selection_owner_reply(
                   m_connection, xcb_get_selection_owner(m_connection, atom("_NET_WM_CM_S0")),
                   nullptr))
               ->owner != XCB_NONE;
}

bool OtherProgram::showsWindowOfClass(const std::string &name) {
    std::vector<xcb_window_t> waiting{root()};
    while (!waiting.empty()) {
        const xcb_window_t window = waiting.back();
        waiting.pop_back();
        if (isOfClass(window, name) && isViewable(window))
            return true;
        const auto tree =
            own(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
        if (tree) {
            const xcb_window_t *first = xcb_query_tree_children(tree.get());
            waiting.insert(waiting.end(), first,
                           first + xcb_query_tree_children_length(tree.get()));
        }
    }
    return false;
}

bool OtherProgram::isOfClass(xcb_window_t window, const std::string &name) {
    const auto reply = own(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, false, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 64),
        nullptr));
    return reply &&
           std::string(static_cast<const char *>(xcb_get_property_value(reply.get())),
                       static_cast<std::size_t>(xcb_get_property_value_length(reply.get())))
                   .find(name) != std::string::npos;
}

std::uint32_t OtherProgram::number(xcb_window_t window, const char *property) {
    const auto reply =
        own(xcb_get_property_reply(m_connection,
                                   xcb_get_property(m_connection, false, window, atom(property),
                                                    XCB_GET_PROPERTY_TYPE_ANY, 0, 1),
                                   nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) < 4)
        return 0;
    std::uint32_t value = 0;
    std::memcpy(&value, xcb_get_property_value(reply.get()), sizeof value);
    return value;
}

xcb_atom_t OtherProgram::atom(const char *name) {
    return own(xcb_intern_atom_reply(m_connection,
                                     xcb_intern_atom(m_connection, false,
                                                     static_cast<std::uint16_t>(std::strlen(name)),
                                                     name),
                                     nullptr))
        ->atom;
}

void OtherProgram::settle() {
    (void)focused();
}

} // namespace vantrel::tests
