#pragma once

#include <QColor>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// One of the program's symbols in QML: single-coloured, as large as fits into the item and centred
/// in it. It is drawn for each size and pixel density anew, and so sharp. Symbols are the files in
/// art/, called by the file's name without its ending.
class SymbolItem : public QQuickItem {
    Q_OBJECT
    QML_NAMED_ELEMENT(Symbol)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged FINAL)

public:
    explicit SymbolItem(QQuickItem *parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString &name);

    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor &color);

Q_SIGNALS:
    void nameChanged();
    void colorChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    QString m_name;
    QColor m_color = Qt::black;
};

} // namespace vantrel
