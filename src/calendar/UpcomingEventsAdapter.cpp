#include "UpcomingEventsAdapter.h"

#include "EventReading.h"

#include <links/LinkDetector.h>

#include <QUuid>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

constexpr Color middleGrey{0.5, 0.5, 0.5, 1.0};

/// The user may stand on the list more than once (by several addresses); the first entry decides.
bool isDeclinedByUser(const StoreEvent &event) {
    if (!event.attendees)
        return false;
    const auto user = std::find_if(event.attendees->begin(), event.attendees->end(),
                                   [](const auto &attendee) { return attendee.isCurrentUser; });
    return user != event.attendees->end() &&
           user->participantStatus == StoreParticipantStatus::declined;
}

qint64 wholeSecondsSinceReferenceDate(Instant instant) {
    constexpr double limit = 9223372036854775808.0; // 2^63, the first that does not fit
    const double seconds = std::trunc((instant - referenceDate).count());
    if (!(seconds >= -limit && seconds < limit))
        qFatal("An event of the store starts too far from the reference date");
    return static_cast<qint64>(seconds);
}

/// One allocation: every refresh of every consumer builds the keys of all meetings in its horizon.
QString occurrenceKey(const StoreEvent &event) {
    std::array<char, 20> digits; // as many as the smallest 64-bit number has, with its sign
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   wholeSecondsSinceReferenceDate(event.startDate))
                         .ptr;
    const QLatin1String seconds(digits.data(), end - digits.data());
    const QString identifier = event.eventIdentifier
                                   ? *event.eventIdentifier
                                   : QUuid::createUuid().toString(QUuid::WithoutBraces);
    QString key;
    key.reserve(identifier.size() + 1 + seconds.size());
    key.append(identifier).append(QLatin1Char('|')).append(seconds);
    return key;
}

} // namespace

std::optional<UpcomingEvent> UpcomingEventsAdapter::makeEvent(const StoreEvent &event) {
    if (event.isAllDay || event.status == StoreEventStatus::cancelled || isDeclinedByUser(event))
        return std::nullopt;
    requireReadableSpan(event);
    LinkDetector::Detection links = LinkDetector::detect(event.url, event.location, event.notes);
    return UpcomingEvent{
        .id = occurrenceKey(event),
        .title = titleOf(event),
        .startDate = event.startDate,
        .endDate = event.endDate,
        .calendarColor = event.calendar ? event.calendar->color.value_or(middleGrey) : middleGrey,
        .isRecurring = event.hasRecurrenceRules,
        .location = locationOf(event),
        .videoLink = std::move(links.video),
        .phoneLink = std::move(links.phone),
    };
}

} // namespace vantrel
