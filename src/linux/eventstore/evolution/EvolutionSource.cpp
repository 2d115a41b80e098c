#include "EvolutionSource.h"

#include "ModuleEntry.h"

#include <linux/eventstore/source/StoreLog.h>
#include <linux/sessionbus/SessionBusProbe.h>

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>
#include <QMetaObject>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr Seconds waitSlice{0.05};

/// Below the folders for data.
QString serviceFolder() {
    return QStringLiteral("dbus-1/services");
}

/// The bus is not asked, since it may take its time: it starts what these files name.
bool isServiceInstalled() {
    const QString file =
        serviceFolder() + QStringLiteral("/org.gnome.evolution.dataserver.Sources5.service");
    return !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
}

} // namespace

QString EvolutionSource::moduleOfProgram() {
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + QStringLiteral("/vantrel-evolution.so");
    return QFile::exists(beside)
               ? beside
               : folder + QStringLiteral("/" VANTREL_MODULES "/vantrel-evolution.so");
}

bool EvolutionSource::isInstalled(const QString &module) {
    return QFile::exists(module) && isServiceInstalled();
}

EvolutionSource::EvolutionSource(QString module) : m_module(std::move(module)) {}

EvolutionSource::~EvolutionSource() {
    if (m_opening.joinable())
        m_opening.join();
}

void EvolutionSource::setWindow(Window window) {
    const std::lock_guard lock(m_mutex);
    m_window = window;
    if (m_opened.live)
        m_opened.live->setWindow(window);
}

void EvolutionSource::start() {
    m_opening = std::thread([this] { adopt(open()); });
}

EvolutionSource::Opened EvolutionSource::open() {
    const auto because = [](const QString &reason) {
        return Opened{nullptr,
                      QStringLiteral("Accounts of this desktop are not shown: %1.").arg(reason)};
    };
    if (!QFile::exists(m_module))
        return because(QStringLiteral("this build of Vantrel comes without support for them"));
    if (!isServiceInstalled()) {
        Opened opened = because(QStringLiteral("Evolution Data Server is not installed"));
        opened.isServiceMissing = true;
        return opened;
    }
    if (!hasSessionBus())
        return because(QStringLiteral("there is no session bus"));
    QLibrary library(m_module);
    // GLib's types cannot be unregistered, so the code behind them has to stay.
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load()) {
        qCWarning(eventStoreLog).noquote() << library.errorString();
        return because(QStringLiteral("the libraries of Evolution Data Server are not installed"));
    }
    const auto make =
        reinterpret_cast<MakeEvolutionSource *>(library.resolve(makeEvolutionSourceName));
    if (!make)
        return because(QStringLiteral("their module is of another version of Vantrel"));
    return {std::unique_ptr<ComponentSource>(make([this] { announceLater(); })), {}};
}

void EvolutionSource::adopt(Opened opened) {
    if (!opened.live)
        qCInfo(eventStoreLog).noquote() << opened.reason;
    {
        const std::lock_guard lock(m_mutex);
        m_opened = std::move(opened);
        m_isOpened = true;
        if (m_opened.live) {
            m_opened.live->setWindow(m_window);
            m_opened.live->start();
        }
    }
    m_wasOpened.notify_all();
    announceLater();
    QMetaObject::invokeMethod(
        &m_receiver, [this] { watchForService(); }, Qt::QueuedConnection);
}

/// A package may bring it while the program runs. Whatever else keeps accounts away stays until the
/// next start: to try again at once would go on for ever.
void EvolutionSource::watchForService() {
    std::unique_lock lock(m_mutex);
    const bool isMissing = m_opened.isServiceMissing;
    lock.unlock();
    if (!isMissing || m_serviceWatch)
        return;
    const QStringList folders = QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, serviceFolder(), QStandardPaths::LocateDirectory);
    m_serviceWatch = std::make_unique<QFileSystemWatcher>(folders);
    QObject::connect(m_serviceWatch.get(), &QFileSystemWatcher::directoryChanged, &m_receiver,
                     [this] { openIfInstalled(); });
    openIfInstalled(); // It may have come just before.
}

void EvolutionSource::openIfInstalled() {
    if (!isServiceInstalled())
        return;
    m_serviceWatch.release()->deleteLater(); // Which may be who calls.
    m_opening.join();
    start();
}

void EvolutionSource::announceLater() {
    QMetaObject::invokeMethod(
        &m_receiver, [this] { changed.announce(); }, Qt::QueuedConnection);
}

/// Once it is there it stays until the end, so that it can be asked without the lock.
ComponentSource *EvolutionSource::live() const {
    const std::lock_guard lock(m_mutex);
    return m_opened.live.get();
}

void EvolutionSource::waitUntilDelivered(Seconds limit) {
    // In slices, since no clock is read here: what is left of the limit is for the delivery.
    Seconds left = limit;
    {
        std::unique_lock lock(m_mutex);
        while (!m_isOpened && left > Seconds::zero()) {
            const Seconds slice = std::min(left, waitSlice);
            if (!m_wasOpened.wait_for(lock, slice, [this] { return m_isOpened; }))
                left -= slice;
        }
    }
    if (ComponentSource *const source = live())
        source->waitUntilDelivered(left);
}

std::vector<SourceCalendar> EvolutionSource::calendars() {
    ComponentSource *const source = live();
    return source ? source->calendars() : std::vector<SourceCalendar>();
}

SourceKnowledge EvolutionSource::knowledge() const {
    if (const ComponentSource *const source = live())
        return source->knowledge();
    // Where there is no service nothing will come, but what came before may come back.
    const std::lock_guard lock(m_mutex);
    return {m_isOpened, {}};
}

QString EvolutionSource::trouble() const {
    if (const ComponentSource *const source = live())
        return source->trouble();
    const std::lock_guard lock(m_mutex);
    return m_opened.reason;
}

std::optional<std::vector<SourceItem>> EvolutionSource::items(const QString &calendarIdentifier) {
    ComponentSource *const source = live();
    return source ? source->items(calendarIdentifier) : std::nullopt;
}

std::optional<QByteArray> EvolutionSource::text(const QString &calendarIdentifier,
                                                const QByteArray &item) {
    ComponentSource *const source = live();
    return source ? source->text(calendarIdentifier, item) : std::nullopt;
}

QString EvolutionSource::description(const QString &calendarIdentifier,
                                     const QByteArray &item) const {
    const ComponentSource *const source = live();
    return source ? source->description(calendarIdentifier, item) : QString();
}

} // namespace vantrel
