#include "TakeoverContextBuilder.h"

#include <calendar/EventKitMapper.h>
#include <copy/MeetingMomentResolver.h>
#include <links/LinkDetector.h>

#include <utility>

namespace vantrel {

TakeoverContextBuilder::TakeoverContextBuilder(const EventStore &store,
                                               const PreferencesStore &preferences,
                                               const CopyProvider &copyProvider,
                                               const MainQueue &queue,
                                               CurrentCalendar currentCalendar)
    : m_store(store),
      m_preferences(preferences),
      m_copyProvider(copyProvider),
      m_queue(queue),
      m_currentCalendar(std::move(currentCalendar)) {}

TakeoverContext TakeoverContextBuilder::buildContext(const UpcomingEvent &event,
                                                     const StoreEvent &storeEvent) const {
    MeetingMomentInputs inputs = EventKitMapper::makeInputs(storeEvent);
    // Of a series the store answers the occurrence nearest to now, which need not be this one.
    inputs.startsAt = event.startDate;
    inputs.endsAt = event.endDate;
    const MeetingMoment moment = MeetingMomentResolver::moment(
        inputs, fetchDayEvents(event.startDate, storeEvent), m_queue.now(), m_currentCalendar());
    return TakeoverContext{event.title,
                           event.startDate,
                           event.endDate,
                           moment,
                           m_copyProvider.line(moment),
                           resolvePrimaryAction(storeEvent)};
}

std::vector<DayEventSummary>
TakeoverContextBuilder::fetchDayEvents(Instant around, const StoreEvent &excluding) const {
    const LocalCalendar calendar = m_currentCalendar();
    std::vector<QString> calendarIdentifiers;
    for (const StoreCalendar &storeCalendar : m_store.calendars()) {
        if (m_preferences.selectedCalendarIDs().contains(storeCalendar.calendarIdentifier))
            calendarIdentifiers.push_back(storeCalendar.calendarIdentifier);
    }
    std::vector<DayEventSummary> others;
    for (const StoreEvent &event : m_store.events(
             calendar.startOfDay(around), calendar.startOfDay(around, 1), calendarIdentifiers)) {
        if (event.eventIdentifier != excluding.eventIdentifier)
            others.push_back({event.startDate, event.endDate});
    }
    return others;
}

TakeoverContext::PrimaryAction
TakeoverContextBuilder::resolvePrimaryAction(const StoreEvent &event) {
    using PrimaryAction = TakeoverContext::PrimaryAction;
    const auto found = LinkDetector::detect(event.url, event.location, event.notes);
    if (found.video && found.video->asVideo())
        return PrimaryAction::join(*found.video);
    if (found.phone) {
        if (const auto *phone = found.phone->asPhone())
            return PrimaryAction::call(phone->rawNumber);
    }
    if (event.location && !event.location->trimmed().isEmpty())
        return PrimaryAction::headingOver();
    return PrimaryAction::acknowledge();
}

} // namespace vantrel
