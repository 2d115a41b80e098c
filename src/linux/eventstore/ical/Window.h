#pragma once

#include "CivilTime.h"

namespace vantrel {

/// The stretch of time whose occurrences are kept, from `from` up to, not including, `to`.
struct Window {
    UtcSeconds from = 0;
    UtcSeconds to = 0;

    bool operator==(const Window &) const = default;

    [[nodiscard]] bool overlaps(UtcSeconds start, UtcSeconds end) const {
        return start < to && (end > from || start >= from);
    }
};

} // namespace vantrel
