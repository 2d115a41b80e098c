#include "EventIdentifier.h"

#include "EventTexts.h"

namespace vantrel {

namespace {

bool isEscaped(QChar character) {
    return character == u'|' || character == u'/' || character == u'%' ||
           character.unicode() < 0x20 || character.unicode() == 0x7f;
}

/// The same for every way to write one recurrence id: a day and a floating time as they are, any
/// other time in UTC.
QString recurrenceText(const Moment &moment, const UserClock &clock) {
    const bool isDate = moment.kind == Moment::Kind::date;
    if (isDate || moment.kind == Moment::Kind::floating)
        return QString::fromLatin1(civilText(moment.civil, isDate));
    return QString::fromLatin1(civilText(clock.instantOf(moment), false)) + u'Z';
}

} // namespace

QString escapedPiece(const QString &piece) {
    QString escaped;
    escaped.reserve(piece.size());
    for (const QChar character : piece) {
        if (isEscaped(character))
            escaped +=
                QStringLiteral("%%1").arg(character.unicode(), 2, 16, QLatin1Char('0')).toUpper();
        else
            escaped += character;
    }
    return escaped;
}

QString eventIdentifier(const QString &calendarIdentifier, const EventComponent &component,
                        const UserClock &clock) {
    QString identifier =
        escapedPiece(calendarIdentifier) + u'/' + escapedPiece(QString::fromUtf8(component.uid));
    if (component.isOverride) {
        identifier += u'/';
        if (component.recurrenceId)
            identifier += recurrenceText(*component.recurrenceId, clock);
    }
    return identifier;
}

} // namespace vantrel
