#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// A page as the list beside it names it. A plain value.
class SidebarTab {
    Q_GADGET
    QML_VALUE_TYPE(sidebarTab)
    Q_PROPERTY(QString title MEMBER title CONSTANT FINAL)
    Q_PROPERTY(QString symbol MEMBER symbol CONSTANT FINAL)

public:
    QString title;
    QString symbol; ///< One of the theme's.

    bool operator==(const SidebarTab &) const = default;
};

} // namespace vantrel
