#include "StatusNotifier.h"

#include <platform/Log.h>

#include <QCoreApplication>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFileInfo>

namespace vantrel {

namespace {

VANTREL_LOG(notifierLog, "StatusItem")

int nextNumber() {
    static int last = 0;
    return ++last;
}

/// Asked first, since the bus library would otherwise start a bus of its own by way of the display.
bool hasSessionBus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

QDBusMessage requestOfName(const QString &name) {
    constexpr uint doNotQueue = 4;
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
    message << name << doNotQueue;
    return message;
}

} // namespace

StatusNotifier::StatusNotifier(const SymbolArt &art, Listener listener)
    : m_number(nextNumber()),
      m_connectionName(QStringLiteral("vantrel-status-item-%1").arg(m_number)),
      m_item(art, std::move(listener.item)),
      m_menu(std::move(listener.menu)) {
    connectToBus(std::move(listener.watcherPresence));
}

StatusNotifier::~StatusNotifier() {
    m_link.reset();
    QDBusConnection::disconnectFromBus(m_connectionName);
}

void StatusNotifier::connectToBus(std::function<void(bool)> watcherPresence) {
    if (!hasSessionBus()) {
        qCInfo(notifierLog, "There is no session bus, so no status item on it");
        return;
    }
    QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_connectionName);
    if (!bus.isConnected()) {
        qCWarning(notifierLog, "The session bus does not answer: %s",
                  qUtf8Printable(bus.lastError().name()));
        return;
    }
    bus.registerObject(QLatin1String(NotifierObject::path), &m_item,
                       QDBusConnection::ExportAdaptors);
    bus.registerObject(QLatin1String(NotifierObject::menuPath), &m_menu,
                       QDBusConnection::ExportAdaptors);
    const QString name = QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
                             .arg(QCoreApplication::applicationPid())
                             .arg(m_number);
    // The bus handles it before the entry with a watcher, which is sent later.
    bus.asyncCall(requestOfName(name));
    m_link = std::make_unique<WatcherLink>(bus, name, std::move(watcherPresence));
}

} // namespace vantrel
