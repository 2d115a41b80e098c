#include "RescueDateKey.h"

#include <QLocale>

#include <utility>

namespace vantrel {

RescueDateKey::Formatter::Formatter(QTimeZone timeZone) : m_timeZone(std::move(timeZone)) {}

QString RescueDateKey::Formatter::string(Instant instant) const {
    const QDate day = LocalCalendar(m_timeZone, QLocale::c()).dateTime(instant).date();
    return day.toString(u"yyyy-MM-dd", QCalendar(QCalendar::System::Gregorian));
}

RescueDateKey::Formatter RescueDateKey::formatter(const LocalCalendar &calendar) {
    return Formatter(calendar.timeZone());
}

} // namespace vantrel
