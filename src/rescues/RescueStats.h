#pragma once

#include <cstdint>

namespace vantrel {

/// The counts of a range of days, summed.
struct RescueStats {
    std::int64_t totalRescues = 0;
    std::int64_t rescuesFromTakeover = 0;
    std::int64_t rescuesFromPopover = 0;
    std::int64_t snoozes = 0;
    std::int64_t dismisses = 0;
    std::int64_t pingsSent = 0;
    std::int64_t daysWithRescue = 0; ///< Days with at least one rescue.
    std::int64_t dayCount = 0;       ///< Days asked for, with entries or without.

    bool operator==(const RescueStats &) const = default;
};

} // namespace vantrel
