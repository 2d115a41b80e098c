#pragma once

#include <QColor>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// The takeover's ground: small paws strewn over the item, each turned its own way, in always the
/// same pattern for the same size. They keep clear of the middle, where the text stands. Drawn
/// once; a frame that changes something above them costs nothing here.
class PawField : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)
    Q_PROPERTY(double pawSize READ pawSize WRITE setPawSize NOTIFY pawSizeChanged FINAL)
    Q_PROPERTY(QSizeF clearing READ clearing WRITE setClearing NOTIFY clearingChanged FINAL)

public:
    explicit PawField(QQuickItem *parent = nullptr);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);

    /// The side of one paw; the distances between them grow with it.
    [[nodiscard]] double pawSize() const { return m_pawSize; }
    void setPawSize(double size);

    /// The extent of the ellipse about the middle in which there are no paws.
    [[nodiscard]] QSizeF clearing() const { return m_clearing; }
    void setClearing(QSizeF clearing);

Q_SIGNALS:
    void colorChanged();
    void pawSizeChanged();
    void clearingChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    [[nodiscard]] bool isInClearing(QPointF place) const;

    QColor m_color = Qt::black;
    double m_pawSize = 24.0;
    QSizeF m_clearing;
};

} // namespace vantrel
