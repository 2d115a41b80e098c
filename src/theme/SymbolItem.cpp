#include "SymbolItem.h"

#include "SymbolPicture.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace vantrel {

SymbolItem::SymbolItem(QQuickItem *parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void SymbolItem::setName(const QString &name) {
    if (m_name == name)
        return;
    m_name = name;
    update();
    Q_EMIT nameChanged();
}

void SymbolItem::setColor(const QColor &color) {
    if (m_color == color)
        return;
    m_color = color;
    update();
    Q_EMIT colorChanged();
}

QSGNode *SymbolItem::updatePaintNode(QSGNode *old, UpdatePaintNodeData * /*data*/) {
    auto *node = static_cast<QSGImageNode *>(old);
    const double ratio = window()->effectiveDevicePixelRatio();
    const QSize pixels = (size() * ratio).toSize();
    if (m_name.isEmpty() || pixels.isEmpty()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    node->setTexture(window()->createTextureFromImage(symbolPicture(m_name, pixels, m_color)));
    // Where the desktop scales by a fraction, the picture is blurred unless it lies on whole
    // pixels.
    const QPointF place = mapToScene(QPointF()) * ratio;
    const QPointF corner = (place.toPoint() - place) / ratio;
    node->setRect(QRectF(corner, QSizeF(pixels) / ratio));
    return node;
}

void SymbolItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void SymbolItem::itemChange(ItemChange change, const ItemChangeData &value) {
    QQuickItem::itemChange(change, value);
    if (change == ItemDevicePixelRatioHasChanged)
        update();
}

} // namespace vantrel
