#pragma once

#include <QString>
#include <QVariantMap>

namespace vantrel {

/// What a window shows: an element of a QML module, made with these required properties. Objects
/// among the properties must outlive the window. An element with a property `reducedMotion` is
/// told by it, each time that it is shown, whether the desktop asks programs to move nothing.
struct ViewContent {
    QString module;   ///< "Vantrel.Takeover", say.
    QString typeName; ///< "TakeoverView", say.
    QVariantMap properties;
};

} // namespace vantrel
