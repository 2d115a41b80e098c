#pragma once

#include <platform/LocalCalendar.h>
#include <platform/Time.h>

#include <QDateTime>

namespace vantrel::fakes {

/// An instant from a local time and a zone: `at("2026-03-02T09:00:00", "Europe/Zurich")`.
inline Instant at(const char *dateTime, const char *zone = "UTC") {
    const QDateTime parsed = QDateTime::fromString(QLatin1String(dateTime), Qt::ISODateWithMs);
    const QDateTime local(parsed.date(), parsed.time(), QTimeZone(zone));
    return Instant{Seconds{static_cast<double>(local.toMSecsSinceEpoch()) / 1000.0}};
}

/// The calendar of an English-speaking user in that zone.
inline LocalCalendar calendarIn(const char *zone = "UTC") {
    return LocalCalendar(QTimeZone(zone), QLocale(QLocale::English, QLocale::UnitedStates));
}

} // namespace vantrel::fakes
