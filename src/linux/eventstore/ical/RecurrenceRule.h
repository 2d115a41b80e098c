#pragma once

#include "CivilTime.h"

#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel {

/// What one RRULE says (RFC 5545, section 3.3.10). Lists are empty, sets 0, where the rule has no
/// such part.
struct RecurrenceRule {
    enum class Frequency { secondly, minutely, hourly, daily, weekly, monthly, yearly };

    /// "MO" has the ordinal 0, "2MO" 2, "-1MO" -1.
    struct Day {
        int ordinal = 0;
        int weekday = 0; ///< 0 = Sunday to 6 = Saturday.
    };

    Frequency frequency = Frequency::daily;
    int interval = 1;
    int count = 0; ///< 0 without COUNT.
    std::optional<DateTimeText> until;
    int weekStart = 1; ///< A weekday as above.

    std::uint32_t months = 0;  ///< Bit 1 = January to bit 12.
    std::uint32_t hours = 0;   ///< Bits 0 to 23.
    std::uint64_t minutes = 0; ///< Bits 0 to 59.
    std::uint64_t seconds = 0; ///< Bits 0 to 59; a leap second counts as the one before it.
    std::vector<Day> days;
    // Negative numbers count from the end.
    std::vector<int> monthDays;
    std::vector<int> yearDays;
    std::vector<int> weekNumbers;
    std::vector<int> positions;

    /// Empty, with the reason in `problem`, when the text is no rule that can be kept to. Parts
    /// with names of a vendor's own are passed over.
    static std::optional<RecurrenceRule> parse(QByteArrayView text, QString &problem);

    /// Drops the parts that speak of times of day. False when nothing sensible is left: the rule
    /// walks in steps shorter than a day.
    bool makeWholeDays();
};

} // namespace vantrel
