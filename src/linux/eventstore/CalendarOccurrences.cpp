#include "CalendarOccurrences.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <numeric>
#include <utility>

namespace vantrel {

namespace {

Instant instantOf(UtcSeconds seconds) {
    return Instant{Seconds{static_cast<double>(seconds)}};
}

const QString &identifierOf(const CalendarOccurrences::Slot &slot) {
    return *slot.event->eventIdentifier;
}

} // namespace

CalendarOccurrences::CalendarOccurrences(std::shared_ptr<const StoreCalendar> calendar,
                                         std::vector<std::shared_ptr<const ShownSeries>> series)
    : m_calendar(std::move(calendar)), m_series(std::move(series)) {
    for (const auto &one : m_series) {
        for (const auto &placement : one->placements)
            m_slots.push_back({placement.start, placement.end, &one->events[placement.event]});
    }
    m_slots.shrink_to_fit();
    std::sort(m_slots.begin(), m_slots.end(), [](const Slot &left, const Slot &right) {
        return left.start != right.start ? left.start < right.start
                                         : identifierOf(left) < identifierOf(right);
    });

    m_leaves = std::bit_ceil(std::max<std::size_t>(m_slots.size(), 1));
    m_latestEnds.assign(2 * m_leaves, std::numeric_limits<UtcSeconds>::min());
    for (std::size_t index = 0; index < m_slots.size(); ++index)
        m_latestEnds[m_leaves + index] = m_slots[index].end;
    for (std::size_t node = m_leaves - 1; node > 0; --node)
        m_latestEnds[node] = std::max(m_latestEnds[2 * node], m_latestEnds[2 * node + 1]);

    m_byIdentifier.resize(m_slots.size());
    std::iota(m_byIdentifier.begin(), m_byIdentifier.end(), 0U);
    std::stable_sort(m_byIdentifier.begin(), m_byIdentifier.end(),
                     [this](std::uint32_t left, std::uint32_t right) {
                         return identifierOf(m_slots[left]) < identifierOf(m_slots[right]);
                     });
}

void CalendarOccurrences::collect(Instant from, Instant to,
                                  std::vector<const Slot *> &found) const {
    const auto startsBefore = [](const Slot &slot, Instant instant) {
        return instantOf(slot.start) < instant;
    };
    const auto end = std::lower_bound(m_slots.begin(), m_slots.end(), to, startsBefore);
    const auto first = std::lower_bound(m_slots.begin(), end, from, startsBefore);
    collectUnderWay(1, 0, m_leaves, static_cast<std::size_t>(first - m_slots.begin()),
                    from.time_since_epoch().count(), found);
    for (auto slot = first; slot != end; ++slot)
        found.push_back(&*slot);
}

/// Visits the slots with an index below `before` that end after `from`, in their order. The node
/// stands for `count` slots from index `first` on.
void CalendarOccurrences::collectUnderWay(std::size_t node, std::size_t first, std::size_t count,
                                          std::size_t before, double from,
                                          std::vector<const Slot *> &found) const {
    if (first >= before || static_cast<double>(m_latestEnds[node]) <= from)
        return;
    if (count == 1) {
        found.push_back(&m_slots[first]);
        return;
    }
    collectUnderWay(2 * node, first, count / 2, before, from, found);
    collectUnderWay(2 * node + 1, first + count / 2, count / 2, before, from, found);
}

const CalendarOccurrences::Slot *CalendarOccurrences::nearest(const QString &eventIdentifier,
                                                              Instant now) const {
    const auto less = [this](std::uint32_t index, const QString &identifier) {
        return identifierOf(m_slots[index]) < identifier;
    };
    auto entry =
        std::lower_bound(m_byIdentifier.begin(), m_byIdentifier.end(), eventIdentifier, less);
    const Slot *last = nullptr;
    for (; entry != m_byIdentifier.end(); ++entry) {
        const Slot &slot = m_slots[*entry];
        if (identifierOf(slot) != eventIdentifier)
            break;
        const bool isUnderWay = instantOf(slot.start) <= now && now < instantOf(slot.end);
        if (isUnderWay)
            return &slot;
        if (instantOf(slot.start) > now)
            return &slot;
        last = &slot;
    }
    return last;
}

StoreEvent CalendarOccurrences::eventAt(const Slot &slot) const {
    StoreEvent event = *slot.event;
    event.startDate = instantOf(slot.start);
    event.endDate = instantOf(slot.end);
    event.calendar = m_calendar;
    return event;
}

} // namespace vantrel
