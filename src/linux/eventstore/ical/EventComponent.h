#pragma once

#include "CivilTime.h"

#include <QByteArray>
#include <QByteArrayView>

#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

class Zone;

/// A TZID of a calendar text, and what it was found to mean; null when nothing was found, which
/// makes times in it floating.
struct NamedZone {
    QByteArray name;
    std::shared_ptr<const Zone> zone;
};

/// A point in time as a component writes it.
struct Moment {
    enum class Kind : std::uint8_t {
        date,     ///< A whole day, wherever one is.
        floating, ///< A wall-clock reading, wherever one is.
        utc,
        zoned ///< A wall-clock reading in `zone`.
    };

    CivilSeconds civil = 0;
    const NamedZone *zone = nullptr; ///< Set for `zoned` alone; owned by the text that was read.
    Kind kind = Kind::utc;
};

/// One RDATE: a start, with a length of its own when it was written as a period.
struct AddedDate {
    Moment start;
    std::optional<Moment> end;
    std::optional<Span> duration;
};

/// What one VEVENT says, as far as the program asks. Times are read; texts are views into the
/// calendar text, still escaped, because most events lie outside the window and never show.
struct EventComponent {
    QByteArray uid;
    int line = 0; ///< Where the component begins, counted from 1.

    Moment start;
    bool hasStart = false;
    std::optional<Moment> end;
    std::optional<Span> duration;
    /// Of an override; empty when it could not be read.
    std::optional<Moment> recurrenceId;
    bool isOverride = false;
    bool isThisAndFuture = false;
    std::vector<QByteArrayView> rules;
    std::vector<QByteArrayView> exceptionRules;
    std::vector<Moment> exceptions;
    std::vector<AddedDate> dates;

    std::optional<QByteArrayView> summary;
    std::optional<QByteArrayView> location;
    std::optional<QByteArrayView> description;
    QByteArrayView url;
    QByteArrayView conference;
    QByteArrayView status;
    struct Attendee {
        QByteArrayView parameters;
        QByteArrayView address;
    };
    std::vector<Attendee> attendees;

    std::int64_t sequence = 0;
    CivilSeconds modified = 0; ///< LAST-MODIFIED, else DTSTAMP, else 0.

    [[nodiscard]] bool isRecurring() const { return !rules.empty() || !dates.empty(); }
};

} // namespace vantrel
