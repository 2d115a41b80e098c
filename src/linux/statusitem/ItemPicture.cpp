#include "ItemPicture.h"

#include <QPainter>

#include <algorithm>

namespace vantrel {

namespace {

void paintDot(QPainter &painter, const QRect &frame, const QColor &color) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(frame);
}

} // namespace

QColor toQColor(const Color &color) {
    const auto part = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(part(color.red), part(color.green), part(color.blue),
                            part(color.alpha));
}

QImage itemPicture(const ItemLook &look, int side, const QColor &tone, const SymbolArt &art) {
    QImage picture = art.picture(look.symbol, {side, side}, tone)
                         .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (!look.title)
        return picture;
    const int diameter = std::max(5, qRound(side * 0.4));
    const int gap = std::max(1, side / 16);
    const QRect dot(side - diameter, side - diameter, diameter, diameter);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    paintDot(painter, dot.adjusted(-gap, -gap, gap, gap), Qt::black);
    painter.fillRect(dot, Qt::black); // The corner behind the dot, too.
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    paintDot(painter, dot, toQColor(look.title->dot));
    return picture;
}

} // namespace vantrel
