#pragma once

#include "ClockFormat.h"
#include "Time.h"

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QTimeZone>

#include <functional>

namespace vantrel {

/// A calendar as the user lives by it: Gregorian days in one time zone and locale.
/// A plain value, safe to copy and to use on any thread.
class LocalCalendar {
public:
    LocalCalendar(QTimeZone timeZone, QLocale locale, ClockFormat clock = ClockFormat::ofLocale);

    [[nodiscard]] const QTimeZone &timeZone() const { return m_timeZone; }
    [[nodiscard]] const QLocale &locale() const { return m_locale; }
    [[nodiscard]] ClockFormat clock() const { return m_clock; }

    /// The first instant of the day that holds `instant`; where the zone skips midnight, the first
    /// instant that exists.
    [[nodiscard]] Instant startOfDay(Instant instant) const;

    /// The start of the day `days` calendar days from the one that holds `instant`.
    [[nodiscard]] Instant startOfDay(Instant instant, int days) const;

    /// How many calendar days `to` lies after `from`, whatever the length of the days between and
    /// the hours of both; negative when it lies before.
    [[nodiscard]] int daysBetween(Instant from, Instant to) const;

    /// 0 to 23.
    [[nodiscard]] int hour(Instant instant) const;

    /// Minutes after local midnight by the wall clock, 0 to 1439.
    [[nodiscard]] int minuteOfDay(Instant instant) const;

    /// 1 = Sunday to 7 = Saturday.
    [[nodiscard]] int weekday(Instant instant) const;

    /// The full name of the weekday, "Wednesday".
    [[nodiscard]] QString weekdayName(Instant instant) const;

    /// The date in the locale's medium style, "Mar 4, 2026".
    [[nodiscard]] QString mediumDate(Instant instant) const;

    /// The time in the locale's short style, by this calendar's clock.
    [[nodiscard]] QString shortTime(Instant instant) const;

    /// The wall-clock reading of `instant` in this zone, to the millisecond, rounded down.
    [[nodiscard]] QDateTime dateTime(Instant instant) const;

private:
    QTimeZone m_timeZone;
    QLocale m_locale;
    ClockFormat m_clock;
};

/// Answers the user's calendar as it is set at the moment of the call: zone and locale may change
/// while the program runs.
using CurrentCalendar = std::function<LocalCalendar()>;

} // namespace vantrel
