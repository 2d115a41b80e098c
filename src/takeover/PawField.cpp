#include "PawField.h"

#include <theme/SymbolPicture.h>

#include <QQuickWindow>
#include <QSGImageNode>

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>

namespace vantrel {

namespace {

/// Different enough that no two neighbours look alike; each is one small picture.
constexpr std::array degrees{-42.0, -26.0, -12.0, 0.0, 9.0, 21.0, 35.0, 55.0};

/// The distance of the paws in a row, in paws; rows stand closer than that and are shifted by half.
constexpr double pitch = 5.6;
constexpr double rowPitch = 4.3;

/// How far a paw may stand from its place in the grid, in paws, either way.
constexpr double strewn = 1.4;

/// Well-mixed bits for a place in the grid: the same ones each time.
std::uint64_t bitsFor(int row, int column) {
    std::uint64_t bits = (static_cast<std::uint64_t>(static_cast<std::uint32_t>(row)) << 32U) |
                         static_cast<std::uint32_t>(column);
    bits += 0x9E3779B97F4A7C15U;
    bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31U);
}

/// From -1 to 1.
double offset(std::uint64_t bits) {
    return static_cast<double>(bits & 0xFFFFU) / 32767.5 - 1.0;
}

/// The pictures, and as its children one node for each paw.
class PawsNode : public QSGNode {
public:
    std::array<std::unique_ptr<QSGTexture>, degrees.size()> pictures;

    void add(QQuickWindow &window, std::size_t picture, const QRectF &place) {
        QSGImageNode *paw = window.createImageNode();
        paw->setFlag(OwnedByParent);
        paw->setTexture(pictures.at(picture).get());
        paw->setRect(place);
        appendChildNode(paw);
    }
};

} // namespace

PawField::PawField(QQuickItem *parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void PawField::setColor(const QColor &color) {
    if (m_color == color)
        return;
    m_color = color;
    update();
    Q_EMIT colorChanged();
}

void PawField::setPawSize(double size) {
    if (m_pawSize == size)
        return;
    m_pawSize = size;
    update();
    Q_EMIT pawSizeChanged();
}

void PawField::setClearing(QSizeF clearing) {
    if (m_clearing == clearing)
        return;
    m_clearing = clearing;
    update();
    Q_EMIT clearingChanged();
}

bool PawField::isInClearing(QPointF place) const {
    if (m_clearing.isEmpty())
        return false;
    const double x = (place.x() - width() / 2.0) / (m_clearing.width() / 2.0);
    const double y = (place.y() - height() / 2.0) / (m_clearing.height() / 2.0);
    return x * x + y * y < 1.0;
}

QSGNode *PawField::updatePaintNode(QSGNode *old, UpdatePaintNodeData * /*data*/) {
    delete old;
    const double ratio = window()->effectiveDevicePixelRatio();
    const int pixels = static_cast<int>(std::lround(m_pawSize * ratio));
    if (pixels < 1)
        return nullptr;
    auto paws = std::make_unique<PawsNode>();
    for (std::size_t index = 0; index < degrees.size(); ++index) {
        paws->pictures.at(index).reset(window()->createTextureFromImage(symbolPicture(
            QStringLiteral("pawprint.fill"), {pixels, pixels}, m_color, degrees.at(index))));
    }

    const double side = pixels / ratio;
    const auto onPixel = [ratio](double at) { return std::round(at * ratio) / ratio; };
    const int rows = static_cast<int>(height() / (rowPitch * m_pawSize)) + 2;
    const int columns = static_cast<int>(width() / (pitch * m_pawSize)) + 2;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const std::uint64_t bits = bitsFor(row, column);
            const double shift = row % 2 == 0 ? 0.0 : 0.5;
            const QPointF middle(((column + shift) * pitch + strewn * offset(bits)) * m_pawSize,
                                 (row * rowPitch + strewn * offset(bits >> 16U)) * m_pawSize);
            if (isInClearing(middle))
                continue;
            const QPointF corner(onPixel(middle.x() - side / 2.0),
                                 onPixel(middle.y() - side / 2.0));
            paws->add(*window(), (bits >> 32U) % degrees.size(), {corner, QSizeF(side, side)});
        }
    }
    return paws.release();
}

void PawField::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

void PawField::itemChange(ItemChange change, const ItemChangeData &value) {
    QQuickItem::itemChange(change, value);
    if (change == ItemDevicePixelRatioHasChanged)
        update();
}

} // namespace vantrel
