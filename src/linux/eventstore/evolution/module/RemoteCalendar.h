#pragma once

#include "BusObject.h"
#include "GObjects.h"

#include <QByteArray>

#include <gio/gio.h>

#include <functional>
#include <memory>

namespace vantrel {

/// A calendar that the calendar factory has opened for us, as it stands on the bus. Dropping it
/// closes it, and whatever is still unanswered stays so.
///
/// The service's own library does the same with calls that block: all connections and views of a
/// process share one of its threads, so that one back end which does not answer holds up all.
class RemoteCalendar : public std::enable_shared_from_this<RemoteCalendar> {
public:
    struct Listener {
        std::function<void(bool isWritable)> writableTold;
        /// The user's own there; empty when it knows none.
        std::function<void(const QByteArray &address)> addressTold;
        std::function<void(const QByteArray &message)> complained;
        std::function<void()> ended; ///< The program behind it has gone.
    };
    using Opened = std::function<void(const Failure &failure)>;
    using TakeText = std::function<void(const QByteArray &text, const Failure &failure)>;

    RemoteCalendar(GDBusConnection *bus, Listener listener);
    RemoteCalendar(const RemoteCalendar &) = delete;
    RemoteCalendar &operator=(const RemoteCalendar &) = delete;
    ~RemoteCalendar();

    /// Does not wait for the calendar's server: what the service has on its disk is there at once.
    void open(const QByteArray &source, Opened opened);

    // Once it is open.

    /// All components of a UID, in a VCALENDAR unless there is but one.
    void objects(const QByteArray &uid, TakeText take);
    /// A VTIMEZONE.
    void timeZone(const QByteArray &name, TakeText take);
    /// The path of a view on what the query finds; see `RemoteView`.
    void makeView(const QByteArray &query, TakeText take);
    [[nodiscard]] std::unique_ptr<BusObject> view(const QByteArray &path) const;

private:
    static void serviceVanished(GDBusConnection *bus, const gchar *name, gpointer self);

    void follow(GVariant *place);
    void openCalendar(Opened opened);
    void hearOwn(const char *signal, GVariant *arguments) const;
    void hearProperties(GVariant *arguments) const;
    void takeProperty(const QByteArray &name, GVariant *value) const;
    void ask(const char *method, GVariant *arguments, TakeText take);

    const Reference<GDBusConnection> m_bus;
    const Listener m_listener;
    std::unique_ptr<BusObject> m_factory;
    std::unique_ptr<BusObject> m_calendar;
    QByteArray m_service; ///< Which has the calendar and its views.
    guint m_watch = 0;
};

} // namespace vantrel
