#include "LocalEventStore.h"

#include "StoreAccess.h"
#include "StoreLoader.h"

#include <utility>

namespace vantrel {

namespace {

constexpr Seconds pauseBetweenNews{0.6};

} // namespace

LocalEventStore::LocalEventStore(MainQueue &queue, StoreConfiguration configuration,
                                 CurrentCalendar currentCalendar,
                                 std::unique_ptr<StoreAccess> access)
    : m_queue(queue),
      m_configuration(std::move(configuration)),
      m_currentCalendar(std::move(currentCalendar)),
      m_access(std::move(access)),
      m_accessChanges(m_access->changed.subscribe([this] { noteAccess(); })),
      m_threads(queue) {}

LocalEventStore::~LocalEventStore() = default;

void LocalEventStore::start() {
    m_access->follow(m_queue);
    if (m_access->status() == StoreAuthorization::fullAccess)
        read();
}

void LocalEventStore::noteAccess() {
    if (m_access->status() == StoreAuthorization::fullAccess)
        read();
    else
        forget();
}

void LocalEventStore::read() {
    if (m_loader)
        return;
    followFile();
    m_loader = makeLoader();
    m_loader->start();
}

/// At once: what is no longer to be seen is not left on the screen for a pause between news.
void LocalEventStore::forget() {
    m_loader.reset();
    m_isLoaded = false;
    hold({});
    announce();
}

/// To free a calendar of tens of thousands of events takes longer than the main thread may stand
/// still.
void LocalEventStore::hold(EventIndex::Calendars calendars) {
    const auto former =
        std::make_shared<EventIndex::Calendars>(m_index.replace(std::move(calendars)));
    m_threads.run([former] { *former = {}; }, [] {});
}

void LocalEventStore::loadNow() {
    if (m_access->status() != StoreAuthorization::fullAccess)
        return;
    m_loader = makeLoader();
    m_loader->loadNow();
}

QStringList LocalEventStore::troubles() const {
    return m_loader ? m_loader->troubles() : QStringList();
}

StoreAuthorization LocalEventStore::authorizationStatus() const {
    return m_access->status();
}

void LocalEventStore::requestFullAccessToEvents(AccessCompletion completion) {
    if (m_access->status() == StoreAuthorization::fullAccess)
        return m_access->request({}, std::move(completion));
    followFile(); // Nothing is read yet, so nothing else does.
    // The accounts stand in a file each, and there may be many.
    const auto places = std::make_shared<std::vector<CalendarPlace>>();
    m_threads.run([places, configuration = m_configuration] { *places = configuration.places(); },
                  [this, places, completion = std::move(completion)] {
                      m_access->request(*places, completion);
                  });
}

std::vector<StoreCalendar> LocalEventStore::calendars() const {
    return m_index.calendars();
}

std::vector<StoreEvent>
LocalEventStore::events(Instant from, Instant to,
                        const std::vector<QString> &calendarIdentifiers) const {
    if (m_loader)
        m_loader->noteQuestion(from, to);
    return m_index.events(from, to, calendarIdentifiers);
}

std::optional<StoreEvent>
LocalEventStore::eventWithIdentifier(const QString &eventIdentifier) const {
    return m_index.eventWithIdentifier(eventIdentifier, m_queue.now());
}

/// The user may have waited with the answer, and edited the file meanwhile.
void LocalEventStore::followFile() {
    if (m_configuration.file)
        m_configuration = m_configuration.readAgain().value_or(m_configuration);
}

std::unique_ptr<StoreLoader> LocalEventStore::makeLoader() {
    return std::make_unique<StoreLoader>(m_queue, m_threads, m_configuration, m_currentCalendar,
                                         [this](auto calendars) { take(std::move(calendars)); });
}

void LocalEventStore::take(std::optional<EventIndex::Calendars> calendars) {
    m_isLoaded = m_isLoaded || (m_loader && m_loader->isLoaded());
    if (!calendars)
        return announce(); // The clock was set: nothing that hangs on it may wait.
    hold(std::move(*calendars));
    if (m_isAnnouncing)
        return;
    const Seconds wait =
        m_announced ? *m_announced + pauseBetweenNews - m_queue.uptime() : Seconds::zero();
    if (wait <= Seconds::zero())
        return announce();
    m_isAnnouncing = true;
    m_announcement = m_queue.after(wait, [this] { announce(); });
}

void LocalEventStore::announce() {
    m_isAnnouncing = false;
    m_announcement.cancel();
    m_announced = m_queue.uptime();
    changed.announce();
}

} // namespace vantrel
