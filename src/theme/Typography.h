#pragma once

#include <QFont>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// The faces and sizes of the program's texts. Both are read from the desktop on each call.
class Typography : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The user's size of text, in pixels, times 1.25 to the power of `step`. Step 0 is for
    /// reading; `step` may be negative.
    Q_INVOKABLE [[nodiscard]] static double size(int step);

    /// The user's interface font.
    Q_INVOKABLE [[nodiscard]] static QFont reading(double pixelSize, int weight);

    /// The rounded face of headings and figures; the interface font where it is not installed.
    Q_INVOKABLE [[nodiscard]] static QFont rounded(double pixelSize, int weight);

    /// How far `text` moves on the place of what follows it, spaces at its end included.
    Q_INVOKABLE [[nodiscard]] static double advance(const QFont &font, const QString &text);

    /// The advance that each figure gets where all are to be equally wide: that of the zero, which
    /// is about the widest; what is a little wider stands over into the air around it.
    Q_INVOKABLE [[nodiscard]] static double figureAdvance(const QFont &font);
};

} // namespace vantrel
