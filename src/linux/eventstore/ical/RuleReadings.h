#pragma once

#include "RecurrenceRule.h"
#include "RuleDays.h"

#include <optional>
#include <vector>

namespace vantrel {

/// Walks through a recurrence rule period by period, within a bound on the work: a rule from a
/// stranger may name a moment that never comes, or one every second.
class RuleReadings {
public:
    /// Why the readings ended.
    enum class End {
        ofRule,     ///< COUNT or UNTIL is reached: there are none behind the interval.
        ofInterval, ///< There may be more behind the interval.
        ofPatience, ///< More work would have been needed than was granted.
    };

    /// `start` is that of the series. `until`, when there is one, is in the series' own time.
    RuleReadings(const RecurrenceRule &rule, CivilSeconds start, std::optional<CivilSeconds> until);

    /// Appends the wall-clock readings from `from` to before `to`, in ascending order. The start
    /// counts as the first, whether or not the rule yields it. Takes the work from `steps`: one for
    /// each period, one for each day that is looked at and more where the rule has long lists of
    /// days, five for each reading.
    End collect(CivilSeconds from, CivilSeconds to, int &steps,
                std::vector<CivilSeconds> &readings);

private:
    [[nodiscard]] bool isEven() const;
    [[nodiscard]] std::int64_t firstPeriod(CivilSeconds from) const;
    bool countBefore(std::int64_t index, std::int64_t &count, int &steps);
    [[nodiscard]] std::int64_t indexOfPeriod(CivilSeconds reading) const;
    [[nodiscard]] std::pair<CivilSeconds, CivilSeconds> period(std::int64_t index) const;
    bool fill(std::int64_t index, int &steps);
    bool fillDay(std::int64_t day, CivilSeconds begin, CivilSeconds end, int &steps);
    void keepPositions();

    const RecurrenceRule &m_rule;
    const RuleDays m_days;
    const CivilSeconds m_start;
    const std::optional<CivilSeconds> m_until;
    const int m_stepsPerDay;
    std::uint32_t m_hours;
    std::uint64_t m_minutes;
    std::uint64_t m_seconds;
    std::vector<CivilSeconds> m_set; ///< The readings of one period.
};

} // namespace vantrel
