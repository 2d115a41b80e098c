#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <optional>

namespace vantrel {

/// A reading of a wall clock, as the seconds that would have passed since 1970-01-01 00:00 had
/// that clock never been put forward or back. Means an instant only together with a zone.
using CivilSeconds = std::int64_t;

/// Seconds since 1970-01-01 00:00:00 UTC, leap seconds not counted.
using UtcSeconds = std::int64_t;

inline constexpr std::int64_t secondsPerDay = 86400;

/// The day of a wall-clock reading, counted from 1970-01-01.
[[nodiscard]] constexpr std::int64_t civilDay(CivilSeconds civil) {
    return civil >= 0 ? civil / secondsPerDay : (civil - secondsPerDay + 1) / secondsPerDay;
}

[[nodiscard]] constexpr CivilSeconds startOfCivilDay(CivilSeconds civil) {
    return civilDay(civil) * secondsPerDay;
}

/// A length as iCalendar's DURATION tells it (RFC 5545, section 3.3.6): days by the calendar, so
/// that a day over a clock change has 23 or 25 hours, and the rest in exact seconds.
struct Span {
    std::int64_t days = 0;
    std::int64_t seconds = 0;

    bool operator==(const Span &) const = default;
};

struct DateTimeText {
    CivilSeconds civil = 0;
    bool isDate = false; ///< A day without a time; `civil` is its midnight.
    bool isUtc = false;
};

/// Reads "19970714", "19970714T133000" and "19970714T133000Z". Empty for anything else, and for
/// days and times that no calendar and no clock shows. A leap second reads as the one before it,
/// "T240000" as the midnight that ends the day.
[[nodiscard]] std::optional<DateTimeText> parseDateTime(QByteArrayView text);

/// Reads "P15DT5H0M20S", "P7W", "-PT10M". Empty for anything else, for negative lengths, and for
/// those beyond 100 years.
[[nodiscard]] std::optional<Span> parseDuration(QByteArrayView text);

/// "20260302" of a date, "20260302T090000" of a time.
[[nodiscard]] QByteArray civilText(CivilSeconds civil, bool isDate);

} // namespace vantrel
