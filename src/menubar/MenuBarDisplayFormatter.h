#pragma once

#include <calendar/UpcomingEvent.h>
#include <platform/Time.h>

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel {

/// Chooses the meeting that the status item shows and puts it into words. Pure functions, for any
/// thread.
struct MenuBarDisplayFormatter {
    MenuBarDisplayFormatter() = delete;

    /// The first event in the list's order that is under way; else the first that starts later, at
    /// most `horizonMinutes` from `now` if there is a horizon.
    [[nodiscard]] static std::optional<UpcomingEvent>
    pickDisplayEvent(const std::vector<UpcomingEvent> &events, Instant now,
                     std::optional<std::int64_t> horizonMinutes);

    /// Title and countdown of the event picked without a horizon, "Standup • in 12 min"; empty
    /// where none is picked. A title of more than 20 characters, as people count them, ends in an
    /// ellipsis.
    [[nodiscard]] static std::optional<QString> text(const std::vector<UpcomingEvent> &events,
                                                     Instant now);

    /// As wide as the text of the same event can be from `now` until it is over, each figure a
    /// zero, so that what lies beside it need not move.
    [[nodiscard]] static QString widestText(const UpcomingEvent &event, Instant now);

    /// "in 12 min" or "ends in 12 min", in minutes however many they are. An event that is over
    /// reads "starting now".
    [[nodiscard]] static QString countdownPhrase(const UpcomingEvent &event, Instant now);

    /// Rounded up; 0 for a moment that has passed.
    [[nodiscard]] static std::int64_t minutesRemaining(Instant until, Instant from);
};

} // namespace vantrel
