#include "PlainArt.h"

namespace vantrel::tests {

SymbolArt plainArt() {
    return {[](const QString &, QSize pixels, const QColor &color) {
                QImage picture(pixels, QImage::Format_ARGB32_Premultiplied);
                picture.fill(color);
                return picture;
            },
            [](const QString &symbol) -> QByteArray {
                return symbol.isEmpty() ? QByteArray()
                                        : "<svg viewBox=\"0 0 1 1\"><path d=\"M0 0h1v1z\"/></svg>";
            }};
}

} // namespace vantrel::tests
