#include "DesktopSettings.h"

#include "X11Connection.h"

#include <QtEndian>

#include <string_view>
#include <utility>

namespace vantrel {

namespace {

using x11::connection;
using x11::Reply;

enum Type : quint8 { integerType = 0, stringType = 1, colorType = 2 };

/// Reads on from place to place; past the end it has failed for good.
class Reader {
public:
    explicit Reader(const QByteArray &data)
        : m_data(data), m_isBigEndian(!data.isEmpty() && data.front() == 1) {}

    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

    template <typename Number>
    Number number() {
        const QByteArray bytes = take(sizeof(Number));
        if (m_hasFailed)
            return {};
        return m_isBigEndian ? qFromBigEndian<Number>(bytes.constData())
                             : qFromLittleEndian<Number>(bytes.constData());
    }

    QByteArray take(quint32 count) {
        m_hasFailed |= count > m_data.size() - m_place;
        if (m_hasFailed)
            return {};
        const QByteArray taken = m_data.mid(m_place, count);
        m_place += count;
        return taken;
    }

    /// Texts are filled up to a multiple of four.
    QByteArray text(quint32 length) {
        QByteArray taken = take(length);
        (void)take((4 - length % 4) % 4);
        return taken;
    }

private:
    const QByteArray &m_data;
    const bool m_isBigEndian;
    qsizetype m_place = 0;
    bool m_hasFailed = false;
};

xcb_atom_t atom(std::string_view name) {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection(),
        xcb_intern_atom(connection(), false, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// Of the first X screen, the one that Qt knows.
xcb_window_t daemonsWindow() {
    const Reply<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection(), xcb_get_selection_owner(connection(), atom("_XSETTINGS_S0")), nullptr));
    return owner ? owner->owner : XCB_NONE;
}

} // namespace

DesktopSettings DesktopSettings::ofServer() {
    constexpr std::uint32_t mostWords = 16384;
    const xcb_window_t window = connection() ? daemonsWindow() : XCB_NONE;
    if (window == XCB_NONE)
        return DesktopSettings({});
    const xcb_atom_t settings = atom("_XSETTINGS_SETTINGS");
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection(),
        xcb_get_property(connection(), false, window, settings, settings, 0, mostWords), nullptr));
    if (!reply)
        return DesktopSettings({});
    return DesktopSettings({static_cast<const char *>(xcb_get_property_value(reply.get())),
                            xcb_get_property_value_length(reply.get())});
}

std::optional<std::int32_t> DesktopSettings::integer(const QByteArray &name) const {
    Reader reader(m_data);
    (void)reader.take(4);           // byte order
    (void)reader.number<quint32>(); // serial
    for (auto left = reader.number<quint32>(); left > 0 && !reader.hasFailed(); --left) {
        const auto type = reader.number<quint8>();
        (void)reader.take(1);
        const bool isWanted = reader.text(reader.number<quint16>()) == name;
        (void)reader.number<quint32>(); // serial of its last change
        if (type == integerType) {
            const auto value = reader.number<qint32>();
            if (isWanted && !reader.hasFailed())
                return value;
        } else if (type == stringType) {
            (void)reader.text(reader.number<quint32>());
        } else if (type == colorType) {
            (void)reader.take(8);
        } else {
            break;
        }
    }
    return std::nullopt;
}

} // namespace vantrel
