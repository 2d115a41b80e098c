#pragma once

#include <platform/LocalCalendar.h>
#include <platform/Time.h>

#include <QString>

#include <optional>
#include <vector>

namespace vantrel {

/// The days that a statistic covers: all that are stored, or an explicit list of day keys.
class DateRange {
public:
    [[nodiscard]] static DateRange allTime();
    [[nodiscard]] static DateRange days(std::vector<QString> keys);

    /// The day of `endingOn` and the `count - 1` calendar days before it, newest first; no days
    /// for a count below 1. A date that the zone left out (at a jump over the date line) is
    /// skipped.
    [[nodiscard]] static DateRange lastDays(int count, Instant endingOn,
                                            const LocalCalendar &calendar);

    /// Null for `allTime`. Lives as long as this range.
    [[nodiscard]] const std::vector<QString> *asDays() const;

    bool operator==(const DateRange &) const = default;

private:
    explicit DateRange(std::optional<std::vector<QString>> days);

    std::optional<std::vector<QString>> m_days;
};

} // namespace vantrel
