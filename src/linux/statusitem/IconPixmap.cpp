#include "IconPixmap.h"

#include <QtEndian>

namespace vantrel {

IconPixmap IconPixmap::of(const QImage &picture) {
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    IconPixmap pixmap{image.width(), image.height(), {}};
    const auto rowBytes = static_cast<qsizetype>(image.width()) * 4;
    pixmap.pixels.resize(rowBytes * image.height());
    for (int y = 0; y < image.height(); ++y)
        qToBigEndian<quint32>(image.constScanLine(y), image.width(),
                              pixmap.pixels.data() + y * rowBytes);
    return pixmap;
}

QDBusArgument &operator<<(QDBusArgument &argument, const IconPixmap &pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.pixels;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, IconPixmap &pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.pixels;
    argument.endStructure();
    return argument;
}

QDBusArgument &operator<<(QDBusArgument &argument, const HostToolTip &toolTip) {
    argument.beginStructure();
    argument << toolTip.iconName << toolTip.iconPixmaps << toolTip.heading << toolTip.markup;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, HostToolTip &toolTip) {
    argument.beginStructure();
    argument >> toolTip.iconName >> toolTip.iconPixmaps >> toolTip.heading >> toolTip.markup;
    argument.endStructure();
    return argument;
}

} // namespace vantrel
