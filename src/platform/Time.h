#pragma once

#include <chrono>

namespace vantrel {

/// A length of time in seconds, double precision.
using Seconds = std::chrono::duration<double>;

/// A moment of wall-clock time: seconds since 1970-01-01 00:00:00 UTC, double precision,
/// leap seconds not counted.
using Instant = std::chrono::sys_time<Seconds>;

/// A reading of a clock that only moves forward and that nobody can set. It stands still while
/// the machine sleeps.
using MonotonicInstant = std::chrono::time_point<std::chrono::steady_clock, Seconds>;

/// The instant from which occurrence keys count whole seconds: 2001-01-01 00:00:00 UTC.
inline constexpr Instant referenceDate{
    std::chrono::sys_days{std::chrono::year{2001} / std::chrono::January / 1}};

} // namespace vantrel
