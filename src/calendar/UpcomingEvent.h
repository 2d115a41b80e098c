#pragma once

#include <links/MeetingLink.h>
#include <platform/Color.h>
#include <platform/Time.h>

#include <QHashFunctions>
#include <QString>

#include <cstddef>
#include <functional>
#include <optional>

namespace vantrel {

/// One occurrence of a meeting as the whole program knows it. Two values are the same event when
/// their `id` is the same, whatever else they hold.
struct UpcomingEvent {
    /// The occurrence key: the event's identifier, "|", and its start in whole seconds since
    /// `referenceDate`, truncated toward zero. A meeting that is moved gets a new one.
    QString id;
    QString title; ///< "(no title)" for an event without one; an empty one stays empty.
    Instant startDate;
    Instant endDate;
    Color calendarColor;
    bool isRecurring = false;
    std::optional<QString> location; ///< Trimmed, never empty.
    std::optional<MeetingLink> videoLink;
    std::optional<MeetingLink> phoneLink;

    /// What the store calls the event: the part of `id` before the "|". The store's identifiers
    /// hold none.
    [[nodiscard]] QString eventIdentifier() const;

    /// One line of secondary text: the video link, else the location, else the phone number.
    [[nodiscard]] std::optional<QString> detailPreview() const;

    bool operator==(const UpcomingEvent &other) const { return id == other.id; }
};

inline std::size_t qHash(const UpcomingEvent &event, std::size_t seed = 0) {
    return qHash(event.id, seed);
}

} // namespace vantrel

template <>
struct std::hash<vantrel::UpcomingEvent> {
    std::size_t operator()(const vantrel::UpcomingEvent &event) const { return qHash(event); }
};
