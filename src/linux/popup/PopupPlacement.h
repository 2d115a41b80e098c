#pragma once

#include <platform/Popups.h>

#include <QRect>
#include <QSize>
#include <Qt>

namespace vantrel {

/// A monitor as a popup sees it, in device-independent pixels.
struct PopupArea {
    QRect whole;
    QRect available; ///< Without panels and docks, as far as the desktop tells of them.
};

/// Where a popup of that size goes. What does not fit into the available area is made to: the
/// result lies whole within it.
[[nodiscard]] QRect placePopup(const PopupPlace &place, QSize size, const PopupArea &area,
                               Qt::LayoutDirection direction);

} // namespace vantrel
