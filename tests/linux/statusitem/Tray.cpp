#include "Tray.h"

#include <array>
#include <cstring>

namespace vantrel::tests {

namespace {

xcb_visualid_t visualWithAlpha(const xcb_screen_t &screen) {
    auto depths = xcb_screen_allowed_depths_iterator(&screen);
    for (; depths.rem; xcb_depth_next(&depths)) {
        if (depths.data->depth == 32)
            return xcb_depth_visuals_iterator(depths.data).data->visual_id;
    }
    return 0;
}

} // namespace

Tray::Tray(Visual visual)
    : m_link([this](const xcb_generic_event_t &event) { take(event); }),
      m_window(xcb_generate_id(m_link.connection())) {
    xcb_connection_t *connection = m_link.connection();
    const std::array<std::uint32_t, 2> values{ground.rgb() & 0xffffff,
                                              XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, m_window, m_link.screen().root,
                      static_cast<std::int16_t>(frame.x()), static_cast<std::int16_t>(frame.y()),
                      static_cast<std::uint16_t>(frame.width()),
                      static_cast<std::uint16_t>(frame.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    if (visual == Visual::withAlpha) {
        const xcb_visualid_t id = visualWithAlpha(m_link.screen());
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_window,
                            m_link.atom("_NET_SYSTEM_TRAY_VISUAL"), XCB_ATOM_VISUALID, 32, 1, &id);
    }
    xcb_map_window(connection, m_window);
    const xcb_atom_t selection = m_link.atom("_NET_SYSTEM_TRAY_S0");
    xcb_set_selection_owner(connection, m_window, selection, XCB_CURRENT_TIME);
    announce(selection);
    m_link.drain();
}

Tray::~Tray() {
    // As a tray that is killed: what it holds goes with it.
    xcb_destroy_window(m_link.connection(), m_window);
    m_link.drain();
}

void Tray::announce(xcb_atom_t selection) const {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_link.screen().root;
    message.type = m_link.atom("MANAGER");
    message.data.data32[1] = selection;
    message.data.data32[2] = m_window;
    xcb_send_event(m_link.connection(), 0, m_link.screen().root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
}

void Tray::take(const xcb_generic_event_t &event) {
    switch (event.response_type & 0x7f) {
    case XCB_CLIENT_MESSAGE: {
        const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
        if (message.type == m_link.atom("_NET_SYSTEM_TRAY_OPCODE") && message.data.data32[1] == 0)
            embed(message.data.data32[2]);
        break;
    }
    case XCB_REPARENT_NOTIFY: {
        // The server may carry out what the item asks for next ahead of the request to embed it.
        const auto &change = reinterpret_cast<const xcb_reparent_notify_event_t &>(event);
        if (change.parent == m_window)
            m_docked = change.window;
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window == m_docked)
            m_docked.reset();
        break;
    default:
        break;
    }
}

void Tray::embed(xcb_window_t window) {
    xcb_connection_t *connection = m_link.connection();
    const auto side = static_cast<std::uint32_t>(frame.height());
    const std::array<std::uint32_t, 2> size{side, side};
    xcb_reparent_window(connection, window, m_window, 0, 0);
    xcb_configure_window(connection, window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         size.data());
    xcb_map_window(connection, window);
}

QImage Tray::picture() const {
    const XReply<xcb_get_image_reply_t> reply(xcb_get_image_reply(
        m_link.connection(),
        xcb_get_image(m_link.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_link.screen().root,
                      static_cast<std::int16_t>(frame.x()), static_cast<std::int16_t>(frame.y()),
                      static_cast<std::uint16_t>(frame.width()),
                      static_cast<std::uint16_t>(frame.height()), ~0U),
        nullptr));
    QImage picture(frame.size(), QImage::Format_RGB32);
    std::memcpy(picture.bits(), xcb_get_image_data(reply.get()),
                static_cast<std::size_t>(picture.sizeInBytes()));
    return picture;
}

int Tray::depthOfDocked() const {
    const XReply<xcb_get_geometry_reply_t> reply(xcb_get_geometry_reply(
        m_link.connection(), xcb_get_geometry(m_link.connection(), *m_docked), nullptr));
    return reply ? reply->depth : 0;
}

QByteArray Tray::nameOfDocked() const {
    const XReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_link.connection(),
                               xcb_get_property(m_link.connection(), 0, *m_docked,
                                                m_link.atom("_NET_WM_NAME"), XCB_ATOM_ANY, 0, 1024),
                               nullptr));
    return reply ? QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()))
                 : QByteArray();
}

void Tray::release(xcb_button_t button, std::uint16_t state, QPoint place) const {
    xcb_button_release_event_t event{};
    event.response_type = XCB_BUTTON_RELEASE;
    event.detail = button;
    event.state = state;
    event.root = m_link.screen().root;
    event.event = *m_docked;
    event.event_x = static_cast<std::int16_t>(place.x());
    event.event_y = static_cast<std::int16_t>(place.y());
    event.root_x = static_cast<std::int16_t>(frame.x() + place.x());
    event.root_y = static_cast<std::int16_t>(frame.y() + place.y());
    event.same_screen = 1;
    xcb_send_event(m_link.connection(), 0, *m_docked, XCB_EVENT_MASK_BUTTON_RELEASE,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(m_link.connection());
}

} // namespace vantrel::tests
