#include "UpcomingEventsQuery.h"

#include "UpcomingEventsAdapter.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

bool startsEarlier(const UpcomingEvent &left, const UpcomingEvent &right) {
    return left.startDate < right.startDate;
}

} // namespace

std::vector<UpcomingEvent>
UpcomingEventsQuery::fetchUpcoming(const std::set<QString> &selectedCalendarIDs, Instant now,
                                   Seconds horizon) const {
    if (selectedCalendarIDs.empty())
        return {};
    std::vector<QString> calendarIdentifiers;
    for (const StoreCalendar &calendar : m_store.calendars()) {
        if (selectedCalendarIDs.contains(calendar.calendarIdentifier))
            calendarIdentifiers.push_back(calendar.calendarIdentifier);
    }
    if (calendarIdentifiers.empty())
        return {};

    const std::vector<StoreEvent> stored = m_store.events(now, now + horizon, calendarIdentifiers);
    std::vector<UpcomingEvent> upcoming;
    upcoming.reserve(stored.size());
    for (const StoreEvent &event : stored) {
        std::optional<UpcomingEvent> made = UpcomingEventsAdapter::makeEvent(event);
        if (made && made->startDate >= now)
            upcoming.push_back(std::move(*made));
    }
    // A store answers by start already, and sorting a sorted list moves every element many times.
    if (!std::is_sorted(upcoming.begin(), upcoming.end(), startsEarlier))
        std::stable_sort(upcoming.begin(), upcoming.end(), startsEarlier);
    return upcoming;
}

} // namespace vantrel
