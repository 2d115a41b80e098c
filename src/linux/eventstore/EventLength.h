#pragma once

#include "EventComponent.h"
#include "Zone.h"

namespace vantrel {

/// How long each occurrence of an event lasts. DTEND gives all of them the same exact length,
/// DURATION the same one by the calendar (RFC 5545, section 3.8.5.3).
class EventLength {
public:
    EventLength() = default;

    /// `start` and `end` are the instants of DTSTART and, when there is one, DTEND. An event
    /// without either property lasts its day, or no time at all.
    static EventLength of(const EventComponent &component, UtcSeconds start,
                          std::optional<UtcSeconds> end);

    /// From one instant to another; no length when the second is before the first.
    static EventLength between(UtcSeconds start, UtcSeconds end);

    static EventLength ofSpan(Span span) { return EventLength(span); }

    /// When an occurrence ends that starts at the reading `start` in `zone`.
    [[nodiscard]] UtcSeconds endOf(CivilSeconds start, UtcSeconds startInstant,
                                   const Zone &zone) const;

    /// At least as long as any occurrence.
    [[nodiscard]] std::int64_t atMost() const {
        return m_span.seconds + (m_span.days > 0 ? (m_span.days + 1) * secondsPerDay : 0);
    }

private:
    explicit EventLength(Span span) : m_span(span) {}

    Span m_span;
};

} // namespace vantrel
