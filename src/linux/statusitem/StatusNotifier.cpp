#include "StatusNotifier.h"

#include <linux/sessionbus/BusCalls.h>

#include <QCoreApplication>
#include <QDBusPendingCall>

#include <utility>

namespace vantrel {

namespace {

int nextNumber() {
    static int last = 0;
    return ++last;
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
                 m_watcher.reset();
                 m_presence(false);
             }}) {}

void StatusNotifier::enter(QDBusConnection bus) {
    bus.registerObject(QLatin1String(NotifierObject::path), &m_item,
                       QDBusConnection::ExportAdaptors);
    bus.registerObject(QLatin1String(NotifierObject::menuPath), &m_menu,
                       QDBusConnection::ExportAdaptors);
    const QString name = QStringLiteral("org.kde.StatusNotifierItem-%1-%2")
                             .arg(QCoreApplication::applicationPid())
                             .arg(m_number);
    // The bus handles it before the entry with a watcher, which is sent later.
    bus.asyncCall(requestOfName(name));
    m_watcher = std::make_unique<WatcherLink>(m_queue, bus, name, m_presence);
}

} // namespace vantrel
