#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QImage>
#include <QList>
#include <QMetaType>
#include <QString>

namespace vantrel {

/// A picture as the bus carries it: ARGB, 32 bits a pixel in network order, alpha not
/// premultiplied.
struct IconPixmap {
    int width = 0;
    int height = 0;
    QByteArray pixels;

    bool operator==(const IconPixmap &) const = default;

    [[nodiscard]] static IconPixmap of(const QImage &picture);
};

/// The same icon in several sizes.
using IconPixmaps = QList<IconPixmap>;

/// A tooltip as the bus carries it. Its text is markup to hosts, its heading is not.
struct HostToolTip {
    QString iconName;
    IconPixmaps iconPixmaps;
    QString heading;
    QString markup;

    bool operator==(const HostToolTip &) const = default;
};

QDBusArgument &operator<<(QDBusArgument &argument, const IconPixmap &pixmap);
const QDBusArgument &operator>>(const QDBusArgument &argument, IconPixmap &pixmap);
QDBusArgument &operator<<(QDBusArgument &argument, const HostToolTip &toolTip);
const QDBusArgument &operator>>(const QDBusArgument &argument, HostToolTip &toolTip);

} // namespace vantrel

Q_DECLARE_METATYPE(vantrel::IconPixmap)
Q_DECLARE_METATYPE(vantrel::HostToolTip)
