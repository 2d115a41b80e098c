#pragma once

#include <QString>

#include <cstdint>
#include <map>

namespace vantrel {

/// What was counted on one day.
struct DayBucket {
    std::int64_t rescuesFromTakeover = 0; ///< Joins started from the takeover.
    std::int64_t rescuesFromPopover = 0;  ///< Joins started from the list of upcoming events.
    std::int64_t snoozes = 0;
    std::int64_t dismisses = 0;
    std::int64_t pingsSent = 0; ///< Carried from file to file; nothing in the program adds to it.

    static const DayBucket empty;

    bool operator==(const DayBucket &) const = default;
};

inline constexpr DayBucket DayBucket::empty{};

/// By day key ("2026-03-02"), in order of date.
using DayBuckets = std::map<QString, DayBucket>;

} // namespace vantrel
