#include "StatusNotifier.h"

#include <linux/sessionbus/BusCalls.h>

#include <QCoreApplication>
#include <QDBusPendingCall>
#include <QDBusPendingReply>

#include <utility>

namespace vantrel {

namespace {

int nextNumber() {
    static int last = 0;
    return ++last;
}

constexpr uint answerToOwner = 1; ///< The bus's, to the request of a name.

/// Programs in sandboxes have process numbers of their own, so another one may have the name: the
/// item is entered by the connection's name then.
QString nameOfItem(int number) {
    return QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
        .arg(QCoreApplication::applicationPid())
        .arg(number);
}

} // namespace

StatusNotifier::StatusNotifier(MainQueue &queue, const SymbolArt &art, Listener listener)
    : m_queue(queue),
      m_number(nextNumber()),
      m_presence(std::move(listener.presence)),
      m_item(art, std::move(listener.item)),
      m_menu(std::move(listener.menu)),
      m_bus(queue, QStringLiteral("vantrel-status-item-%1").arg(m_number),
            {[this](const QDBusConnection &bus) { enter(bus); },
             [this] {
                 m_naming.reset();
                 m_watcher.reset();
                 m_presence(false);
             }}) {}

void StatusNotifier::enter(QDBusConnection bus) {
    bus.registerObject(QLatin1String(NotifierObject::path), &m_item,
                       QDBusConnection::ExportAdaptors);
    bus.registerObject(QLatin1String(NotifierObject::menuPath), &m_menu,
                       QDBusConnection::ExportAdaptors);
    const QString name = nameOfItem(m_number);
    m_watcher.reset();
    m_naming = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(requestOfName(name)));
    QObject::connect(m_naming.get(), &QDBusPendingCallWatcher::finished, m_naming.get(),
                     [this, bus, name](QDBusPendingCallWatcher *request) {
                         const QDBusPendingReply<uint> answer = *request;
                         const bool isOwner = answer.isValid() && answer.value() == answerToOwner;
                         m_watcher = std::make_unique<WatcherLink>(
                             m_queue, bus, isOwner ? name : bus.baseService(), m_presence);
                     });
}

} // namespace vantrel
