#pragma once

#include "CivilTime.h"

#include <platform/EventStore.h>

#include <vector>

namespace vantrel {

/// What one series (or single event) shows within the window: its texts once, and where they
/// stand.
struct ShownSeries {
    struct Placement {
        UtcSeconds start;
        UtcSeconds end;
        std::uint32_t event; ///< Index into `events`.
    };

    std::vector<StoreEvent> events; ///< Without times and calendar.
    std::vector<Placement> placements;
};

} // namespace vantrel
