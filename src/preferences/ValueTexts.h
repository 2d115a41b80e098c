#pragma once

#include <QString>

#include <cstdint>

namespace vantrel {

// The settings' values as they stand beside their titles.

/// "at start", "4 min before".
[[nodiscard]] QString leadTimeText(std::int64_t seconds);

/// "1 min".
[[nodiscard]] QString snoozeDurationText(std::int64_t minutes);

/// "off", "5 min", "1 hour".
[[nodiscard]] QString autoCloseText(std::int64_t seconds);

/// "30 min", "1 hour 30 min", "8 hours".
[[nodiscard]] QString upcomingHorizonText(std::int64_t minutes);

} // namespace vantrel
