#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// A weekday as the user picks it. A plain value.
class WeekdayOffer {
    Q_GADGET
    QML_VALUE_TYPE(weekdayOffer)
    Q_PROPERTY(int weekday MEMBER weekday CONSTANT FINAL)
    Q_PROPERTY(QString shortName MEMBER shortName CONSTANT FINAL)
    Q_PROPERTY(QString name MEMBER name CONSTANT FINAL)

public:
    int weekday = 1; ///< 1 = Sunday to 7 = Saturday.
    QString shortName;
    QString name;

    bool operator==(const WeekdayOffer &) const = default;
};

} // namespace vantrel
