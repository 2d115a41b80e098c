#include "LocalCalendar.h"

#include "DateTexts.h"

#include <QDate>

#include <cmath>
#include <utility>

namespace vantrel {

namespace {

Instant fromDateTime(const QDateTime &dateTime) {
    return Instant{Seconds{static_cast<double>(dateTime.toMSecsSinceEpoch()) / 1000.0}};
}

} // namespace

LocalCalendar::LocalCalendar(QTimeZone timeZone, QLocale locale, ClockFormat clock)
    : m_timeZone(std::move(timeZone)), m_locale(std::move(locale)), m_clock(clock) {}

Instant LocalCalendar::startOfDay(Instant instant) const {
    return startOfDay(instant, 0);
}

Instant LocalCalendar::startOfDay(Instant instant, int days) const {
    return fromDateTime(dateTime(instant).date().addDays(days).startOfDay(m_timeZone));
}

int LocalCalendar::daysBetween(Instant from, Instant to) const {
    return static_cast<int>(dateTime(from).date().daysTo(dateTime(to).date()));
}

int LocalCalendar::hour(Instant instant) const {
    return dateTime(instant).time().hour();
}

int LocalCalendar::minuteOfDay(Instant instant) const {
    const QTime time = dateTime(instant).time();
    return time.hour() * 60 + time.minute();
}

int LocalCalendar::weekday(Instant instant) const {
    return dateTime(instant).date().dayOfWeek() % 7 + 1;
}

QString LocalCalendar::weekdayName(Instant instant) const {
    return DateTexts(m_locale).weekdayName(dateTime(instant));
}

QString LocalCalendar::mediumDate(Instant instant) const {
    return DateTexts(m_locale).mediumDate(dateTime(instant));
}

QString LocalCalendar::shortTime(Instant instant) const {
    return DateTexts(m_locale, m_clock).shortTime(dateTime(instant));
}

QDateTime LocalCalendar::dateTime(Instant instant) const {
    const double milliseconds = std::floor(instant.time_since_epoch().count() * 1000.0);
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(milliseconds), m_timeZone);
}

} // namespace vantrel
