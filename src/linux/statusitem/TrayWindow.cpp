#include "TrayWindow.h"

#include "HostTexts.h"
#include "ItemPicture.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cstring>

namespace vantrel {

namespace {

constexpr std::uint8_t depthWithAlpha = 32;
constexpr int firstSide = 22; ///< Until the tray says otherwise.

bool hasAlpha(const xcb_screen_t &screen, xcb_visualid_t visual) {
    auto depths = xcb_screen_allowed_depths_iterator(&screen);
    for (; depths.rem; xcb_depth_next(&depths)) {
        auto visuals = xcb_depth_visuals_iterator(depths.data);
        for (; visuals.rem; xcb_visualtype_next(&visuals)) {
            if (visuals.data->visual_id == visual)
                return depths.data->depth == depthWithAlpha;
        }
    }
    return false;
}

} // namespace

TrayWindow::TrayWindow(X11Link &link, const SymbolArt &art, xcb_window_t tray)
    : m_link(link),
      m_art(art),
      m_window(xcb_generate_id(link.connection())),
      m_context(xcb_generate_id(link.connection())),
      m_size(firstSide, firstSide) {
    const auto visual = link.values(tray, link.atom("_NET_SYSTEM_TRAY_VISUAL"));
    if (!visual.empty() && hasAlpha(link.screen(), visual.front()))
        m_blendedVisual = visual.front();
    // Red, green and blue in 16 bits for plain text, then for other kinds of it.
    const auto colors = link.values(tray, link.atom("_NET_SYSTEM_TRAY_COLORS"));
    if (colors.size() >= 3)
        m_traysTone =
            QColor::fromRgba64(static_cast<quint16>(colors[0]), static_cast<quint16>(colors[1]),
                               static_cast<quint16>(colors[2]));
    create();
    dock(tray);
}

TrayWindow::~TrayWindow() {
    xcb_free_gc(m_link.connection(), m_context);
    xcb_destroy_window(m_link.connection(), m_window);
    xcb_flush(m_link.connection());
}

void TrayWindow::create() {
    xcb_connection_t *connection = m_link.connection();
    const xcb_screen_t &screen = m_link.screen();
    const std::uint32_t events = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                 XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                 XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW;
    const auto make = [&](std::uint8_t depth, xcb_visualid_t visual, std::uint32_t mask,
                          const std::uint32_t *values) {
        xcb_create_window(connection, depth, m_window, screen.root, 0, 0, firstSide, firstSide, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, visual, mask, values);
    };
    if (m_blendedVisual) {
        const xcb_colormap_t colors = xcb_generate_id(connection);
        xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, colors, screen.root,
                            *m_blendedVisual);
        const std::array<std::uint32_t, 4> values{0, 0, events, colors};
        make(depthWithAlpha, *m_blendedVisual,
             XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
             values.data());
    } else {
        const std::array<std::uint32_t, 2> values{XCB_BACK_PIXMAP_PARENT_RELATIVE, events};
        make(XCB_COPY_FROM_PARENT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXMAP | XCB_CW_EVENT_MASK,
             values.data());
    }
    xcb_create_gc(connection, m_context, m_window, 0, nullptr);

    constexpr char windowClass[] = "vantrel\0Vantrel";
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, sizeof windowClass, windowClass);
    constexpr std::array<std::uint32_t, 2> embedding{0, 1}; // Protocol version; wants to be mapped.
    const xcb_atom_t info = m_link.atom("_XEMBED_INFO");
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_window, info, info, 32,
                        embedding.size(), embedding.data());
}

void TrayWindow::dock(xcb_window_t tray) {
    constexpr std::uint32_t requestDock = 0;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = tray;
    message.type = m_link.atom("_NET_SYSTEM_TRAY_OPCODE");
    message.data.data32[0] = XCB_CURRENT_TIME;
    message.data.data32[1] = requestDock;
    message.data.data32[2] = m_window;
    xcb_send_event(m_link.connection(), 0, tray, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&message));
}

void TrayWindow::show(const ItemLook &look) {
    m_look = look;
    // What a tray with a list of its items, or a screen reader, can tell of the item.
    const QByteArray name = onOneLine(plainToolTip(look)).toUtf8();
    xcb_change_property(m_link.connection(), XCB_PROP_MODE_REPLACE, m_window,
                        m_link.atom("_NET_WM_NAME"), m_link.atom("UTF8_STRING"), 8,
                        static_cast<std::uint32_t>(name.size()), name.constData());
    paint();
}

void TrayWindow::resize(QSize pixels) {
    m_size = pixels;
}

std::optional<QImage> TrayWindow::background() const {
    if (m_blendedVisual) {
        QImage nothing(m_size, QImage::Format_ARGB32_Premultiplied);
        nothing.fill(Qt::transparent);
        return nothing;
    }
    const auto width = static_cast<std::uint16_t>(m_size.width());
    const auto height = static_cast<std::uint16_t>(m_size.height());
    xcb_clear_area(m_link.connection(), 0, m_window, 0, 0, width, height);
    const XReply<xcb_get_image_reply_t> reply(
        xcb_get_image_reply(m_link.connection(),
                            xcb_get_image(m_link.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_window,
                                          0, 0, width, height, ~0U),
                            nullptr));
    QImage behind(m_size, QImage::Format_RGB32);
    // No answer for a window that is not shown; other depths than this are no longer met.
    if (!reply || reply->depth != 24 ||
        xcb_get_image_data_length(reply.get()) < behind.sizeInBytes())
        return std::nullopt;
    std::memcpy(behind.bits(), xcb_get_image_data(reply.get()),
                static_cast<std::size_t>(behind.sizeInBytes()));
    return behind;
}

QColor TrayWindow::tone(const QImage &behind) const {
    if (m_traysTone)
        return *m_traysTone;
    if (m_blendedVisual)
        return unknownPanelTone;
    return qGray(behind.pixel(0, 0)) < 128 ? QColor(0xE0, 0xE0, 0xE0) : QColor(0x30, 0x30, 0x30);
}

void TrayWindow::paint() {
    const int side = std::min(m_size.width(), m_size.height());
    auto picture = background();
    if (!picture || side < 1)
        return;
    const QImage icon = itemPicture(m_look, side, tone(*picture), m_art);
    QPainter painter(&*picture);
    painter.drawImage((m_size.width() - side) / 2, (m_size.height() - side) / 2, icon);
    painter.end();
    xcb_put_image(m_link.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, m_context,
                  static_cast<std::uint16_t>(picture->width()),
                  static_cast<std::uint16_t>(picture->height()), 0, 0, 0,
                  m_blendedVisual ? depthWithAlpha : std::uint8_t{24},
                  static_cast<std::uint32_t>(picture->sizeInBytes()), picture->constBits());
}

} // namespace vantrel
