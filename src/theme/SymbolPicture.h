#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QSize>
#include <QString>

namespace vantrel {

/// A symbol of art/ as a picture of `pixels`, in one colour, turned clockwise by `degrees` about
/// its middle. A name that is no symbol's gives a transparent picture and a line in the log.
[[nodiscard]] QImage symbolPicture(const QString &name, QSize pixels, const QColor &color,
                                   double degrees = 0.0);

/// The SVG text of a symbol of art/, empty for a name that is no symbol's. Whoever hands it to a
/// host that tints by itself takes one of filled paths without a colour, as the paws are.
[[nodiscard]] QByteArray symbolDrawing(const QString &name);

} // namespace vantrel
