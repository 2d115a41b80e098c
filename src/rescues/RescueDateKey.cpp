#include "RescueDateKey.h"

#include <QLocale>

namespace vantrel {

RescueDateKey::Formatter::Formatter(const QTimeZone &timeZone) : m_timeZone(timeZone) {}

QString RescueDateKey::Formatter::string(Instant instant) const {
    const QDate day = LocalCalendar(m_timeZone, QLocale::c()).dateTime(instant).date();
    return day.toString(u"yyyy-MM-dd", QCalendar(QCalendar::System::Gregorian));
}

RescueDateKey::Formatter RescueDateKey::formatter(const LocalCalendar &calendar) {
    return Formatter(calendar.timeZone());
}

} // namespace vantrel
