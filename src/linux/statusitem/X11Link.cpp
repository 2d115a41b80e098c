#include "X11Link.h"

#include <cstring>

namespace vantrel {

X11Link::X11Link(OnEvent onEvent)
    : m_onEvent(std::move(onEvent)), m_connection(xcb_connect(nullptr, &m_screenNumber)) {
    if (!isAlive())
        return;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int number = 0; number < m_screenNumber && screens.rem > 1; ++number)
        xcb_screen_next(&screens);
    m_screen = screens.data;
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection),
                                                   QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { drain(); });
}

X11Link::~X11Link() {
    m_notifier.reset();
    xcb_disconnect(m_connection);
}

bool X11Link::isAlive() const {
    return xcb_connection_has_error(m_connection) == 0;
}

xcb_atom_t X11Link::atom(const char *name) const {
    const XReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection,
        xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> X11Link::values(xcb_window_t window, xcb_atom_t property) const {
    constexpr std::uint32_t longest = 64;
    const XReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_connection, xcb_get_property(m_connection, 0, window, property, XCB_ATOM_ANY, 0, longest),
        nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

void X11Link::drain() {
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)})
        m_onEvent(*event);
    xcb_flush(m_connection);
    // A socket that was closed stays readable for good.
    if (m_notifier && !isAlive())
        m_notifier->setEnabled(false);
}

} // namespace vantrel
