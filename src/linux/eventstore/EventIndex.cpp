#include "EventIndex.h"

#include <linux/eventstore/ical/EventIdentifier.h>

#include <algorithm>
#include <utility>

namespace vantrel {

EventIndex::Calendars EventIndex::replace(Calendars calendars) {
    Calendars former = std::exchange(m_calendars, std::move(calendars));
    m_byEscapedIdentifier.clear();
    for (std::size_t index = 0; index < m_calendars.list.size(); ++index) {
        const QString &identifier = m_calendars.list[index]->calendar().calendarIdentifier;
        m_byEscapedIdentifier.insert(escapedPiece(identifier), index);
    }
    return former;
}

std::vector<StoreCalendar> EventIndex::calendars() const {
    std::vector<StoreCalendar> calendars;
    calendars.reserve(m_calendars.list.size());
    for (const auto &calendar : m_calendars.list)
        calendars.push_back(calendar->calendar());
    return calendars;
}

bool EventIndex::hasAllCalendars() const {
    return !m_calendars.knowledge.empty() &&
           std::all_of(m_calendars.knowledge.begin(), m_calendars.knowledge.end(),
                       [](const SourceKnowledge &source) { return source.isComplete; });
}

bool EventIndex::isCalendarDeleted(const QString &calendarIdentifier) const {
    if (m_byEscapedIdentifier.contains(escapedPiece(calendarIdentifier)))
        return false;
    return std::any_of(m_calendars.knowledge.begin(), m_calendars.knowledge.end(),
                       [&calendarIdentifier](const SourceKnowledge &source) {
                           return source.deletedCalendars.contains(calendarIdentifier) ||
                                  (!source.exhaustedPrefix.isEmpty() &&
                                   calendarIdentifier.startsWith(source.exhaustedPrefix));
                       });
}

std::vector<StoreEvent> EventIndex::events(Instant from, Instant to,
                                           const std::vector<QString> &calendarIdentifiers) const {
    struct Found {
        const CalendarOccurrences::Slot *slot;
        const CalendarOccurrences *calendar;
    };
    std::vector<Found> found;
    std::vector<const CalendarOccurrences::Slot *> slots;
    std::size_t calendarCount = 0;
    for (const auto &calendar : m_calendars.list) {
        const QString &identifier = calendar->calendar().calendarIdentifier;
        if (std::find(calendarIdentifiers.begin(), calendarIdentifiers.end(), identifier) ==
            calendarIdentifiers.end())
            continue;
        slots.clear();
        calendar->collect(from, to, slots);
        calendarCount += slots.empty() ? 0 : 1;
        found.reserve(found.size() + slots.size());
        for (const auto *slot : slots)
            found.push_back({slot, calendar.get()});
    }
    if (calendarCount > 1)
        std::stable_sort(found.begin(), found.end(), [](const Found &left, const Found &right) {
            return left.slot->start < right.slot->start;
        });

    std::vector<StoreEvent> events;
    events.reserve(found.size());
    for (const Found &one : found)
        events.push_back(one.calendar->eventAt(*one.slot));
    return events;
}

std::optional<StoreEvent> EventIndex::eventWithIdentifier(const QString &eventIdentifier,
                                                          Instant now) const {
    const QString calendar = eventIdentifier.section(u'/', 0, 0);
    const auto index = m_byEscapedIdentifier.constFind(calendar);
    if (index == m_byEscapedIdentifier.constEnd())
        return std::nullopt;
    const CalendarOccurrences &occurrences = *m_calendars.list[*index];
    const auto *slot = occurrences.nearest(eventIdentifier, now);
    return slot ? std::optional(occurrences.eventAt(*slot)) : std::nullopt;
}

} // namespace vantrel
