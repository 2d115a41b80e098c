#include "SourceReader.h"

#include "ReaderThreads.h"
#include "StoreCatalog.h"

#include <utility>

namespace vantrel {

/// What a round uses, which may go on when the reader has gone.
struct SourceReader::Core {
    Core(std::unique_ptr<ComponentSource> given, const QStringList &addresses)
        : source(std::move(given)), catalog({source.get()}, addresses) {}

    std::unique_ptr<ComponentSource> source;
    StoreCatalog catalog;
    SourceReader *owner = nullptr; ///< Of the main thread; null once it has gone.
};

SourceReader::SourceReader(std::unique_ptr<ComponentSource> source, QStringList addresses,
                           ReaderThreads &threads, Finished finished)
    : m_finished(std::move(finished)),
      m_threads(threads),
      m_core(std::make_shared<Core>(std::move(source), addresses)),
      m_addresses(std::move(addresses)) {
    m_core->owner = this;
}

SourceReader::~SourceReader() {
    m_core->owner = nullptr;
    m_core->catalog.stop();
}

void SourceReader::start(const Aim &aim) {
    m_aim = aim;
    m_changes = m_core->source->changed.subscribe([this] { readAgain(); });
    m_core->source->setWindow(aim.window);
    m_core->source->start();
    readAgain();
}

void SourceReader::aimAt(const Aim &aim) {
    if (aim.window != m_aim.window)
        m_core->source->setWindow(aim.window);
    m_aim = aim;
    readAgain();
}

void SourceReader::readNow(const Aim &aim, Seconds patience) {
    m_core->source->setWindow(aim.window);
    m_core->source->start();
    m_core->source->waitUntilDelivered(patience);
    m_calendars = m_core->catalog.bring(aim.window, aim.zone);
    m_trouble = m_core->catalog.trouble();
}

void SourceReader::setAddresses(const QStringList &addresses) {
    m_addresses = addresses;
    readAgain();
}

EventIndex::Calendars SourceReader::calendars() const {
    return m_calendars.value_or(EventIndex::Calendars{{}, {SourceKnowledge()}});
}

void SourceReader::readAgain() {
    m_isOutdated = m_isReading;
    if (m_isReading)
        return;
    m_isReading = true;
    const auto found = std::make_shared<Found>();
    m_threads.run(
        [core = m_core, found, aim = m_aim, addresses = m_addresses] {
            core->catalog.setAddresses(addresses);
            *found = {core->catalog.bring(aim.window, aim.zone), core->catalog.trouble()};
        },
        [core = m_core, found] {
            if (core->owner)
                core->owner->take(std::move(*found));
        });
}

void SourceReader::take(Found found) {
    m_isReading = false;
    const bool isDifferent = found.calendars.has_value();
    if (isDifferent)
        m_calendars = std::move(found.calendars);
    m_trouble = std::move(found.trouble);
    if (m_isOutdated)
        readAgain();
    m_finished(isDifferent);
}

} // namespace vantrel
