#include "EventKitMapper.h"

#include "EventReading.h"

#include <links/LinkDetector.h>

namespace vantrel {

MeetingMomentInputs EventKitMapper::makeInputs(const StoreEvent &event) {
    requireReadableSpan(event);
    const LinkDetector::Detection links =
        LinkDetector::detect(event.url, event.location, event.notes);
    const bool hasVideoLink = links.video && links.video->asVideo();
    const bool hasPhoneNumber = links.phone && links.phone->asPhone();
    return {
        .title = titleOf(event),
        .startsAt = event.startDate,
        .endsAt = event.endDate,
        .attendeeCount = event.attendees ? static_cast<std::int64_t>(event.attendees->size()) : 0,
        .isRecurring = event.hasRecurrenceRules,
        .hasVideoLink = hasVideoLink,
        .hasPhoneOnly = hasPhoneNumber && !hasVideoLink,
        .hasLocation = locationOf(event).has_value(),
    };
}

} // namespace vantrel
