#pragma once

#include <platform/Backoff.h>
#include <platform/MainQueue.h>

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <thread>

namespace vantrel {

/// A connection of one's own to the session bus, which is made again when it was lost: after 1 s,
/// 2 s, 4 s and so on up to five minutes. It is made on a thread of its own, so nobody waits for a
/// bus that takes its time.
class SessionBusLink : public QObject {
    Q_OBJECT

public:
    /// The pauses begin anew only with a connection that was there for so long: a bus that lets
    /// programs in and drops them is not asked each second.
    static constexpr Seconds lasting{10.0};

    /// Both are called from the event loop.
    struct Listener {
        /// There is a connection. Whatever belongs to the one before is of no use any more.
        std::function<void(const QDBusConnection &bus)> connected;
        /// There is none: once at first, and again each time one was lost.
        std::function<void()> missing;
    };

    /// `name` is the connection's in this process. Where the environment names no bus, none is ever
    /// looked for. `queue` must outlive the link.
    SessionBusLink(MainQueue &queue, QString name, Listener listener);
    SessionBusLink(const SessionBusLink &) = delete;
    SessionBusLink &operator=(const SessionBusLink &) = delete;
    ~SessionBusLink() override;

    /// The connection; empty while there is none.
    [[nodiscard]] const std::optional<QDBusConnection> &bus() const { return m_bus; }

    /// Whether it was told by now that there is one, or none.
    [[nodiscard]] bool isKnown() const { return m_bus || m_isKnownMissing; }

private Q_SLOTS:
    void lose();

private:
    void connectToBus();
    void take(bool isConnected);
    void tellMissing();

    MainQueue &m_queue;
    const QString m_name;
    const Listener m_listener;
    std::optional<QDBusConnection> m_bus;
    bool m_isKnownMissing = false;
    Backoff m_pauses;
    ScheduledWork m_next;
    ScheduledWork m_lasting;
    std::thread m_connecting;
};

} // namespace vantrel
