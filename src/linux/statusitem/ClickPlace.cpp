#include "ClickPlace.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace vantrel {

namespace {

/// A screen begins where its pixels begin; from there on a device-independent pixel may be several.
QRect pixelsOf(const QScreen &screen) {
    const QRect frame = screen.geometry();
    return {frame.topLeft(), (QSizeF(frame.size()) * screen.devicePixelRatio()).toSize()};
}

std::optional<QRect> converted(const QRect &pixels, QPoint middle) {
    for (const QScreen *screen : QGuiApplication::screens()) {
        if (!pixelsOf(*screen).contains(middle))
            continue;
        const double scale = screen->devicePixelRatio();
        const QPoint origin = screen->geometry().topLeft();
        return QRect(origin + (QPointF(pixels.topLeft() - origin) / scale).toPoint(),
                     (QSizeF(pixels.size()) / scale).toSize());
    }
    return std::nullopt;
}

} // namespace

std::optional<QRect> placeOfClick(QPoint pixel) {
    if (pixel.isNull())
        return std::nullopt;
    return converted(QRect(pixel, QSize(0, 0)), pixel);
}

std::optional<QRect> placeOfPointer() {
    if (QGuiApplication::platformName() != u"xcb")
        return std::nullopt;
    return QRect(QCursor::pos(), QSize(0, 0));
}

std::optional<QRect> placeOfFrame(const QRect &pixels) {
    return converted(pixels, pixels.center());
}

} // namespace vantrel
