#include "LocalEventStore.h"

#include "StoreLoader.h"

#include <utility>

namespace vantrel {

LocalEventStore::LocalEventStore(MainQueue &queue, const StoreConfiguration &configuration,
                                 CurrentCalendar currentCalendar)
    : m_queue(queue),
      m_loader(
          std::make_unique<StoreLoader>(queue, configuration, std::move(currentCalendar),
                                        [this](auto calendars) { take(std::move(calendars)); })) {}

LocalEventStore::~LocalEventStore() = default;

void LocalEventStore::start() {
    m_loader->start();
}

void LocalEventStore::loadNow() {
    m_loader->loadNow();
}

StoreAuthorization LocalEventStore::authorizationStatus() const {
    return StoreAuthorization::fullAccess;
}

void LocalEventStore::requestFullAccessToEvents(AccessCompletion completion) {
    QMetaObject::invokeMethod(
        &m_receiver, [completion = std::move(completion)] { completion(true, {}); },
        Qt::QueuedConnection);
}

std::vector<StoreCalendar> LocalEventStore::calendars() const {
    return m_index.calendars();
}

std::vector<StoreEvent>
LocalEventStore::events(Instant from, Instant to,
                        const std::vector<QString> &calendarIdentifiers) const {
    m_loader->noteQuestion(from, to);
    return m_index.events(from, to, calendarIdentifiers);
}

std::optional<StoreEvent>
LocalEventStore::eventWithIdentifier(const QString &eventIdentifier) const {
    return m_index.eventWithIdentifier(eventIdentifier, m_queue.now());
}

void LocalEventStore::take(std::optional<EventIndex::Calendars> calendars) {
    m_isLoaded = true;
    if (calendars)
        m_index.replace(std::move(*calendars));
    changed.announce();
}

} // namespace vantrel
