#include "LocalEventStore.h"

#include "StoreCatalog.h"

#include <QMetaObject>

#include <cmath>
#include <utility>

namespace vantrel {

namespace {

constexpr Seconds rollInterval{900.0};

Window windowBetween(Instant from, Instant to) {
    return {static_cast<UtcSeconds>(std::floor(from.time_since_epoch().count())),
            static_cast<UtcSeconds>(std::ceil(to.time_since_epoch().count()))};
}

} // namespace

LocalEventStore::LocalEventStore(MainQueue &queue, const StoreConfiguration &configuration,
                                 CurrentCalendar currentCalendar)
    : m_queue(queue),
      m_configuration(configuration),
      m_currentCalendar(std::move(currentCalendar)) {
    m_sources.push_back(std::make_unique<FolderSource>(m_queue, configuration.roots));
    std::vector<ComponentSource *> sources;
    for (const auto &source : m_sources) {
        sources.push_back(source.get());
        m_subscriptions.push_back(source->changed.subscribe([this] { bringUpToDate(); }));
    }
    m_catalog = std::make_unique<StoreCatalog>(std::move(sources), configuration.addresses);
    m_worker.setMaxThreadCount(1);
    m_worker.setExpiryTimeout(1000);
}

LocalEventStore::~LocalEventStore() {
    m_catalog->stop();
    m_worker.waitForDone();
}

void LocalEventStore::start() {
    for (const auto &source : m_sources)
        source->start();
    m_rolling = m_queue.every(rollInterval, [this] { rollWhenDue(); });
    bringUpToDate();
}

void LocalEventStore::loadNow() {
    m_window = windowNow();
    take(m_catalog->bring(m_window, m_currentCalendar().timeZone()));
}

std::vector<StoreCalendar> LocalEventStore::calendars() const {
    return m_index.calendars();
}

std::vector<StoreEvent>
LocalEventStore::events(Instant from, Instant to,
                        const std::vector<QString> &calendarIdentifiers) const {
    return m_index.events(from, to, calendarIdentifiers);
}

std::optional<StoreEvent>
LocalEventStore::eventWithIdentifier(const QString &eventIdentifier) const {
    return m_index.eventWithIdentifier(eventIdentifier, m_queue.now());
}

Window LocalEventStore::windowNow() const {
    if (m_configuration.fixedWindow)
        return windowBetween(m_configuration.fixedWindow->first,
                             m_configuration.fixedWindow->second);
    const LocalCalendar calendar = m_currentCalendar();
    const Instant now = m_queue.now();
    return windowBetween(calendar.startOfDay(now, -m_configuration.daysBefore),
                         calendar.startOfDay(now, m_configuration.daysAfter));
}

void LocalEventStore::rollWhenDue() {
    if (windowNow() != m_window)
        bringUpToDate();
}

void LocalEventStore::bringUpToDate() {
    m_isOutdated = m_isReading;
    if (m_isReading)
        return;
    m_isReading = true;
    m_window = windowNow();
    m_worker.start([this, window = m_window, zone = m_currentCalendar().timeZone()] {
        auto calendars = m_catalog->bring(window, zone);
        QMetaObject::invokeMethod(
            &m_receiver,
            [this, calendars = std::move(calendars)]() mutable { take(std::move(calendars)); },
            Qt::QueuedConnection);
    });
}

void LocalEventStore::take(std::optional<EventIndex::Calendars> calendars) {
    m_isReading = false;
    const bool isFirst = !std::exchange(m_isLoaded, true);
    if (calendars)
        m_index.replace(std::move(*calendars));
    if (m_isOutdated)
        bringUpToDate();
    if (calendars || isFirst)
        changed.announce();
}

} // namespace vantrel
