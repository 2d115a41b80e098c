#pragma once

#include "EventComponent.h"
#include "UserClock.h"

#include <algorithm>

namespace vantrel {

/// How long each occurrence of an event lasts. DTEND gives all of them the same exact length,
/// DURATION the same one by the calendar (RFC 5545, section 3.8.5.3).
class EventLength {
public:
    EventLength() = default;
    explicit EventLength(Span span) : m_span(span) {}

    /// From one instant to another; no length when the second is before the first.
    EventLength(UtcSeconds start, UtcSeconds end)
        : m_span{0, std::max<std::int64_t>(end - start, 0)} {}

    /// An event with neither DTEND nor DURATION lasts its day, or no time at all.
    EventLength(const EventComponent &component, const UserClock &clock);

    /// When an occurrence ends that starts at the reading `start` in `zone`.
    [[nodiscard]] UtcSeconds endOf(CivilSeconds start, UtcSeconds startInstant,
                                   const Zone &zone) const;

    /// At least as long as any occurrence.
    [[nodiscard]] std::int64_t atMost() const {
        return m_span.seconds + (m_span.days > 0 ? (m_span.days + 1) * secondsPerDay : 0);
    }

private:
    Span m_span;
};

/// Whether the event says that it ends before it starts.
[[nodiscard]] bool endsBeforeItStarts(const EventComponent &component, const UserClock &clock);

} // namespace vantrel
