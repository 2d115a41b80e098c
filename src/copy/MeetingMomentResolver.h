#pragma once

#include "MeetingMoment.h"

#include <platform/LocalCalendar.h>
#include <platform/Time.h>

#include <vector>

namespace vantrel {

/// Sorts a meeting into the categories of `MeetingMoment`. Pure functions, for any thread.
///
/// `others` are always the other meetings of the same day, in any order, without the meeting
/// itself.
struct MeetingMomentResolver {
    MeetingMomentResolver() = delete;

    [[nodiscard]] static MeetingMoment::TimeOfDay timeOfDay(Instant start,
                                                            const LocalCalendar &calendar);

    [[nodiscard]] static MeetingMoment::DayType dayType(Instant start,
                                                        const LocalCalendar &calendar);

    /// Compares starts only: a meeting under way counts as an earlier one.
    [[nodiscard]] static MeetingMoment::DayPosition
    dayPosition(Instant start, const std::vector<DayEventSummary> &others);

    /// The free time since the last of the others that is over by `start`.
    [[nodiscard]] static MeetingMoment::GapBefore
    gapBefore(Instant start, const std::vector<DayEventSummary> &others);

    /// The whole moment; `now` tells whether the user is late.
    [[nodiscard]] static MeetingMoment moment(const MeetingMomentInputs &inputs,
                                              const std::vector<DayEventSummary> &others,
                                              Instant now, const LocalCalendar &calendar);
};

} // namespace vantrel
