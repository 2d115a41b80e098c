#include "StoreLoader.h"

#include <linux/eventstore/evolution/EvolutionSource.h>
#include <linux/eventstore/folders/FolderSource.h>
#include <linux/eventstore/ical/ZoneRegistry.h>
#include <linux/eventstore/source/StoreLog.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

/// Often enough that no change of the day or the zone goes by unnoticed, whatever happened to the
/// clock.
constexpr Seconds rollInterval{900.0};

/// From a disk that is mounted to the look at the folders.
constexpr Seconds mountPause{0.5};

/// How long a question that is asked once waits for services to tell what they have.
constexpr Seconds patience{5.0};

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

FolderReaders::MakeSource fromDisk(MainQueue &queue) {
    return [&queue, descriptor = std::make_shared<WatchDescriptor>()](const FolderRoot &root) {
        return std::make_unique<FolderSource>(queue, root, descriptor);
    };
}

} // namespace

StoreLoader::StoreLoader(MainQueue &queue, ReaderThreads &threads, StoreConfiguration configuration,
                         CurrentCalendar currentCalendar, Take take,
                         FolderReaders::MakeSource makeSource)
    : m_queue(queue),
      m_configuration(std::move(configuration)),
      m_currentCalendar(std::move(currentCalendar)),
      m_take(std::move(take)),
      m_folders(threads, makeSource ? std::move(makeSource) : fromDisk(queue),
                [this](bool isDifferent) { note(isDifferent); }) {
    if (!ZoneRegistry::hasSystemZones())
        qCWarning(eventStoreLog) << "the system has no time-zone database (package tzdata); only "
                                    "zones that calendars describe themselves are known";
    m_folders.follow(m_configuration.roots, m_configuration.addresses, [](SourceReader &) {});
    if (m_configuration.evolutionModule)
        m_accounts = std::make_unique<SourceReader>(
            std::make_unique<EvolutionSource>(*m_configuration.evolutionModule),
            m_configuration.addresses, threads, [this](bool isDifferent) { note(isDifferent); });
}

void StoreLoader::start() {
    m_clockWatch = std::make_unique<ClockWatch>(
        m_queue, [this] { noteClock(); }, m_configuration.zoneFolder);
    m_wakeWatch = std::make_unique<WakeWatch>(m_queue, [this] { noteClock(); });
    m_mountWatch = std::make_unique<MountWatch>([this] { noteMounts(); });
    if (m_configuration.file)
        m_configurationWatch = std::make_unique<ConfigurationWatch>(
            m_queue, QStringList(*m_configuration.file), [this] { noteConfiguration(); });
    m_aim = aimNow();
    for (SourceReader *const reader : readers())
        reader->start(m_aim);
    if (readers().empty())
        m_take(everything());
    m_rolling = m_queue.every(rollInterval, [this] { rollWhenDue(); });
    armForMidnight();
}

void StoreLoader::loadNow() {
    for (SourceReader *const reader : readers())
        reader->readNow(aimNow(), patience);
    m_take(everything());
}

bool StoreLoader::isLoaded() const {
    const auto all = readers();
    return std::all_of(all.begin(), all.end(),
                       [](const SourceReader *reader) { return reader->hasRead(); });
}

QStringList StoreLoader::troubles() const {
    QStringList troubles;
    for (const SourceReader *const reader : readers()) {
        if (!reader->trouble().isEmpty())
            troubles.append(reader->trouble());
    }
    return troubles;
}

std::vector<SourceReader *> StoreLoader::readers() const {
    std::vector<SourceReader *> readers;
    for (const auto &reader : m_folders.readers())
        readers.push_back(reader.get());
    if (m_accounts)
        readers.push_back(m_accounts.get());
    return readers;
}

EventIndex::Calendars StoreLoader::everything() const {
    EventIndex::Calendars all = m_folders.calendars();
    if (m_configuration.mayNameOthers)
        all.knowledge.emplace_back();
    if (m_accounts) {
        const EventIndex::Calendars its = m_accounts->calendars();
        all.list.insert(all.list.end(), its.list.begin(), its.list.end());
        all.knowledge.insert(all.knowledge.end(), its.knowledge.begin(), its.knowledge.end());
    }
    return all;
}

void StoreLoader::note(bool isDifferent) {
    if (isDifferent)
        m_take(everything());
}

void StoreLoader::noteQuestion(Instant from, Instant to) {
    const Window asked = windowBetween(from, to);
    const bool isInside = asked.from >= m_aim.window.from && asked.to <= m_aim.window.to;
    if (!isInside && m_clockWatch && aimNow() != m_aim)
        m_askedRoll = m_queue.after(Seconds::zero(), [this] { rollWhenDue(); });
}

SourceReader::Aim StoreLoader::aimNow() const {
    return {windowNow(), m_currentCalendar().timeZone()};
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

/// The wall clock may be a hair short of midnight when the wait is over: it is then waited for
/// once more.
void StoreLoader::armForMidnight() {
    const Instant now = m_queue.now();
    const Instant midnight = m_currentCalendar().startOfDay(now, 1);
    m_midnight = m_queue.after(midnight - now, [this] {
        rollWhenDue();
        armForMidnight();
    });
}

/// Announces at once: what is planned hangs on the clock even where all answers stay the same.
void StoreLoader::noteClock() {
    rollWhenDue();
    armForMidnight();
    m_take(std::nullopt);
}

void StoreLoader::noteConfiguration() {
    const auto configuration = m_configuration.readAgain();
    if (!configuration)
        return;
    m_configuration = *configuration;
    m_folders.follow(m_configuration.roots, m_configuration.addresses,
                     [this](SourceReader &reader) { reader.start(m_aim); });
    if (m_accounts)
        m_accounts->setAddresses(m_configuration.addresses);
    m_take(everything());
}

/// Mounts come in flocks where containers run; a look at places that are as before costs little.
void StoreLoader::noteMounts() {
    if (std::exchange(m_isMountRoundDue, true))
        return;
    m_mountRound = m_queue.after(mountPause, [this] {
        m_isMountRoundDue = false;
        for (const auto &reader : m_folders.readers())
            reader->readAgain();
    });
}

void StoreLoader::rollWhenDue() {
    const SourceReader::Aim aim = aimNow();
    if (aim == m_aim)
        return;
    m_aim = aim;
    for (SourceReader *const reader : readers())
        reader->aimAt(aim);
    armForMidnight();
}

} // namespace vantrel
