#pragma once

#include "EventComponent.h"
#include "Problems.h"
#include "UserClock.h"
#include "Window.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace vantrel {

/// Where an occurrence stands, and which component tells of it.
struct Occurrence {
    UtcSeconds start = 0;
    UtcSeconds end = 0;
    const EventComponent *component = nullptr;
};

struct Expansion {
    static constexpr UtcSeconds never = std::numeric_limits<UtcSeconds>::max();

    std::vector<Occurrence> occurrences; ///< Those that overlap the window; in no order.
    /// A window has to reach beyond this instant to show what is not among the occurrences.
    UtcSeconds due = never;
};

/// Bounds the work that the rules of one text may cause. A series takes from what all have
/// together, and finds a little left even when others have taken it all. The steps are those of
/// `RuleReadings`.
class StepBudget {
public:
    [[nodiscard]] int grant() const { return std::clamp(m_left, leastPerSeries, mostPerSeries); }
    void take(int steps) { m_left = std::max(m_left - steps, 0); }

private:
    static constexpr int leastPerSeries = 1'000;
    static constexpr int mostPerSeries = 100'000;

    int m_left = 2'000'000;
};

/// Turns the components of one UID into occurrences: rules, added dates, exceptions and overrides
/// (RFC 5545, sections 3.8.4.4 and 3.8.5).
///
/// DTSTART is the first occurrence of a series even when its rule would not yield it. An
/// occurrence whose time of day the clock skips is not lost: it stands as much later as the clock
/// was put forward. An override shows even when the occurrence that it replaces does not exist.
class SeriesExpander {
public:
    SeriesExpander(const UserClock &clock, Window window) : m_clock(clock), m_window(window) {}

    [[nodiscard]] Expansion expand(const std::vector<const EventComponent *> &components,
                                   StepBudget &budget, Problems &problems) const;

    [[nodiscard]] const UserClock &clock() const { return m_clock; }

private:
    UserClock m_clock;
    Window m_window;
};

} // namespace vantrel
