#pragma once

#include "UpcomingEvent.h"

#include <platform/EventStore.h>

#include <optional>

namespace vantrel {

/// Makes the program's own record of a stored event. Pure, but for the random id of an event that
/// has no identifier.
struct UpcomingEventsAdapter {
    UpcomingEventsAdapter() = delete;

    /// Empty for what never reaches the user: an all-day event, a cancelled one, one that the user
    /// has declined. A start or end that is no time, or a start whose whole seconds exceed 64 bits,
    /// stops the program.
    [[nodiscard]] static std::optional<UpcomingEvent> makeEvent(const StoreEvent &event);
};

} // namespace vantrel
