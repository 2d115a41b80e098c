#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <functional>

namespace vantrel {

/// Hears from the login manager (org.freedesktop.login1) that the machine has woken. Without a
/// system bus, or a login manager on it, it stays quiet: the kernel's own notice, which
/// `ClockWatch` hears, is then the only one. Main thread only.
class WakeWatch : public QObject {
    Q_OBJECT

public:
    explicit WakeWatch(std::function<void()> report, const QString &busAddress = systemBus());
    ~WakeWatch() override;

    /// The address in DBUS_SYSTEM_BUS_ADDRESS, or the usual one.
    [[nodiscard]] static QString systemBus();

private Q_SLOTS:
    void take(bool isGoingToSleep);

private:
    const std::function<void()> m_report;
    const QString m_name; ///< Of the connection, within this process.
};

} // namespace vantrel
