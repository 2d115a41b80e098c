#pragma once

namespace vantrel {

/// How many hours a clock counts.
enum class ClockFormat {
    ofLocale, ///< As is usual there.
    twelveHours,
    twentyFourHours
};

} // namespace vantrel
