#include "SourceReader.h"

#include "StoreCatalog.h"

#include <linux/eventstore/source/StoreLog.h>

#include <QMetaObject>
#include <QObject>
#include <QThreadPool>

#include <utility>

namespace vantrel {

namespace {

// In milliseconds.
constexpr int threadLifetime = 1000; // without work
constexpr int longestFarewell = 2000;

} // namespace

/// What the thread uses. Outlives the reader where the thread does not come back.
struct SourceReader::Core {
    Core(std::unique_ptr<ComponentSource> given, const QStringList &addresses)
        : source(std::move(given)), catalog({source.get()}, addresses) {
        worker.setMaxThreadCount(1);
        worker.setExpiryTimeout(threadLifetime);
    }

    std::unique_ptr<ComponentSource> source;
    StoreCatalog catalog;
    SourceReader *owner = nullptr; ///< Of the main thread; null once it has gone.
    QObject receiver;              ///< Results for it are dropped once it is gone.
    QThreadPool worker;            ///< One thread, which ends by itself without work.
};

SourceReader::SourceReader(std::unique_ptr<ComponentSource> source, const QStringList &addresses,
                           Finished finished)
    : m_finished(std::move(finished)),
      m_core(std::make_unique<Core>(std::move(source), addresses)) {
    m_core->owner = this;
}

SourceReader::~SourceReader() {
    m_changes.reset();
    m_core->owner = nullptr;
    m_core->catalog.stop();
    if (m_core->worker.waitForDone(longestFarewell))
        return;
    qCWarning(eventStoreLog) << "a source of calendars does not answer and is left behind";
    (void)m_core.release();
}

void SourceReader::start(const Aim &aim) {
    m_aim = aim;
    m_changes = m_core->source->changed.subscribe([this] { read(); });
    m_core->source->setWindow(aim.window);
    m_core->source->start();
    read();
}

void SourceReader::aimAt(const Aim &aim) {
    if (aim.window != m_aim.window)
        m_core->source->setWindow(aim.window);
    m_aim = aim;
    read();
}

void SourceReader::readNow(const Aim &aim, Seconds patience) {
    m_core->source->setWindow(aim.window);
    m_core->source->start();
    m_core->source->waitUntilDelivered(patience);
    m_calendars = m_core->catalog.bring(aim.window, aim.zone);
    m_trouble = m_core->source->trouble();
}

void SourceReader::change(std::function<void(ComponentSource &, StoreCatalog &)> work) {
    m_work.push_back(std::move(work));
    read();
}

EventIndex::Calendars SourceReader::calendars() const {
    return m_calendars.value_or(EventIndex::Calendars{{}, {SourceKnowledge()}});
}

void SourceReader::read() {
    m_isOutdated = m_isReading;
    if (m_isReading)
        return;
    m_isReading = true;
    m_core->worker.start([core = m_core.get(), aim = m_aim, work = std::exchange(m_work, {})] {
        for (const auto &one : work)
            one(*core->source, core->catalog);
        Found found{core->catalog.bring(aim.window, aim.zone), core->source->trouble()};
        QMetaObject::invokeMethod(
            &core->receiver,
            [core, found = std::move(found)]() mutable {
                if (core->owner)
                    core->owner->take(std::move(found));
            },
            Qt::QueuedConnection);
    });
}

void SourceReader::take(Found found) {
    m_isReading = false;
    const bool isDifferent = found.calendars.has_value();
    if (isDifferent)
        m_calendars = std::move(found.calendars);
    m_trouble = std::move(found.trouble);
    if (m_isOutdated)
        read();
    m_finished(isDifferent);
}

} // namespace vantrel
