#pragma once

#include <platform/MainQueue.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace vantrel {

/// Enters an item with the watcher of status items (org.kde.StatusNotifierWatcher) whenever one
/// appears on the bus: at once, late, or again after the panel was restarted.
class WatcherLink : public QObject {
    Q_OBJECT

public:
    /// A watcher comes up ahead of its host, and both stay away for a moment when a panel is
    /// restarted: for so long the item counts as shown by a watcher that has no host.
    static constexpr Seconds patienceWithHost{2.0};

    /// `presence` hears whether the item is shown, which takes a watcher that has entered it and a
    /// host, once that is known and at each change. `queue` must outlive the link.
    WatcherLink(MainQueue &queue, QDBusConnection bus, QString itemName,
                std::function<void(bool isShown)> presence);

private Q_SLOTS:
    void takeHostChange(const QDBusMessage &change);

private:
    void take(const QString &owner);
    void enter();
    void askForHost();
    void judge();
    void tell(bool isShown);

    MainQueue &m_queue;
    QDBusConnection m_bus;
    QString m_itemName;
    std::function<void(bool)> m_presence;
    QDBusServiceWatcher m_watcher;
    std::optional<QString> m_owner;  ///< The watcher's own name on the bus; empty without one.
    std::optional<bool> m_isEntered; ///< Empty before that watcher has answered.
    std::optional<bool> m_hasHost;   ///< The same.
    std::optional<bool> m_isShown;   ///< As it was told.
    ScheduledWork m_hostsDelay;
};

} // namespace vantrel
