#include "EvolutionSource.h"

#include "ModuleEntry.h"

#include <linux/eventstore/source/StoreLog.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QStandardPaths>

#include <utility>

namespace vantrel {

namespace {

/// The bus is not asked, since it may take its time: it starts what these files name.
bool isServiceInstalled() {
    const auto file =
        QStringLiteral("dbus-1/services/org.gnome.evolution.dataserver.Sources5.service");
    return !QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty();
}

bool hasSessionBus() {
    const QString place = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           (!place.isEmpty() && QFileInfo::exists(place + QStringLiteral("/bus")));
}

} // namespace

QString EvolutionSource::moduleOfProgram() {
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + QStringLiteral("/vantrel-evolution.so");
    return QFile::exists(beside) ? beside
                                 : folder + QStringLiteral("/../lib/vantrel/vantrel-evolution.so");
}

EvolutionSource::EvolutionSource(QString module) : m_module(std::move(module)) {}

EvolutionSource::~EvolutionSource() = default;

void EvolutionSource::setWindow(Window window) {
    m_window = window;
    if (m_live)
        m_live->setWindow(window);
}

void EvolutionSource::start() {
    m_reason = open();
    if (!m_live) {
        qCInfo(eventStoreLog).noquote() << m_reason;
        return;
    }
    m_changes = m_live->changed.subscribe([this] { changed.announce(); });
    m_live->setWindow(m_window);
    m_live->start();
}

/// Answers why it cannot be opened; nothing when it was.
QString EvolutionSource::open() {
    const auto because = [](const QString &reason) {
        return QStringLiteral("Accounts of this desktop are not shown: %1.").arg(reason);
    };
    if (!QFile::exists(m_module))
        return because(QStringLiteral("this build of Vantrel comes without support for them"));
    if (!isServiceInstalled())
        return because(QStringLiteral("Evolution Data Server is not installed"));
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
    m_live.reset(make());
    return {};
}

void EvolutionSource::waitUntilDelivered(Seconds limit) {
    if (m_live)
        m_live->waitUntilDelivered(limit);
}

std::vector<SourceCalendar> EvolutionSource::calendars() {
    return m_live ? m_live->calendars() : std::vector<SourceCalendar>();
}

SourceKnowledge EvolutionSource::knowledge() const {
    // Where there is no service nothing will come, but what came before may come back.
    return m_live ? m_live->knowledge() : SourceKnowledge{true, {}};
}

QString EvolutionSource::trouble() const {
    return m_live ? m_live->trouble() : m_reason;
}

std::optional<std::vector<SourceItem>> EvolutionSource::items(const QString &calendarIdentifier) {
    return m_live ? m_live->items(calendarIdentifier) : std::nullopt;
}

std::optional<QByteArray> EvolutionSource::text(const QString &calendarIdentifier,
                                                const QByteArray &item) {
    return m_live ? m_live->text(calendarIdentifier, item) : std::nullopt;
}

QString EvolutionSource::description(const QString &calendarIdentifier,
                                     const QByteArray &item) const {
    return m_live ? m_live->description(calendarIdentifier, item) : QString();
}

} // namespace vantrel
