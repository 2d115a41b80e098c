#pragma once

#include "UpcomingEvent.h"

#include <platform/EventStore.h>

#include <QString>

#include <set>
#include <vector>

namespace vantrel {

/// Answers which meetings come up. Keeps nothing between calls. Main thread only, like the store.
class UpcomingEventsQuery {
public:
    /// `store` must outlive this object.
    explicit UpcomingEventsQuery(const EventStore &store) : m_store(store) {}

    /// The meetings of the selected calendars (by `calendarIdentifier`; unknown ones are ignored)
    /// that start at or after `now` and before `now + horizon`, by start; equal starts in the
    /// store's order.
    [[nodiscard]] std::vector<UpcomingEvent>
    fetchUpcoming(const std::set<QString> &selectedCalendarIDs, Instant now, Seconds horizon) const;

private:
    const EventStore &m_store;
};

} // namespace vantrel
