#pragma once

#include "EventIndex.h"
#include "ReaderThreads.h"
#include "StoreConfiguration.h"

#include <platform/EventStore.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

class StoreAccess;
class StoreLoader;

/// The calendars on this machine: folders of `.ics` files and the desktop's accounts, read and
/// expanded on threads of the store's own and answered from memory. Main thread only; needs its
/// event loop to run.
///
/// Answers know a window of time around now (see `StoreConfiguration`), which moves along with the
/// clock; what lies outside is not answered. `changed` is announced when calendars or events
/// change, and when the machine wakes or its clock or time zone is set. Changes of calendars are
/// not announced twice within 0.6 s, so that who waits for half a second of quiet is not kept
/// waiting by a file that is written all the time; what comes of the clock is announced at once.
///
/// Nothing is read, listed, watched or loaded before the user allowed it.
class LocalEventStore : public EventStore {
public:
    /// Reads nothing yet. `queue` outlives the store.
    LocalEventStore(MainQueue &queue, StoreConfiguration configuration,
                    CurrentCalendar currentCalendar, std::unique_ptr<StoreAccess> access);
    ~LocalEventStore() override;

    /// Starts to read and to watch, for as long as access is granted: what the files say on it
    /// counts as soon as it is written. Until `isLoaded` the answers are empty.
    void start();

    /// Reads everything before it returns, and watches nothing: for a question that is asked once.
    /// Not together with `start`, and nothing without access.
    void loadNow();

    /// Whether every source has been read once. `changed` is announced when that becomes so; what
    /// the quicker ones have is answered before.
    [[nodiscard]] bool isLoaded() const { return m_isLoaded; }

    /// What keeps the store from showing all that it should, for people: a sentence each.
    [[nodiscard]] QStringList troubles() const;

    [[nodiscard]] StoreAuthorization authorizationStatus() const override;
    void requestFullAccessToEvents(AccessCompletion completion) override;
    [[nodiscard]] std::vector<StoreCalendar> calendars() const override;
    [[nodiscard]] bool hasAllCalendars() const override { return m_index.hasAllCalendars(); }
    [[nodiscard]] bool isCalendarDeleted(const QString &calendarIdentifier) const override {
        return m_index.isCalendarDeleted(calendarIdentifier);
    }
    [[nodiscard]] std::vector<StoreEvent>
    events(Instant from, Instant to,
           const std::vector<QString> &calendarIdentifiers) const override;
    [[nodiscard]] std::optional<StoreEvent>
    eventWithIdentifier(const QString &eventIdentifier) const override;

private:
    void noteAccess();
    void read();
    void forget();
    void hold(EventIndex::Calendars calendars);
    void followFile();
    [[nodiscard]] std::unique_ptr<StoreLoader> makeLoader();
    void take(std::optional<EventIndex::Calendars> calendars);
    void announce();

    MainQueue &m_queue;
    StoreConfiguration m_configuration;
    const CurrentCalendar m_currentCalendar;
    EventIndex m_index;
    bool m_isLoaded = false;
    std::unique_ptr<StoreAccess> m_access;
    Subscription m_accessChanges;
    std::optional<MonotonicInstant> m_announced; ///< When `changed` was, the last time.
    bool m_isAnnouncing = false;                 ///< The next time is arranged.
    ScheduledWork m_announcement;
    ReaderThreads m_threads;               ///< Outlives the loader.
    std::unique_ptr<StoreLoader> m_loader; ///< Null as long as nothing may be read.
};

} // namespace vantrel
