#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

#include <functional>

namespace vantrel {

/// The program's symbols, as whoever makes the status area hands them in.
struct SymbolArt {
    /// The symbol as a picture in one colour.
    std::function<QImage(const QString &symbol, QSize pixels, const QColor &color)> picture;
    /// Its SVG text: filled paths without a colour of their own; empty for no symbol.
    std::function<QByteArray(const QString &symbol)> drawing;
};

} // namespace vantrel
