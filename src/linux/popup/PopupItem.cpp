#include "PopupItem.h"

#include <QQuickItem>

#include <cmath>

namespace vantrel {

namespace {

constexpr char cornerRadius[] = "cornerRadius";
constexpr int radiusOfWindows = 16;

/// Items find their sizes ahead of a frame; here they are wanted before the first one.
void polish(QQuickItem &item) {
    const auto children = item.childItems();
    for (QQuickItem *child : children)
        polish(*child);
    item.ensurePolished();
}

} // namespace

QSize wantedSize(QQuickItem &item) {
    polish(item);
    return {static_cast<int>(std::ceil(item.implicitWidth())),
            static_cast<int>(std::ceil(item.implicitHeight()))};
}

void setCorners(QQuickItem &item, Corners corners) {
    if (item.metaObject()->indexOfProperty(cornerRadius) >= 0)
        item.setProperty(cornerRadius, corners == Corners::round ? radiusOfWindows : 0);
}

} // namespace vantrel
