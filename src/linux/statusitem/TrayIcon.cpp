#include "TrayIcon.h"

namespace vantrel {

namespace {

constexpr xcb_button_t leftButton = 1;
constexpr xcb_button_t middleButton = 2;
constexpr xcb_button_t rightButton = 3;

template <typename T>
const T &as(const xcb_generic_event_t &event) {
    return reinterpret_cast<const T &>(event);
}

} // namespace

TrayIcon::TrayIcon(SymbolArt art, Listener listener)
    : m_art(std::move(art)),
      m_listener(std::move(listener)),
      m_link([this](const xcb_generic_event_t &event) { take(event); }) {
    if (!m_link.isAlive())
        return;
    m_selection =
        m_link.atom(("_NET_SYSTEM_TRAY_S" + QByteArray::number(m_link.screenNumber())).constData());
    m_manager = m_link.atom("MANAGER");
    // A tray that comes tells the root window.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_link.connection(), m_link.screen().root, XCB_CW_EVENT_MASK,
                                 &events);
    look();
    m_link.drain();
}

void TrayIcon::show(const ItemLook &look) {
    m_look = look;
    if (!m_window)
        return;
    m_window->show(look);
    m_link.drain();
}

void TrayIcon::look() {
    const XReply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        m_link.connection(), xcb_get_selection_owner(m_link.connection(), m_selection), nullptr));
    const xcb_window_t tray = owner ? owner->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
    if (tray == m_tray && (m_window || tray == XCB_WINDOW_NONE))
        return;
    m_window.reset();
    m_tray = tray;
    if (tray == XCB_WINDOW_NONE)
        return;
    // Its end is told when its window is destroyed. A tray that has gone by the time of this
    // request is followed by the announcement of the next one.
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_link.connection(), tray, XCB_CW_EVENT_MASK, &events);
    m_window = std::make_unique<TrayWindow>(m_link, m_art, tray);
    m_window->show(m_look);
}

void TrayIcon::take(const xcb_generic_event_t &event) {
    switch (event.response_type & 0x7f) {
    case XCB_CLIENT_MESSAGE:
        takeMessage(as<xcb_client_message_event_t>(event));
        break;
    case XCB_DESTROY_NOTIFY:
        takeLoss(as<xcb_destroy_notify_event_t>(event).window);
        break;
    case XCB_CONFIGURE_NOTIFY: {
        const auto &change = as<xcb_configure_notify_event_t>(event);
        if (m_window && change.window == m_window->id())
            m_window->resize({change.width, change.height});
        break;
    }
    case XCB_EXPOSE: {
        const auto &expose = as<xcb_expose_event_t>(event);
        if (m_window && expose.window == m_window->id() && expose.count == 0)
            m_window->paint();
        break;
    }
    case XCB_ENTER_NOTIFY:
        takeEntry(as<xcb_enter_notify_event_t>(event));
        break;
    case XCB_LEAVE_NOTIFY:
    case XCB_BUTTON_PRESS:
        m_listener.pointed(std::nullopt);
        break;
    case XCB_BUTTON_RELEASE:
        takeRelease(as<xcb_button_release_event_t>(event));
        break;
    default:
        break;
    }
}

void TrayIcon::takeMessage(const xcb_client_message_event_t &message) {
    if (message.type == m_manager && message.format == 32 && message.data.data32[1] == m_selection)
        look();
}

void TrayIcon::takeLoss(xcb_window_t window) {
    if (window != m_tray && !(m_window && window == m_window->id()))
        return;
    // The next tray may have the number of this one already, so nothing is to be made of it: what
    // was docked here, or was about to be, is docked again.
    m_window.reset();
    m_tray = XCB_WINDOW_NONE;
    m_listener.pointed(std::nullopt);
    look();
}

void TrayIcon::takeEntry(const xcb_enter_notify_event_t &entry) {
    if (!m_window || entry.event != m_window->id())
        return;
    const QPoint origin(entry.root_x - entry.event_x, entry.root_y - entry.event_y);
    m_listener.pointed(QRect(origin, m_window->size()));
}

void TrayIcon::takeRelease(const xcb_button_release_event_t &release) {
    const bool isLeft = release.detail == leftButton;
    const bool isOther = release.detail == rightButton || release.detail == middleButton;
    const QRect frame(QPoint(), m_window ? m_window->size() : QSize());
    // The button may have been dragged away, which calls the click off.
    if (!m_window || release.event != m_window->id() || !(isLeft || isOther) ||
        !frame.contains(release.event_x, release.event_y))
        return;
    const QPoint origin(release.root_x - release.event_x, release.root_y - release.event_y);
    m_listener.clicked({isLeft ? PointerButton::left : PointerButton::right,
                        (release.state & XCB_MOD_MASK_CONTROL) != 0, frame.translated(origin)});
}

} // namespace vantrel
