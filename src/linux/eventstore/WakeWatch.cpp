#include "WakeWatch.h"

#include <linux/eventstore/source/StoreLog.h>

#include <utility>

namespace vantrel {

WakeWatch::WakeWatch(std::function<void()> report, const QString &busAddress)
    : m_report(std::move(report)),
      m_name(QStringLiteral("vantrel-wake-%1").arg(reinterpret_cast<quintptr>(this), 0, 16)) {
    QDBusConnection bus = QDBusConnection::connectToBus(busAddress, m_name);
    const bool isHeard =
        bus.isConnected() && bus.connect(QStringLiteral("org.freedesktop.login1"),
                                         QStringLiteral("/org/freedesktop/login1"),
                                         QStringLiteral("org.freedesktop.login1.Manager"),
                                         QStringLiteral("PrepareForSleep"), this, SLOT(take(bool)));
    if (!isHeard)
        qCInfo(eventStoreLog) << "no system bus: that the machine wakes is known by its clock";
}

WakeWatch::~WakeWatch() {
    QDBusConnection::disconnectFromBus(m_name);
}

QString WakeWatch::systemBus() {
    const QString address = qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS");
    return address.isEmpty() ? QStringLiteral("unix:path=/run/dbus/system_bus_socket") : address;
}

void WakeWatch::take(bool isGoingToSleep) {
    if (!isGoingToSleep)
        m_report();
}

} // namespace vantrel
