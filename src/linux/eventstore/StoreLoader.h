#pragma once

#include "ClockWatch.h"
#include "EventIndex.h"
#include "StoreConfiguration.h"

#include <linux/eventstore/ical/Window.h>
#include <linux/eventstore/source/ComponentSource.h>
#include <platform/LocalCalendar.h>
#include <platform/MainQueue.h>

#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <QTimeZone>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

class StoreCatalog;

/// Keeps answers in line with the sources and the clock: has a thread of its own read and expand
/// whenever a source changes, the window has to move on, or the clock or the zone is set. Main
/// thread only; needs its event loop to run.
class StoreLoader {
public:
    /// Called with the answers that take the place of all earlier ones; without a value when
    /// they stay, but what is asked may depend on the clock, which was set.
    using Take = std::function<void(std::optional<EventIndex::Calendars>)>;

    /// `queue` outlives the loader.
    StoreLoader(MainQueue &queue, const StoreConfiguration &configuration,
                CurrentCalendar currentCalendar, Take take);
    ~StoreLoader();

    /// From here on `take` is called, the first time as soon as everything has been read.
    void start();

    /// Calls `take` once, before it returns.
    void loadNow();

    /// What the sources cannot show, for people: a sentence each.
    [[nodiscard]] QStringList troubles() const;

    /// Has the window move on soon if a question about that stretch of time shows that it must.
    void noteQuestion(Instant from, Instant to);

private:
    [[nodiscard]] Window windowNow() const;
    [[nodiscard]] bool isDue() const;
    void startSources();
    void noteClock();
    void bringUpToDate();
    void rollWhenDue();
    void finish(std::optional<EventIndex::Calendars> calendars);

    MainQueue &m_queue;
    const StoreConfiguration m_configuration;
    const CurrentCalendar m_currentCalendar;
    const Take m_take;

    // What was loaded last, or is being loaded.
    Window m_window;
    QTimeZone m_zone;

    bool m_isLoaded = false;
    bool m_isReading = false;
    bool m_isOutdated = false; ///< Something happened while reading.
    bool m_isClockSet = false; ///< Since `take` was called last.
    ScheduledWork m_rolling;
    ScheduledWork m_askedRoll;

    std::unique_ptr<ClockWatch> m_clockWatch;
    std::vector<std::unique_ptr<ComponentSource>> m_sources;
    std::vector<Subscription> m_subscriptions;
    std::unique_ptr<StoreCatalog> m_catalog;
    QObject m_receiver;   ///< Results for it are dropped once it is gone.
    QThreadPool m_worker; ///< One thread, which ends by itself when there is nothing to do.
};

} // namespace vantrel
