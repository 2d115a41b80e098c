#pragma once

#include <platform/Time.h>

#include <QString>

namespace vantrel {

struct CountdownFormatter {
    CountdownFormatter() = delete;

    /// Whole minutes and two-digit seconds, "0:59": seconds are rounded up, and a moment that has
    /// passed reads "0:00". Hours are not split off the minutes.
    [[nodiscard]] static QString minutesAndSecondsString(Instant until, Instant from);
};

} // namespace vantrel
