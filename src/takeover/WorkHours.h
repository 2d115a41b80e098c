#pragma once

#include <platform/LocalCalendar.h>
#include <platform/Time.h>

#include <cstdint>
#include <set>

namespace vantrel {

class PreferencesStore;

/// The hours of the week in which the user wants takeovers, by the clock on the wall. A plain
/// value.
struct WorkHours {
    bool isEnabled = false; ///< Else every moment is one of them.
    std::int64_t startMinute = 0;
    std::int64_t endMinute = 0; ///< The first minute after them.
    std::set<std::int64_t> weekdays;

    [[nodiscard]] static WorkHours of(const PreferencesStore &preferences);

    /// A start after the end means a span across midnight, whose two parts belong to the weekdays
    /// that they lie in. A start at the end means no hours at all.
    [[nodiscard]] bool contains(Instant moment, const LocalCalendar &calendar) const;
};

} // namespace vantrel
