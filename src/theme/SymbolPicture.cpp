#include "SymbolPicture.h"

#include <platform/Log.h>

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace vantrel {

namespace {

VANTREL_LOG(symbolLog, "Symbol")

QString artFile(const QString &name) {
    return QStringLiteral(":/qt/qml/Vantrel/Theme/art/%1.svg").arg(name);
}

} // namespace

QImage symbolPicture(const QString &name, QSize pixels, const QColor &color, double degrees) {
    QImage picture(pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QSvgRenderer renderer(artFile(name));
    if (!renderer.isValid()) {
        qCWarning(symbolLog, "There is no symbol of the name %s", qUtf8Printable(name));
        return picture;
    }
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    const QRectF frame(QPointF(), pixels);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(frame.center());
    painter.rotate(degrees);
    painter.translate(-frame.center());
    renderer.render(&painter, frame);
    painter.resetTransform();
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(frame, color);
    return picture;
}

QByteArray symbolDrawing(const QString &name) {
    QFile file(artFile(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace vantrel
