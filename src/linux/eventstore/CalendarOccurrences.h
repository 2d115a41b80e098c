#pragma once

#include <linux/eventstore/ical/ShownSeries.h>
#include <platform/EventStore.h>

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

/// All occurrences of one calendar within the window. Immutable, safe on any thread.
class CalendarOccurrences {
public:
    struct Slot {
        UtcSeconds start;
        UtcSeconds end;
        const StoreEvent *event; ///< Without times and calendar.
    };

    CalendarOccurrences(std::shared_ptr<const StoreCalendar> calendar,
                        std::vector<std::shared_ptr<const ShownSeries>> series);

    [[nodiscard]] const StoreCalendar &calendar() const { return *m_calendar; }

    /// Appends the slots that overlap the interval as EventStore defines it, by start. Takes
    /// O(log n) for each slot under way at `from`, and O(log n + answers) for the others.
    void collect(Instant from, Instant to, std::vector<const Slot *> &found) const;

    /// The occurrence of that event nearest to `now`: under way, else next, else last. Null when
    /// none is in the window.
    [[nodiscard]] const Slot *nearest(const QString &eventIdentifier, Instant now) const;

    [[nodiscard]] StoreEvent eventAt(const Slot &slot) const;

private:
    void collectUnderWay(std::size_t node, std::size_t first, std::size_t count, std::size_t before,
                         double from, std::vector<const Slot *> &found) const;

    std::shared_ptr<const StoreCalendar> m_calendar;
    std::vector<std::shared_ptr<const ShownSeries>> m_series; ///< Keeps the slots' events alive.
    std::vector<Slot> m_slots;            ///< By start; equal starts by identifier.
    std::vector<UtcSeconds> m_latestEnds; ///< A binary tree over the slots; node 1 is its root.
    std::size_t m_leaves = 0;             ///< A power of two.
    std::vector<std::uint32_t> m_byIdentifier; ///< Slots by identifier, then start.
};

} // namespace vantrel
