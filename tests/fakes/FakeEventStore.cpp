#include "FakeEventStore.h"

#include <algorithm>

namespace vantrel::fakes {

namespace {

bool overlaps(const StoreEvent &event, Instant from, Instant to) {
    return event.startDate < to && (event.endDate > from || event.startDate == from);
}

} // namespace

void FakeEventStore::requestFullAccessToEvents(AccessCompletion completion) {
    accessRequests.push_back(std::move(completion));
}

std::vector<StoreCalendar> FakeEventStore::calendars() const {
    ++fetchCount;
    return isReadable() ? storedCalendars : std::vector<StoreCalendar>();
}

bool FakeEventStore::hasAllCalendars() const {
    return isReadable() && isComplete;
}

bool FakeEventStore::isCalendarDeleted(const QString &calendarIdentifier) const {
    return isReadable() && !outOfReach.contains(calendarIdentifier) &&
           std::none_of(storedCalendars.begin(), storedCalendars.end(),
                        [&calendarIdentifier](const StoreCalendar &calendar) {
                            return calendar.calendarIdentifier == calendarIdentifier;
                        });
}

std::vector<StoreEvent>
FakeEventStore::events(Instant from, Instant to,
                       const std::vector<QString> &calendarIdentifiers) const {
    ++fetchCount;
    if (!isReadable())
        return {};
    std::vector<StoreEvent> found;
    for (const StoreEvent &event : storedEvents) {
        const bool isNamed =
            event.calendar &&
            std::find(calendarIdentifiers.begin(), calendarIdentifiers.end(),
                      event.calendar->calendarIdentifier) != calendarIdentifiers.end();
        if (isNamed && overlaps(event, from, to))
            found.push_back(event);
    }
    return found;
}

std::optional<StoreEvent>
FakeEventStore::eventWithIdentifier(const QString &eventIdentifier) const {
    if (!isReadable())
        return std::nullopt;
    const Instant now = m_now();
    const StoreEvent *next = nullptr;
    const StoreEvent *last = nullptr;
    for (const StoreEvent &event : storedEvents) {
        if (event.eventIdentifier != eventIdentifier)
            continue;
        if (event.startDate <= now && now < event.endDate)
            return event;
        if (event.startDate > now && (!next || event.startDate < next->startDate))
            next = &event;
        if (event.startDate <= now && (!last || event.startDate > last->startDate))
            last = &event;
    }
    if (next)
        return *next;
    return last ? std::optional(*last) : std::nullopt;
}

bool FakeEventStore::isReadable() const {
    return authorization == StoreAuthorization::fullAccess;
}

} // namespace vantrel::fakes
