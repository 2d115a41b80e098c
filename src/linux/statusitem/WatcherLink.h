#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <functional>

namespace vantrel {

/// Enters an item with the watcher of status items (org.kde.StatusNotifierWatcher) whenever one
/// appears on the bus: at once, late, or again after the panel was restarted.
class WatcherLink : public QObject {
public:
    /// `presence` hears whether there is a watcher, once that is known and at each change.
    WatcherLink(QDBusConnection bus, QString itemName, std::function<void(bool isThere)> presence);

private:
    void take(const QString &owner);

    QDBusConnection m_bus;
    QString m_itemName;
    std::function<void(bool)> m_presence;
    QDBusServiceWatcher m_watcher;
    QString m_owner; ///< The watcher's own name on the bus; empty without one.
    bool m_isKnown = false;
};

} // namespace vantrel
