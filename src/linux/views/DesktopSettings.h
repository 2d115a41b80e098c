#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <utility>

namespace vantrel {

/// What the desktop's settings daemon tells all programs of an X server (XSETTINGS specification,
/// which GNOME, KDE, Xfce and others fill). A plain value.
class DesktopSettings {
public:
    /// As it stands now; without any setting off X11 and where no daemon runs.
    [[nodiscard]] static DesktopSettings ofServer();

    /// `data` is the property's content; whatever is malformed ends the list.
    explicit DesktopSettings(QByteArray data) : m_data(std::move(data)) {}

    /// Empty when there is no setting of that name, or it is no number.
    [[nodiscard]] std::optional<std::int32_t> integer(const QByteArray &name) const;

    /// Whether the user wants nothing to move.
    [[nodiscard]] bool isMotionReduced() const { return integer("Gtk/EnableAnimations") == 0; }

private:
    QByteArray m_data;
};

} // namespace vantrel
