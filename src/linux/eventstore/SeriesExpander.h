#pragma once

#include "EventComponent.h"
#include "Problems.h"
#include "Zone.h"

#include <limits>
#include <vector>

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

/// Bounds on the work of one text: what one series uses up, others of it lack.
struct StepBudget {
    static constexpr int perSeries = 20'000;

    int left = 400'000;
};

/// Turns the components of one UID into occurrences: rules, added dates, exceptions and overrides
/// (RFC 5545, sections 3.8.4.4 and 3.8.5).
class SeriesExpander {
public:
    /// `userZone` is the zone of whole days and floating times; it outlives the expander.
    SeriesExpander(const Zone &userZone, Window window) : m_userZone(userZone), m_window(window) {}

    /// The components share one UID. Of several that tell of the same occurrence the last counts.
    [[nodiscard]] Expansion expand(const std::vector<const EventComponent *> &components,
                                   StepBudget &budget, Problems &problems) const;

    [[nodiscard]] const Zone &zoneOf(const Moment &moment) const;
    [[nodiscard]] UtcSeconds instantOf(const Moment &moment) const;

private:
    const Zone &m_userZone;
    Window m_window;
};

} // namespace vantrel
