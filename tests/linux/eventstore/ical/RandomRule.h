#pragma once

#include <linux/eventstore/ical/CivilTime.h>

#include <QByteArray>

#include <random>
#include <set>
#include <vector>

namespace vantrel::tests {

/// A rule made at random, in parts that a plain model can check day by day.
struct RandomRule {
    enum class Frequency { daily, weekly, monthly, yearly };

    explicit RandomRule(std::mt19937 &random);

    [[nodiscard]] QByteArray text() const;

    Frequency frequency;
    int interval = 1;
    int count = 0;          ///< 0 for none.
    CivilSeconds until = 0; ///< 0 for none.
    CivilSeconds start = 0;
    int weekStart = 1; ///< 0 = Sunday.
    std::set<int> months;
    std::set<int> monthDays;
    std::set<std::pair<int, int>> days; ///< Ordinal (0 for all) and weekday.
    std::set<int> hours;
    std::set<int> positions;
};

/// The readings up to `to` that the rule means, found by looking at every single day since the
/// start: slow, and written from the rules alone.
[[nodiscard]] std::vector<CivilSeconds> plainReadings(const RandomRule &rule, CivilSeconds to);

} // namespace vantrel::tests
