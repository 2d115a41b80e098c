#pragma once

#include "ContextTimer.h"
#include "GObjects.h"
#include "SourceDescription.h"

#include <linux/eventstore/evolution/Pace.h>

#include <gio/gio.h>

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

/// Follows the session bus and the registry of accounts on it, through their absences. On the
/// service's thread.
class AccountRegistry : public std::enable_shared_from_this<AccountRegistry> {
public:
    struct Listener {
        std::function<void(SourceList)> listed; ///< Each time something about it has changed.
        /// The bus has gone: all that was connected over it is dead. `listed` follows once another
        /// one is there.
        std::function<void()> lost;
        std::function<void()> failed; ///< It cannot be had for now.
    };

    explicit AccountRegistry(Listener listener, RegistryPatience patience = {});
    AccountRegistry(const AccountRegistry &) = delete;
    AccountRegistry &operator=(const AccountRegistry &) = delete;
    ~AccountRegistry();

    void start();

    /// Over which it is followed; valid while `listed` is called.
    [[nodiscard]] GDBusConnection *bus() const { return m_bus.get(); }

private:
    static void busClosed(GDBusConnection *bus, gboolean isVanished, const GError *error,
                          gpointer self);
    static void serviceAppeared(GDBusConnection *bus, const gchar *name, const gchar *owner,
                                gpointer self);
    static void serviceVanished(GDBusConnection *bus, const gchar *name, gpointer self);
    static void sourcesChanged(ESourceRegistry *registry, ESource *source, gpointer self);

    static void statusChanged(ESource *source, GParamSpec *property, gpointer self);

    void connect();
    void adoptBus(GDBusConnection *bus);
    void shareBus();
    void open();
    void noteTrouble(const QByteArray &reason);
    void adopt(ESourceRegistry *registry);
    void wakeService();
    void relist();
    void relistSoon();
    void followStatus();
    void unfollowStatus();
    void fail(const QByteArray &reason);
    void failOpening(const QByteArray &reason);
    void noteReturn();
    void disconnect();

    const Listener m_listener;
    const Seconds m_answerTime;
    Reference<GCancellable> m_cancellable;
    Reference<GDBusConnection> m_bus; ///< Of our own; see `connect`.
    Reference<GDBusConnection> m_sharedBus;
    Reference<ESourceRegistry> m_registry;
    std::vector<Reference<ESource>> m_followed;
    guint m_watch = 0;
    bool m_isOpening = false;
    ContextTimer m_relisting;
    ContextTimer m_retry;
    ContextTimer m_answer; ///< The opening has been under way for too long.
    RetryPause m_pause;
    AnnouncementPace m_pace; ///< An account changes many of its sources at a time.
    QByteArray m_trouble;    ///< What the log says last; empty while there is none.
};

} // namespace vantrel
