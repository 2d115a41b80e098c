#pragma once

#include "Color.h"
#include "Published.h"
#include "Time.h"
#include "Url.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// An account or a place that holds calendars.
struct StoreSource {
    QString sourceIdentifier; ///< Stable across runs, unique in the store.
    QString title;            ///< As the user knows it.
};

enum class StoreCalendarType { local, subscription, birthday };

struct StoreCalendar {
    QString calendarIdentifier; ///< Stable across runs, unique in the store.
    QString title;
    std::optional<Color> color;
    bool allowsContentModifications = true;
    StoreCalendarType type = StoreCalendarType::local;
    StoreSource source;
};

enum class StoreEventStatus { none, confirmed, tentative, cancelled };

enum class StoreParticipantStatus {
    unknown,
    pending,
    accepted,
    declined,
    tentative,
    delegated,
    completed,
    inProcess
};

struct StoreParticipant {
    bool isCurrentUser = false;
    StoreParticipantStatus participantStatus = StoreParticipantStatus::unknown;
};

/// One occurrence of a calendar event: a single event, or one instance of a series with its
/// override applied. Cheap to copy: texts and lists are shared.
struct StoreEvent {
    /// The same for all plain occurrences of a series, another one for each override; stable
    /// across runs. Holds no "|".
    std::optional<QString> eventIdentifier;
    std::optional<QString> title;
    Instant startDate;
    Instant endDate; ///< At or after `startDate`.
    bool isAllDay = false;
    StoreEventStatus status = StoreEventStatus::none;
    /// In the order of the component; null when it names none.
    std::shared_ptr<const std::vector<StoreParticipant>> attendees;
    std::optional<Url> url;
    std::optional<QString> location;
    std::optional<QString> notes;
    /// The calendar as it was when the event was read; null only for an event without calendar.
    std::shared_ptr<const StoreCalendar> calendar;
    bool hasRecurrenceRules = false;
};

/// What the user, or a policy of the machine, lets the program do with the calendars.
enum class StoreAuthorization {
    notDetermined = 0, ///< Nobody has been asked.
    restricted = 1,    ///< A policy bars it; the user cannot allow it.
    denied = 2,
    fullAccess = 3,
    writeOnly = 4
};

/// The user's calendars, all sources taken together. Answers come from memory: no call waits for
/// a disk, a bus or a service. Main thread only.
class EventStore {
public:
    /// `error` says why nobody could be asked; `granted` is false then.
    using AccessCompletion = std::function<void(bool granted, const std::optional<QString> &error)>;

    virtual ~EventStore() = default;

    /// Without `fullAccess` the store has read nothing, and every other answer is empty. Asks
    /// nobody.
    [[nodiscard]] virtual StoreAuthorization authorizationStatus() const = 0;

    /// Asks the user for full access, again if they refused before. `completion` is called once,
    /// on the main thread, not before this returns; never when the store is destroyed earlier.
    /// Where access is granted the calendars follow with `changed`, at the latest then.
    virtual void requestFullAccessToEvents(AccessCompletion completion) = 0;

    /// Every event calendar, in an order that stays the same while the set does.
    [[nodiscard]] virtual std::vector<StoreCalendar> calendars() const = 0;

    /// Whether `calendars` holds all that there are. False while a source has not been heard yet or
    /// cannot be reached: more may come without anybody adding one.
    [[nodiscard]] virtual bool hasAllCalendars() const = 0;

    /// Whether that calendar has been deleted: the source that it belongs to was heard and no
    /// longer holds it. False as long as it may come back by itself, its source being out of reach
    /// or not known on this machine.
    [[nodiscard]] virtual bool isCalendarDeleted(const QString &calendarIdentifier) const = 0;

    /// The occurrences on the named calendars (by `calendarIdentifier`; unknown ones are ignored)
    /// that overlap the interval from `from` to `to`, by start; equal starts in a stable order.
    /// An occurrence overlaps when it starts before `to` and ends after `from`; one without length
    /// also when it stands at `from`.
    [[nodiscard]] virtual std::vector<StoreEvent>
    events(Instant from, Instant to, const std::vector<QString> &calendarIdentifiers) const = 0;

    /// The event with that identifier; of a series the occurrence nearest to now: the one under
    /// way, else the next, else the last. Empty when there is none.
    [[nodiscard]] virtual std::optional<StoreEvent>
    eventWithIdentifier(const QString &eventIdentifier) const = 0;

    /// Announced after any answer of this store may have changed.
    Announcer<> changed;
};

} // namespace vantrel
