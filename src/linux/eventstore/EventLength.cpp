#include "EventLength.h"

#include <algorithm>

namespace vantrel {

EventLength EventLength::of(const EventComponent &component, UtcSeconds start,
                            std::optional<UtcSeconds> end) {
    const bool isAllDay = component.start.kind == Moment::Kind::date;
    if (end && isAllDay && component.end->kind == Moment::Kind::date) {
        const std::int64_t days = civilDay(component.end->civil) - civilDay(component.start.civil);
        // Some writers end a whole day on the day itself.
        return EventLength(Span{std::max<std::int64_t>(days, 1), 0});
    }
    if (end)
        return between(start, *end);
    if (component.duration)
        return EventLength(*component.duration);
    return EventLength(Span{isAllDay ? 1 : 0, 0});
}

EventLength EventLength::between(UtcSeconds start, UtcSeconds end) {
    return EventLength(Span{0, std::max<std::int64_t>(end - start, 0)});
}

UtcSeconds EventLength::endOf(CivilSeconds start, UtcSeconds startInstant, const Zone &zone) const {
    if (m_span.days == 0)
        return startInstant + m_span.seconds;
    const UtcSeconds end = zone.toUtc(start + m_span.days * secondsPerDay) + m_span.seconds;
    return std::max(end, startInstant);
}

} // namespace vantrel
