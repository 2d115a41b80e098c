#include "EventLength.h"

namespace vantrel {

namespace {

/// A day alone and a floating time end in the zone of the start.
UtcSeconds endOf(const EventComponent &component, const UserClock &clock) {
    const Moment &end = *component.end;
    return end.kind == Moment::Kind::date || end.kind == Moment::Kind::floating
               ? clock.zoneOf(component.start).toUtc(end.civil)
               : clock.instantOf(end);
}

Span spanOf(const EventComponent &component, const UserClock &clock) {
    const bool isAllDay = component.start.kind == Moment::Kind::date;
    if (component.end && isAllDay && component.end->kind == Moment::Kind::date) {
        const auto days = civilDay(component.end->civil) - civilDay(component.start.civil);
        // Some writers end a whole day on the day itself.
        return {std::max<std::int64_t>(days, 1), 0};
    }
    if (component.end) {
        const auto seconds = endOf(component, clock) - clock.instantOf(component.start);
        return {0, std::max<std::int64_t>(seconds, 0)};
    }
    return component.duration.value_or(Span{isAllDay ? 1 : 0, 0});
}

} // namespace

EventLength::EventLength(const EventComponent &component, const UserClock &clock)
    : m_span(spanOf(component, clock)) {}

UtcSeconds EventLength::endOf(CivilSeconds start, UtcSeconds startInstant, const Zone &zone) const {
    if (m_span.days == 0)
        return startInstant + m_span.seconds;
    const UtcSeconds end = zone.toUtc(start + m_span.days * secondsPerDay) + m_span.seconds;
    return std::max(end, startInstant);
}

bool endsBeforeItStarts(const EventComponent &component, const UserClock &clock) {
    return component.end && endOf(component, clock) < clock.instantOf(component.start);
}

} // namespace vantrel
