#pragma once

#include <platform/LocalCalendar.h>

#include <QString>

#include <cstdint>
#include <set>
#include <vector>

namespace vantrel {

// Weekdays are numbered from 1 = Sunday to 7 = Saturday.

/// All of them, beginning with the first day of the user's week.
[[nodiscard]] std::vector<int> weekdaysInOrder(const QLocale &locale);

[[nodiscard]] QString weekdayName(int weekday, const QLocale &locale,
                                  QLocale::FormatType format = QLocale::LongFormat);

/// What a window of work hours means for takeovers. Both minutes are of the day, the end is the
/// first one after the window; with the start after the end the window passes midnight, and each
/// of its two parts belongs to the days it lies in.
[[nodiscard]] QString workHoursWords(std::int64_t startMinute, std::int64_t endMinute,
                                     const std::set<std::int64_t> &weekdays,
                                     const LocalCalendar &calendar);

} // namespace vantrel
