#pragma once

#include "ItemLook.h"
#include "MenuObject.h"
#include "NotifierObject.h"
#include "SymbolArt.h"
#include "WatcherLink.h"

#include <linux/sessionbus/SessionBusLink.h>

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QString>

#include <functional>
#include <memory>

namespace vantrel {

/// A status item on the session bus, with its menu, for the hosts of StatusNotifierItem. It has a
/// connection of its own, so that everything of it goes when it does, and comes back when the bus
/// does. All its calls are asynchronous; the listeners are called from the event loop, in the midst
/// of a call from the bus.
class StatusNotifier {
public:
    struct Listener {
        NotifierObject::Listener item;
        MenuObject::Listener menu;
        /// Whether a host shows the item; also when there is no bus to look for one on.
        std::function<void(bool isShown)> presence;
    };

    /// `queue` must outlive it.
    StatusNotifier(MainQueue &queue, const SymbolArt &art, Listener listener);
    StatusNotifier(const StatusNotifier &) = delete;
    StatusNotifier &operator=(const StatusNotifier &) = delete;
    ~StatusNotifier() = default;

    void show(const ItemLook &look) { m_item.show(look); }

private:
    void enter(QDBusConnection bus);

    MainQueue &m_queue;
    const int m_number; ///< Of the item within the process, from 1.
    const std::function<void(bool)> m_presence;
    NotifierObject m_item;
    MenuObject m_menu;
    SessionBusLink m_bus;
    std::unique_ptr<QDBusPendingCallWatcher> m_naming; ///< The request for the item's own name.
    std::unique_ptr<WatcherLink> m_watcher; ///< While there is a bus that has answered it.
};

} // namespace vantrel
