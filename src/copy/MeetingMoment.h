#pragma once

#include <platform/Time.h>

#include <QString>

#include <cstdint>

namespace vantrel {

/// What there is to say about one meeting at the instant its takeover is built, as categories that
/// the copy rules match on.
struct MeetingMoment {
    enum class TimeOfDay { earlyMorning, morning, midday, afternoon, lateAfternoon, evening };
    enum class DayType { monday, friday, midweek, weekend };
    enum class DayPosition { firstOfDay, lastOfDay, middleOfDay, onlyOfDay };
    enum class GapBefore { freshStart, backToBack, shortGap, longGap };
    enum class MeetingShape { oneOnOne, smallGroup, largeGroup };
    enum class Recurrence { oneOff, recurring };
    enum class LinkState { hasVideoLink, phoneOnly, inPersonOnly, noDestination };
    enum class Urgency { normal, joinedLate };

    TimeOfDay timeOfDay;
    DayType dayType;
    DayPosition dayPosition;
    GapBefore gapBefore;
    MeetingShape meetingShape;
    Recurrence recurrence;
    LinkState linkState;
    Urgency urgency;
    QString title; ///< As shown to the user.

    bool operator==(const MeetingMoment &) const = default;
};

/// The facts of one event that a moment is made of.
struct MeetingMomentInputs {
    QString title; ///< "(no title)" for an event without one.
    Instant startsAt;
    Instant endsAt;
    std::int64_t attendeeCount = 0; ///< Everybody on the list, the user included.
    bool isRecurring = false;
    bool hasVideoLink = false;
    bool hasPhoneOnly = false; ///< A phone number and no video link.
    bool hasLocation = false;  ///< A location that is not just white space.

    bool operator==(const MeetingMomentInputs &) const = default;
};

/// Another meeting of the same day, reduced to its span.
struct DayEventSummary {
    Instant startsAt;
    Instant endsAt;

    bool operator==(const DayEventSummary &) const = default;
};

} // namespace vantrel
