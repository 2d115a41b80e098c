#pragma once

#include "TakeoverContext.h"

#include <calendar/UpcomingEvent.h>
#include <copy/CopyProvider.h>
#include <copy/MeetingMoment.h>
#include <platform/EventStore.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>
#include <platform/Time.h>
#include <preferences/PreferencesStore.h>

#include <vector>

namespace vantrel {

/// Puts together what a takeover shows and offers, at the moment at which it comes up. Main thread
/// only.
class TakeoverContextBuilder {
public:
    /// What is passed in must outlive the builder. `queue` is asked for the time alone.
    TakeoverContextBuilder(const EventStore &store, const PreferencesStore &preferences,
                           const CopyProvider &copyProvider, const MainQueue &queue,
                           CurrentCalendar currentCalendar);

    /// `storeEvent` is the event as it stands in the store now. Of a series it may be another
    /// occurrence: title, start and end are the ones of `event`.
    [[nodiscard]] TakeoverContext buildContext(const UpcomingEvent &event,
                                               const StoreEvent &storeEvent) const;

private:
    [[nodiscard]] std::vector<DayEventSummary> fetchDayEvents(Instant around,
                                                              const StoreEvent &excluding) const;
    [[nodiscard]] static TakeoverContext::PrimaryAction
    resolvePrimaryAction(const StoreEvent &event);

    const EventStore &m_store;
    const PreferencesStore &m_preferences;
    const CopyProvider &m_copyProvider;
    const MainQueue &m_queue;
    CurrentCalendar m_currentCalendar;
};

} // namespace vantrel
