#include "StoreLoader.h"

#include "StoreCatalog.h"

#include <linux/eventstore/evolution/EvolutionSource.h>
#include <linux/eventstore/folders/FolderSource.h>

#include <QMetaObject>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

/// Often enough that a day never goes by unnoticed, whatever happened to the clock.
constexpr Seconds rollInterval{900.0};

/// How long a question that is asked once waits for services to tell what they have.
constexpr Seconds patience{5.0};

constexpr int threadLifetime = 1000; // milliseconds without work

/// Whole seconds within the years that a calendar text can name.
UtcSeconds secondsOf(double seconds) {
    constexpr double farPast = -62'200'000'000.0;
    constexpr double farFuture = 253'500'000'000.0;
    return static_cast<UtcSeconds>(std::clamp(seconds, farPast, farFuture));
}

Window windowBetween(Instant from, Instant to) {
    return {secondsOf(std::floor(from.time_since_epoch().count())),
            secondsOf(std::ceil(to.time_since_epoch().count()))};
}

} // namespace

StoreLoader::StoreLoader(MainQueue &queue, const StoreConfiguration &configuration,
                         CurrentCalendar currentCalendar, Take take)
    : m_queue(queue),
      m_configuration(configuration),
      m_currentCalendar(std::move(currentCalendar)),
      m_take(std::move(take)) {
    m_sources.push_back(std::make_unique<FolderSource>(m_queue, configuration.roots));
    if (configuration.evolutionModule)
        m_sources.push_back(std::make_unique<EvolutionSource>(*configuration.evolutionModule));
    std::vector<ComponentSource *> sources;
    for (const auto &source : m_sources) {
        sources.push_back(source.get());
        m_subscriptions.push_back(source->changed.subscribe([this] { bringUpToDate(); }));
    }
    m_catalog = std::make_unique<StoreCatalog>(std::move(sources), configuration.addresses);
    m_worker.setMaxThreadCount(1);
    m_worker.setExpiryTimeout(threadLifetime);
}

StoreLoader::~StoreLoader() {
    m_catalog->stop();
    m_worker.waitForDone();
}

void StoreLoader::start() {
    m_clockWatch = std::make_unique<ClockWatch>([this] { noteClock(); });
    startSources();
    m_rolling = m_queue.every(rollInterval, [this] { rollWhenDue(); });
    bringUpToDate();
}

void StoreLoader::loadNow() {
    startSources();
    for (const auto &source : m_sources)
        source->waitUntilDelivered(patience);
    m_take(m_catalog->bring(windowNow(), m_currentCalendar().timeZone()));
}

QStringList StoreLoader::troubles() const {
    QStringList troubles;
    for (const auto &source : m_sources) {
        if (const QString trouble = source->trouble(); !trouble.isEmpty())
            troubles.append(trouble);
    }
    return troubles;
}

void StoreLoader::startSources() {
    for (const auto &source : m_sources) {
        source->setWindow(windowNow());
        source->start();
    }
}

void StoreLoader::noteQuestion(Instant from, Instant to) {
    const Window asked = windowBetween(from, to);
    const bool isInside = asked.from >= m_window.from && asked.to <= m_window.to;
    if (!isInside && m_clockWatch && isDue())
        m_askedRoll = m_queue.after(Seconds::zero(), [this] { rollWhenDue(); });
}

Window StoreLoader::windowNow() const {
    if (m_configuration.fixedWindow)
        return windowBetween(m_configuration.fixedWindow->first,
                             m_configuration.fixedWindow->second);
    const LocalCalendar calendar = m_currentCalendar();
    const Instant now = m_queue.now();
    return windowBetween(calendar.startOfDay(now, -m_configuration.daysBefore),
                         calendar.startOfDay(now, m_configuration.daysAfter));
}

void StoreLoader::noteClock() {
    m_isClockSet = true;
    bringUpToDate();
}

bool StoreLoader::isDue() const {
    return windowNow() != m_window || m_currentCalendar().timeZone() != m_zone;
}

void StoreLoader::rollWhenDue() {
    if (isDue())
        bringUpToDate();
}

void StoreLoader::bringUpToDate() {
    m_isOutdated = m_isReading;
    if (m_isReading)
        return;
    m_isReading = true;
    const Window window = windowNow();
    if (window != std::exchange(m_window, window)) {
        for (const auto &source : m_sources)
            source->setWindow(window);
    }
    m_zone = m_currentCalendar().timeZone();
    m_worker.start([this, window = m_window, zone = m_zone] {
        auto calendars = m_catalog->bring(window, zone);
        QMetaObject::invokeMethod(
            &m_receiver,
            [this, calendars = std::move(calendars)]() mutable { finish(std::move(calendars)); },
            Qt::QueuedConnection);
    });
}

void StoreLoader::finish(std::optional<EventIndex::Calendars> calendars) {
    m_isReading = false;
    const bool isTaken = calendars || !m_isLoaded || m_isClockSet;
    m_isLoaded = true;
    m_isClockSet = m_isClockSet && m_isOutdated;
    if (m_isOutdated)
        bringUpToDate();
    if (isTaken)
        m_take(std::move(calendars));
}

} // namespace vantrel
