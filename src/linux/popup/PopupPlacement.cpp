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

Qt::Corner cornerAt(Qt::Edge side, Qt::Edge end) {
    if (end == Qt::TopEdge)
        return side == Qt::LeftEdge ? Qt::TopLeftCorner : Qt::TopRightCorner;
    return side == Qt::LeftEdge ? Qt::BottomLeftCorner : Qt::BottomRightCorner;
}

/// The status area is in the panel, at the end of the line, and the panel is what the available
/// area lacks. Without one on this monitor the top is as good a guess as any.
Qt::Corner likelyCorner(const PopupArea &area, Qt::LayoutDirection direction) {
    const int takenAbove = area.available.top() - area.whole.top();
    const int takenBeneath = area.whole.bottom() - area.available.bottom();
    return cornerAt(isMirrored(direction) ? Qt::LeftEdge : Qt::RightEdge,
                    takenBeneath > takenAbove ? Qt::BottomEdge : Qt::TopEdge);
}

QRect inCorner(QSize size, const PopupArea &area, Qt::LayoutDirection direction) {
    const Qt::Corner corner = area.corner.value_or(likelyCorner(area, direction));
    const QRect room =
        area.available.adjusted(airToCorner, airToCorner, -airToCorner, -airToCorner);
    QRect popup(QPoint(), size);
    if (corner == Qt::TopLeftCorner || corner == Qt::BottomLeftCorner)
        popup.moveLeft(room.left());
    else
        popup.moveRight(room.right());
    if (corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner)
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

/// The edge whose panel the place lies in, of those that have one; so much is `taken` by panels.
std::optional<Qt::Edge> edgeAt(QPoint place, const QRect &whole, QSize taken) {
    const QPoint fromStart = place - whole.topLeft();
    const QPoint toEnd = whole.bottomRight() - place;
    if (fromStart.y() < taken.height())
        return Qt::TopEdge;
    if (toEnd.y() < taken.height())
        return Qt::BottomEdge;
    if (fromStart.x() < taken.width())
        return Qt::LeftEdge;
    if (toEnd.x() < taken.width())
        return Qt::RightEdge;
    return std::nullopt;
}

} // namespace

PopupArea areaAround(const QRect &whole, QSize free, std::optional<QPoint> click) {
    const QSize taken = whole.size() - free.boundedTo(whole.size());
    const auto edge = click ? edgeAt(*click, whole, taken) : std::nullopt;
    const bool isAtSide = edge == Qt::LeftEdge || edge == Qt::RightEdge;
    const bool isAtEnd = edge == Qt::TopEdge || edge == Qt::BottomEdge;
    const QRect available = whole.adjusted(
        edge != Qt::RightEdge ? taken.width() : 0, edge != Qt::BottomEdge ? taken.height() : 0,
        edge != Qt::LeftEdge ? -taken.width() : 0, edge != Qt::TopEdge ? -taken.height() : 0);
    if (!edge)
        return {whole, available};
    const Qt::Edge nearestSide = click->x() < whole.center().x() ? Qt::LeftEdge : Qt::RightEdge;
    const Qt::Edge nearestEnd = click->y() < whole.center().y() ? Qt::TopEdge : Qt::BottomEdge;
    return {whole, available,
            cornerAt(isAtSide ? *edge : nearestSide, isAtEnd ? *edge : nearestEnd)};
}

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
