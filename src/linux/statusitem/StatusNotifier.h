#pragma once

#include "ItemLook.h"
#include "MenuObject.h"
#include "NotifierObject.h"
#include "SymbolArt.h"
#include "WatcherLink.h"

#include <QDBusConnection>
#include <QString>

#include <functional>
#include <memory>

namespace vantrel {

/// A status item on the session bus, with its menu, for the hosts of StatusNotifierItem. It has a
/// connection of its own, so that everything of it goes when it does. All its calls are
/// asynchronous; the listeners are called from the event loop, in the midst of a call from the bus.
class StatusNotifier {
public:
    struct Listener {
        NotifierObject::Listener item;
        MenuObject::Listener menu;
        std::function<void(bool isThere)> watcherPresence;
    };

    /// Without a session bus it does nothing but say so in the log.
    StatusNotifier(const SymbolArt &art, Listener listener);
    StatusNotifier(const StatusNotifier &) = delete;
    StatusNotifier &operator=(const StatusNotifier &) = delete;
    ~StatusNotifier();

    void show(const ItemLook &look) { m_item.show(look); }

    /// Whether there is a session bus to look for a watcher on.
    [[nodiscard]] bool hasBus() const { return m_link != nullptr; }

private:
    void connectToBus(std::function<void(bool)> watcherPresence);

    int m_number; ///< Of the item within the process, from 1.
    QString m_connectionName;
    NotifierObject m_item;
    MenuObject m_menu;
    std::unique_ptr<WatcherLink> m_link;
};

} // namespace vantrel
