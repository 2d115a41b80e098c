#pragma once

#include "ClockFormat.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

namespace vantrel {

/// Dates and times in words, as the readers of one locale write them. The forms are those of ICU,
/// the days Gregorian. A plain value, safe to copy and to use on any thread.
class DateTexts {
public:
    /// Of the system's locale, the one that is set for times (`LC_TIME`).
    explicit DateTexts(const QLocale &locale, ClockFormat clock = ClockFormat::ofLocale);

    /// "Wednesday".
    [[nodiscard]] QString weekdayName(const QDateTime &dateTime) const;

    /// "Mar 4, 2026".
    [[nodiscard]] QString mediumDate(const QDateTime &dateTime) const;

    /// "9:30 AM" or "09:30".
    [[nodiscard]] QString shortTime(const QDateTime &dateTime) const;

private:
    QLocale m_locale;
    ClockFormat m_clock;
};

} // namespace vantrel
