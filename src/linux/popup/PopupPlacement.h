#pragma once

#include <platform/Popups.h>

#include <QRect>
#include <QSize>
#include <Qt>

#include <optional>

namespace vantrel {

/// A monitor as a popup sees it, in device-independent pixels.
struct PopupArea {
    QRect whole;
    QRect available; ///< Without panels and docks, as far as the desktop tells of them.
    /// The one nearest to the status item, where that is known.
    std::optional<Qt::Corner> corner = std::nullopt;
};

/// A monitor of which the desktop tells but the size that panels leave free, and the place of the
/// click that opened the popup, or none. A click in a panel tells where that panel is; else what
/// they take may be anywhere, and is left free on every side.
[[nodiscard]] PopupArea areaAround(const QRect &whole, QSize free, std::optional<QPoint> click);

/// Where a popup of that size goes. What does not fit into the available area is made to: the
/// result lies whole within it.
[[nodiscard]] QRect placePopup(const PopupPlace &place, QSize size, const PopupArea &area,
                               Qt::LayoutDirection direction);

} // namespace vantrel
