#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace vantrel {

/// A calendar as the user picks it. A plain value.
class CalendarOffer {
    Q_GADGET
    QML_VALUE_TYPE(calendarOffer)
    Q_PROPERTY(QString identifier MEMBER identifier CONSTANT FINAL)
    Q_PROPERTY(QString title MEMBER title CONSTANT FINAL)
    Q_PROPERTY(QColor color MEMBER color CONSTANT FINAL)
    Q_PROPERTY(QString mark MEMBER mark CONSTANT FINAL)
    Q_PROPERTY(QString markSymbol MEMBER markSymbol CONSTANT FINAL)

public:
    QString identifier;
    QString title; ///< From strangers: plain text.
    QColor color;
    QString mark; ///< What is special about it, in a word; empty for an ordinary one.
    QString markSymbol;

    bool operator==(const CalendarOffer &) const = default;
};

/// The calendars of an account. A plain value.
class CalendarAccount {
    Q_GADGET
    QML_VALUE_TYPE(calendarAccount)
    Q_PROPERTY(QString title MEMBER title CONSTANT FINAL)
    Q_PROPERTY(QVariantList calendars MEMBER calendars CONSTANT FINAL)

public:
    QString title;
    QVariantList calendars; ///< Of `CalendarOffer`.
};

} // namespace vantrel
