#include "SessionBusLink.h"

#include "SessionBusProbe.h"

#include <platform/Log.h>

#include <QMetaObject>

#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(busLog, "SessionBus")

constexpr Seconds patience{2.0};

Backoff pausesFromTheFirst() {
    return {Seconds{1.0}, Seconds{300.0}};
}

} // namespace

SessionBusLink::SessionBusLink(MainQueue &queue, QString name, Listener listener)
    : m_queue(queue),
      m_name(std::move(name)),
      m_listener(std::move(listener)),
      m_pauses(pausesFromTheFirst()) {
    if (hasSessionBus())
        connectToBus();
    else
        m_next = m_queue.after(Seconds::zero(), [this] { tellMissing(); });
}

SessionBusLink::~SessionBusLink() {
    if (m_connecting.joinable())
        m_connecting.join();
    m_bus.reset();
    QDBusConnection::disconnectFromBus(m_name);
}

void SessionBusLink::connectToBus() {
    m_connecting = std::thread([this] {
        // The probe has an end, which connecting has not. By its address, since the bus library
        // keeps to the one that it read first, and that may have been hidden from it.
        const bool isConnected =
            hasSessionBus() && isSessionBusAnswering(patience) &&
            QDBusConnection::connectToBus(sessionBusAddress(), m_name).isConnected();
        QMetaObject::invokeMethod(
            this, [this, isConnected] { take(isConnected); }, Qt::QueuedConnection);
    });
}

void SessionBusLink::take(bool isConnected) {
    m_connecting.join();
    if (!isConnected) {
        QDBusConnection::disconnectFromBus(m_name); // What failed keeps the name otherwise.
        m_next = m_queue.after(*m_pauses.next(), [this] { connectToBus(); });
        tellMissing();
        return;
    }
    QDBusConnection bus(m_name);
    bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                SLOT(lose()));
    if (std::exchange(m_isKnownMissing, false))
        qCInfo(busLog, "The session bus is back");
    m_lasting = m_queue.after(lasting, [this] { m_pauses = pausesFromTheFirst(); });
    m_bus = bus;
    m_listener.connected(bus);
    // It may have gone before anybody listened.
    if (m_bus && !m_bus->isConnected())
        lose();
}

void SessionBusLink::lose() {
    if (!m_bus)
        return;
    // Those who use the connection may be in the midst of a call.
    m_next = m_queue.after(Seconds::zero(), [this] {
        m_lasting.cancel();
        m_bus.reset();
        QDBusConnection::disconnectFromBus(m_name);
        m_next = m_queue.after(*m_pauses.next(), [this] { connectToBus(); });
        tellMissing();
    });
}

void SessionBusLink::tellMissing() {
    if (std::exchange(m_isKnownMissing, true))
        return;
    qCInfo(busLog, "There is no session bus");
    m_listener.missing();
}

} // namespace vantrel
