#include "LiveEvolutionSource.h"

#include "EvolutionService.h"

#include <linux/eventstore/ical/EventIdentifier.h>

#include <mutex>
#include <utility>

namespace vantrel {

struct LiveEvolutionSource::State {
    explicit State(std::function<void()> itsAnnounce)
        : announce(std::move(itsAnnounce)),
          service(std::make_unique<EvolutionService>(table, [this] { announceNow(); })) {}

    void announceNow() {
        const std::lock_guard lock(mutex);
        if (announce)
            announce();
    }

    std::mutex mutex;
    std::function<void()> announce; ///< Guarded by it.
    AnswerTable table;
    std::unique_ptr<EvolutionService> service; ///< Of the service's thread.
};

LiveEvolutionSource::LiveEvolutionSource(std::function<void()> announce)
    : m_state(std::make_shared<State>(std::move(announce))) {}

LiveEvolutionSource::~LiveEvolutionSource() {
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->announce = nullptr;
    }
    m_thread.stop([state = m_state.get()] { state->service.reset(); });
}

void LiveEvolutionSource::setWindow(Window window) {
    m_thread.post([state = m_state.get(), window] { state->service->setWindow(window); });
}

void LiveEvolutionSource::start() {
    m_thread.post([state = m_state.get()] { state->service->start(); });
    m_thread.start(m_state);
}

void LiveEvolutionSource::waitUntilDelivered(Seconds limit) {
    m_state->table.waitUntilSettled(limit);
}

std::vector<SourceCalendar> LiveEvolutionSource::calendars() {
    return m_state->table.calendars();
}

SourceKnowledge LiveEvolutionSource::knowledge() const {
    return m_state->table.knowledge();
}

QString LiveEvolutionSource::trouble() const {
    return m_state->table.trouble();
}

std::optional<std::vector<SourceItem>>
LiveEvolutionSource::items(const QString &calendarIdentifier) {
    return m_state->table.items(calendarIdentifier);
}

std::optional<QByteArray> LiveEvolutionSource::text(const QString &calendarIdentifier,
                                                    const QByteArray &item) {
    return m_state->table.text(calendarIdentifier, item);
}

QString LiveEvolutionSource::description(const QString &calendarIdentifier,
                                         const QByteArray &item) const {
    constexpr qsizetype enough = 80;
    return m_state->table.title(calendarIdentifier) + QStringLiteral(", ") +
           escapedPiece(QString::fromUtf8(item).left(enough));
}

} // namespace vantrel
