#pragma once

#include "ComponentSource.h"
#include "EventIndex.h"
#include "SeriesExpander.h"
#include "StoreConfiguration.h"

#include <platform/EventStore.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>

#include <QObject>
#include <QThreadPool>

#include <memory>
#include <vector>

namespace vantrel {

class StoreCatalog;

/// The calendars on this machine: folders of `.ics` files, read and expanded on a thread of the
/// store's own and answered from memory. Main thread only; needs its event loop to run.
///
/// Answers know a window of time around now (see `StoreConfiguration`), which moves along with the
/// clock; what lies outside is not answered.
class LocalEventStore : public EventStore {
public:
    /// Reads nothing yet. `queue` outlives the store.
    LocalEventStore(MainQueue &queue, const StoreConfiguration &configuration,
                    CurrentCalendar currentCalendar);
    ~LocalEventStore() override;

    /// Starts to read and to watch. Until `isLoaded` the answers are empty.
    void start();

    /// Reads everything before it returns, and watches nothing: for a question that is asked once.
    void loadNow();

    /// Whether everything has been read once. `changed` is announced when that becomes so.
    [[nodiscard]] bool isLoaded() const { return m_isLoaded; }

    [[nodiscard]] std::vector<StoreCalendar> calendars() const override;
    [[nodiscard]] std::vector<StoreEvent>
    events(Instant from, Instant to,
           const std::vector<QString> &calendarIdentifiers) const override;
    [[nodiscard]] std::optional<StoreEvent>
    eventWithIdentifier(const QString &eventIdentifier) const override;

private:
    [[nodiscard]] Window windowNow() const;
    void bringUpToDate();
    void rollWhenDue();
    void take(std::optional<EventIndex::Calendars> calendars);

    MainQueue &m_queue;
    const StoreConfiguration m_configuration;
    const CurrentCalendar m_currentCalendar;

    EventIndex m_index;
    Window m_window; ///< That the index knows, or is about to.
    bool m_isLoaded = false;
    bool m_isReading = false;
    bool m_isOutdated = false; ///< Something happened while reading.
    ScheduledWork m_rolling;
    mutable ScheduledWork m_askedRoll;

    std::vector<std::unique_ptr<ComponentSource>> m_sources;
    std::vector<Subscription> m_subscriptions;
    std::unique_ptr<StoreCatalog> m_catalog;
    QObject m_receiver;   ///< Results for it are dropped once it is gone.
    QThreadPool m_worker; ///< One thread, which ends by itself when there is nothing to do.
};

} // namespace vantrel
