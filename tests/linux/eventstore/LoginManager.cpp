#include "LoginManager.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

#include <gtest/gtest.h>

namespace vantrel::tests {

namespace {

constexpr int patience = 20'000; // milliseconds
const auto managerName = QStringLiteral("test-manager");
const auto strangerName = QStringLiteral("test-stranger");
const auto service = QStringLiteral("org.freedesktop.login1");

} // namespace

LoginManager::LoginManager()
    : m_address(QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("bus"))) {
    startBus();
}

LoginManager::~LoginManager() {
    endBus();
}

void LoginManager::endBus() {
    QDBusConnection::disconnectFromBus(strangerName);
    QDBusConnection::disconnectFromBus(managerName);
    m_bus.terminate();
    m_bus.waitForFinished(patience);
}

void LoginManager::startBus() {
    m_bus.start(QStringLiteral("dbus-daemon"),
                {QStringLiteral("--session"), QStringLiteral("--nofork"),
                 QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1"),
                 QStringLiteral("--address=") + m_address});
    while (!m_bus.canReadLine())
        ASSERT_TRUE(m_bus.waitForReadyRead(patience)) << m_bus.readAllStandardError().data();
    m_connection = QDBusConnection::connectToBus(m_address, managerName);
    ASSERT_TRUE(m_connection.registerService(service));
}

QDBusConnection LoginManager::stranger() const {
    return QDBusConnection::connectToBus(m_address, strangerName);
}

void LoginManager::passNameTo(QDBusConnection &next) {
    ASSERT_TRUE(m_connection.unregisterService(service));
    ASSERT_TRUE(next.registerService(service));
}

void LoginManager::send(const QDBusConnection &from, bool isGoingToSleep, const QString &path) {
    QDBusMessage signal = QDBusMessage::createSignal(
        path, QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForSleep"));
    signal << isGoingToSleep;
    ASSERT_TRUE(from.send(signal));
}

void LoginManager::awaitReceipt() const {
    const QStringList names = m_connection.interface()->registeredServiceNames();
    for (const QString &name : names) {
        if (!name.startsWith(u':') || name == m_connection.baseService())
            continue;
        // Messages of one sender arrive in the order in which they were sent.
        const QDBusMessage ping = QDBusMessage::createMethodCall(
            name, QStringLiteral("/"), QStringLiteral("org.freedesktop.DBus.Peer"),
            QStringLiteral("Ping"));
        m_connection.call(ping, QDBus::Block, patience);
    }
}

} // namespace vantrel::tests
