#include "PopupPlacement.h"

#include <algorithm>

namespace vantrel {

namespace {

/// Between a popup and what it hangs from, and between it and the corner of the screen.
constexpr int airToAnchor = 4;
constexpr int airToCorner = 8;

bool isMirrored(Qt::LayoutDirection direction) {
    return direction == Qt::RightToLeft;
}

/// The status area is in the panel, at the end of the line, and the panel is what the available
/// area lacks. Without one on this monitor the top is as good a guess as any.
QRect inCorner(QSize size, const PopupArea &area, Qt::LayoutDirection direction) {
    const int takenAbove = area.available.top() - area.whole.top();
    const int takenBeneath = area.whole.bottom() - area.available.bottom();
    const QRect room =
        area.available.adjusted(airToCorner, airToCorner, -airToCorner, -airToCorner);
    QRect popup(QPoint(), size);
    if (isMirrored(direction))
        popup.moveLeft(room.left());
    else
        popup.moveRight(room.right());
    if (takenBeneath > takenAbove)
        popup.moveBottom(room.bottom());
    else
        popup.moveTop(room.top());
    return popup;
}

// QRect's right and bottom are the last pixel within, so the sums are written with sizes.
QRect besideAnchor(const PopupPlace &place, QSize size, const PopupArea &area,
                   Qt::LayoutDirection direction) {
    const QRect &anchor = *place.anchor;
    const bool isCentred = place.alignment == PopupAlignment::centred;
    const int air = isCentred ? airToAnchor : 0;
    int left = anchor.x();
    if (isCentred)
        left += (anchor.width() - size.width()) / 2;
    else if (isMirrored(direction))
        left += anchor.width() - size.width();
    int top = anchor.y() + anchor.height() + air;
    if (top + size.height() > area.available.y() + area.available.height())
        top = anchor.y() - air - size.height();
    return {QPoint(left, top), size};
}

} // namespace

QRect placePopup(const PopupPlace &place, QSize size, const PopupArea &area,
                 Qt::LayoutDirection direction) {
    const QRect &room = area.available;
    const QSize fitting = size.boundedTo(room.size());
    QRect popup = place.anchor ? besideAnchor(place, fitting, area, direction)
                               : inCorner(fitting, area, direction);
    popup.moveLeft(std::clamp(popup.x(), room.x(), room.x() + room.width() - popup.width()));
    popup.moveTop(std::clamp(popup.y(), room.y(), room.y() + room.height() - popup.height()));
    return popup;
}

} // namespace vantrel
