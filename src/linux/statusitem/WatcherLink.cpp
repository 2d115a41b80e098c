#include "WatcherLink.h"

#include <linux/sessionbus/BusCalls.h>
#include <platform/Log.h>

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(watcherLog, "StatusItem")

constexpr QLatin1String watcherName("org.kde.StatusNotifierWatcher");
constexpr QLatin1String watcherPath("/StatusNotifierWatcher");

/// Calls `done` with the answer on a later turn of the loop, unless `owner` has gone.
template <typename Done>
void call(const QDBusConnection &bus, const QDBusMessage &message, QObject *owner, Done done) {
    auto *pending = new QDBusPendingCallWatcher(bus.asyncCall(message), owner);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, owner,
                     [done](QDBusPendingCallWatcher *finished) {
                         finished->deleteLater();
                         done(*finished);
                     });
}

} // namespace

WatcherLink::WatcherLink(MainQueue &queue, QDBusConnection bus, QString itemName,
                         std::function<void(bool)> presence)
    : m_queue(queue),
      m_bus(std::move(bus)),
      m_itemName(std::move(itemName)),
      m_presence(std::move(presence)),
      m_watcher(watcherName, m_bus, QDBusServiceWatcher::WatchForOwnerChange) {
    // From whomever: with a sender's name Qt would ask the bus who that is, and wait for the
    // answer.
    for (const char *change : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        m_bus.connect(QString(), watcherPath, watcherName, QLatin1String(change), this,
                      SLOT(takeHostChange(QDBusMessage)));
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) { take(owner); });
    QDBusMessage question = callOfBus(QStringLiteral("GetNameOwner"));
    question << watcherName;
    call(m_bus, question, this, [this](const QDBusPendingReply<QString> &answer) {
        // A change may have been told before this answer; then it is the later news.
        if (!m_owner)
            take(answer.isError() ? QString() : answer.value());
    });
}

void WatcherLink::take(const QString &owner) {
    if (m_owner == owner)
        return;
    m_owner = owner;
    m_isEntered.reset();
    m_hasHost.reset();
    if (owner.isEmpty()) {
        qCInfo(watcherLog, "There is no watcher of status items on the session bus");
        m_hostsDelay.cancel();
        tell(false);
        return;
    }
    enter();
    askForHost();
}

void WatcherLink::enter() {
    // To the very one that appeared: by its well-known name the call could start another.
    QDBusMessage entry = QDBusMessage::createMethodCall(
        *m_owner, watcherPath, watcherName, QStringLiteral("RegisterStatusNotifierItem"));
    entry << m_itemName;
    call(m_bus, entry, this, [this, owner = m_owner](const QDBusPendingReply<> &answer) {
        if (owner != m_owner)
            return;
        if (answer.isError())
            qCWarning(watcherLog, "The watcher of status items refuses: %s",
                      qUtf8Printable(answer.error().name()));
        m_isEntered = !answer.isError();
        judge();
    });
}

void WatcherLink::takeHostChange(const QDBusMessage &change) {
    if (change.service() == m_owner)
        askForHost();
}

void WatcherLink::askForHost() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        *m_owner, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    question << watcherName << QStringLiteral("IsStatusNotifierHostRegistered");
    call(m_bus, question, this,
         [this, owner = m_owner](const QDBusPendingReply<QDBusVariant> &answer) {
             // One that knows no such property is asked by nobody else either: it shows what it
             // has.
             if (owner != m_owner)
                 return;
             m_hasHost = answer.isError() || answer.value().variant().toBool();
             judge();
         });
}

void WatcherLink::judge() {
    if (m_isEntered == false) {
        m_hostsDelay.cancel();
        tell(false);
    } else if (m_isEntered == true && m_hasHost == true) {
        m_hostsDelay.cancel();
        tell(true);
    } else if (m_hasHost == false) {
        m_hostsDelay = m_queue.after(patienceWithHost, [this] {
            qCInfo(watcherLog, "The watcher of status items has no host");
            tell(false);
        });
    }
}

void WatcherLink::tell(bool isShown) {
    if (std::exchange(m_isShown, isShown) != isShown)
        m_presence(isShown);
}

} // namespace vantrel
