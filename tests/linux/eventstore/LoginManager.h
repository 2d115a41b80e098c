#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace vantrel::tests {

/// A bus of the test's own with a stand-in for the login manager on it. Needs an event loop. One at
/// a time.
class LoginManager {
public:
    LoginManager();
    ~LoginManager();
    LoginManager(const LoginManager &) = delete;
    LoginManager &operator=(const LoginManager &) = delete;

    [[nodiscard]] const QString &address() const { return m_address; }
    [[nodiscard]] const QDBusConnection &connection() const { return m_connection; }

    /// Another program on the same bus; goes with this object.
    [[nodiscard]] QDBusConnection stranger() const;

    /// The bus goes away, with all that are on it.
    void endBus();

    /// A bus at the same address, with the login manager on it.
    void startBus();

    /// Hands the name to that program, as after a restart of the service.
    void passNameTo(QDBusConnection &next);

    void announceSleep() const { send(m_connection, true); }
    void announceWaking() const { send(m_connection, false); }

    /// That the machine goes to sleep, or that it has woken.
    static void send(const QDBusConnection &from, bool isGoingToSleep,
                     const QString &path = QStringLiteral("/org/freedesktop/login1"));

    /// Waits until every other program on the bus, none of which is only just connecting, has
    /// received what was sent so far; its event loop may still have to hand it on.
    void awaitReceipt() const;

private:
    QTemporaryDir m_folder;
    QProcess m_bus;
    QString m_address;
    QDBusConnection m_connection{QStringLiteral("none")};
};

} // namespace vantrel::tests
