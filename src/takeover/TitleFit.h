#pragma once

#include <QFont>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// How a title is to be set: its size, and the width at which its lines come out about equally
/// long.
struct TitleFit {
    Q_GADGET
    QML_VALUE_TYPE(titleFit)
    Q_PROPERTY(int pixelSize MEMBER pixelSize FINAL)
    Q_PROPERTY(double width MEMBER width FINAL)
    Q_PROPERTY(bool isCut MEMBER isCut FINAL)

public:
    int pixelSize = 1;
    double width = 0.0;
    /// Whether even the smallest size is too large for the lines that there are.
    bool isCut = false;

    bool operator==(const TitleFit &) const = default;
};

/// Fits titles. A title keeps its full size as long as it takes at most two lines. A longer one
/// gets wider lines, and with them shrinks until it takes at most four, and no more height than two
/// at the full size.
class TitleFitter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    static constexpr int mostLines = 4;

    using QObject::QObject;

    /// `font` has the full size, in pixels; `smallest` is the size below which no title shrinks.
    /// `width` is for titles of the usual length, `widest` (at least as much) for long ones.
    Q_INVOKABLE [[nodiscard]] static vantrel::TitleFit
    fit(const QString &title, const QFont &font, int smallest, double width, double widest);
};

} // namespace vantrel
