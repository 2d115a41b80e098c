#pragma once

#include "RecurrenceRule.h"

#include <array>
#include <cstdint>

namespace vantrel {

/// Which days a recurrence rule yields, all parts of it that speak of days taken together. What
/// the rule leaves open is taken from the start of the series.
class RuleDays {
public:
    RuleDays(const RecurrenceRule &rule, CivilSeconds start);

    /// `day` counts from 1970-01-01.
    [[nodiscard]] bool holds(std::int64_t day) const;

    /// 0 = Sunday to 6 = Saturday.
    [[nodiscard]] static int weekdayOf(std::int64_t day);

private:
    /// A day within its month and year, all numbers from 1.
    struct Place;

    [[nodiscard]] bool holdsWeekday(const Place &place, int weekday) const;
    [[nodiscard]] bool holdsWeekNumber(std::int64_t day) const;

    RecurrenceRule m_rule;
    bool m_countsInMonth = false; ///< Ordinals of weekdays count in the month, else in the year.
    bool m_hasOrdinals = false;   ///< Ordinals of weekdays count at all.
};

} // namespace vantrel
