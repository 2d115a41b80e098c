#include "X11Pointer.h"

#include <linux/views/X11Connection.h>

#include <QCoreApplication>
#include <QCursor>

#include <xcb/xinput.h>

#include <utility>

namespace vantrel {

namespace {

constexpr std::uint32_t lastRealButton = 3; ///< Those that follow are the wheel's.

} // namespace

X11Pointer::X11Pointer(std::function<void(QPoint)> pressed, std::function<void()> released)
    : m_pressed(std::move(pressed)), m_released(std::move(released)) {
    if (!x11::connection())
        return;
    // Qt has agreed with the server on a version of it by now.
    const auto *extension = xcb_get_extension_data(x11::connection(), &xcb_input_id);
    if (extension && extension->present)
        m_extension = extension->major_opcode;
}

X11Pointer::~X11Pointer() {
    stop();
}

void X11Pointer::listen() {
    if (m_isListening || !m_extension)
        return;
    m_isListening = true;
    QCoreApplication::instance()->installNativeEventFilter(this);
    select(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE);
}

void X11Pointer::stop() {
    if (!m_isListening)
        return;
    m_isListening = false;
    QCoreApplication::instance()->removeNativeEventFilter(this);
    select(0);
}

void X11Pointer::select(std::uint32_t events) {
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } const selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    xcb_input_xi_select_events(x11::connection(), x11::rootWindow(), 1, &selection.head);
    xcb_flush(x11::connection());
}

bool X11Pointer::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_input_raw_button_press_event_t *>(message);
    if ((event->response_type & 0x7f) != XCB_GE_GENERIC || event->extension != m_extension)
        return false;
    if (event->event_type == XCB_INPUT_RAW_BUTTON_PRESS && event->detail <= lastRealButton)
        m_pressed(QCursor::pos());
    if (event->event_type == XCB_INPUT_RAW_BUTTON_RELEASE && event->detail <= lastRealButton)
        m_released();
    return false;
}

} // namespace vantrel
