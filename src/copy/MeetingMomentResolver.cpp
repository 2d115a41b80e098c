#include "MeetingMomentResolver.h"

#include <algorithm>
#include <optional>

namespace vantrel {

namespace {

constexpr Seconds shortestGap{300.0};
constexpr Seconds longestShortGap{7200.0};

MeetingMoment::MeetingShape meetingShape(std::int64_t attendeeCount) {
    if (attendeeCount <= 2)
        return MeetingMoment::MeetingShape::oneOnOne;
    return attendeeCount <= 5 ? MeetingMoment::MeetingShape::smallGroup
                              : MeetingMoment::MeetingShape::largeGroup;
}

MeetingMoment::LinkState linkState(const MeetingMomentInputs &inputs) {
    if (inputs.hasVideoLink)
        return MeetingMoment::LinkState::hasVideoLink;
    if (inputs.hasPhoneOnly)
        return MeetingMoment::LinkState::phoneOnly;
    return inputs.hasLocation ? MeetingMoment::LinkState::inPersonOnly
                              : MeetingMoment::LinkState::noDestination;
}

} // namespace

MeetingMoment::TimeOfDay MeetingMomentResolver::timeOfDay(Instant start,
                                                          const LocalCalendar &calendar) {
    const int hour = calendar.hour(start);
    if (hour <= 7)
        return MeetingMoment::TimeOfDay::earlyMorning;
    if (hour <= 10)
        return MeetingMoment::TimeOfDay::morning;
    if (hour <= 13)
        return MeetingMoment::TimeOfDay::midday;
    if (hour <= 16)
        return MeetingMoment::TimeOfDay::afternoon;
    return hour <= 18 ? MeetingMoment::TimeOfDay::lateAfternoon : MeetingMoment::TimeOfDay::evening;
}

MeetingMoment::DayType MeetingMomentResolver::dayType(Instant start,
                                                      const LocalCalendar &calendar) {
    switch (calendar.weekday(start)) {
    case 1:
    case 7:
        return MeetingMoment::DayType::weekend;
    case 2:
        return MeetingMoment::DayType::monday;
    case 6:
        return MeetingMoment::DayType::friday;
    default:
        return MeetingMoment::DayType::midweek;
    }
}

MeetingMoment::DayPosition
MeetingMomentResolver::dayPosition(Instant start, const std::vector<DayEventSummary> &others) {
    if (others.empty())
        return MeetingMoment::DayPosition::onlyOfDay;
    const bool hasEarlier =
        std::any_of(others.begin(), others.end(),
                    [start](const DayEventSummary &other) { return other.startsAt < start; });
    const bool hasLater =
        std::any_of(others.begin(), others.end(),
                    [start](const DayEventSummary &other) { return other.startsAt > start; });
    if (hasLater == hasEarlier)
        return MeetingMoment::DayPosition::middleOfDay;
    return hasLater ? MeetingMoment::DayPosition::firstOfDay
                    : MeetingMoment::DayPosition::lastOfDay;
}

MeetingMoment::GapBefore
MeetingMomentResolver::gapBefore(Instant start, const std::vector<DayEventSummary> &others) {
    std::optional<Instant> latestEnd;
    for (const DayEventSummary &other : others) {
        if (other.endsAt <= start && (!latestEnd || other.endsAt > *latestEnd))
            latestEnd = other.endsAt;
    }
    if (!latestEnd)
        return MeetingMoment::GapBefore::freshStart;
    const Seconds gap = start - *latestEnd;
    if (gap < shortestGap)
        return MeetingMoment::GapBefore::backToBack;
    return gap <= longestShortGap ? MeetingMoment::GapBefore::shortGap
                                  : MeetingMoment::GapBefore::longGap;
}

MeetingMoment MeetingMomentResolver::moment(const MeetingMomentInputs &inputs,
                                            const std::vector<DayEventSummary> &others, Instant now,
                                            const LocalCalendar &calendar) {
    return {
        .timeOfDay = timeOfDay(inputs.startsAt, calendar),
        .dayType = dayType(inputs.startsAt, calendar),
        .dayPosition = dayPosition(inputs.startsAt, others),
        .gapBefore = gapBefore(inputs.startsAt, others),
        .meetingShape = meetingShape(inputs.attendeeCount),
        .recurrence = inputs.isRecurring ? MeetingMoment::Recurrence::recurring
                                         : MeetingMoment::Recurrence::oneOff,
        .linkState = linkState(inputs),
        .urgency = inputs.startsAt > now ? MeetingMoment::Urgency::normal
                                         : MeetingMoment::Urgency::joinedLate,
        .title = inputs.title,
    };
}

} // namespace vantrel
