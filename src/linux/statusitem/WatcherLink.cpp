#include "WatcherLink.h"

#include <linux/sessionbus/BusCalls.h>
#include <platform/Log.h>

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace vantrel {

namespace {

VANTREL_LOG(watcherLog, "StatusItem")

constexpr QLatin1String watcherName("org.kde.StatusNotifierWatcher");

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

WatcherLink::WatcherLink(QDBusConnection bus, QString itemName, std::function<void(bool)> presence)
    : m_bus(std::move(bus)),
      m_itemName(std::move(itemName)),
      m_presence(std::move(presence)),
      m_watcher(watcherName, m_bus, QDBusServiceWatcher::WatchForOwnerChange) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &, const QString &owner) { take(owner); });
    QDBusMessage question = callOfBus(QStringLiteral("GetNameOwner"));
    question << watcherName;
    call(m_bus, question, this, [this](const QDBusPendingReply<QString> &answer) {
        // A change may have been told before this answer; then it is the later news.
        if (!m_isKnown)
            take(answer.isError() ? QString() : answer.value());
    });
}

void WatcherLink::take(const QString &owner) {
    if (m_isKnown && owner == m_owner)
        return;
    m_isKnown = true;
    m_owner = owner;
    if (owner.isEmpty()) {
        qCInfo(watcherLog, "There is no watcher of status items on the session bus");
    } else {
        // To the very one that appeared: by its well-known name the call could start another.
        QDBusMessage entry = QDBusMessage::createMethodCall(
            owner, QStringLiteral("/StatusNotifierWatcher"), watcherName,
            QStringLiteral("RegisterStatusNotifierItem"));
        entry << m_itemName;
        call(m_bus, entry, this, [](const QDBusPendingReply<> &answer) {
            if (answer.isError())
                qCWarning(watcherLog, "The watcher of status items refuses: %s",
                          qUtf8Printable(answer.error().name()));
        });
    }
    m_presence(!owner.isEmpty());
}

} // namespace vantrel
