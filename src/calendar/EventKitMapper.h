#pragma once

#include <copy/MeetingMoment.h>
#include <platform/EventStore.h>

namespace vantrel {

/// Reads from a stored event what the copy rules want to know. Pure.
struct EventKitMapper {
    EventKitMapper() = delete;

    /// Maps whatever event it is given; none is left out. A start or end that is no time stops the
    /// program.
    [[nodiscard]] static MeetingMomentInputs makeInputs(const StoreEvent &event);
};

} // namespace vantrel
