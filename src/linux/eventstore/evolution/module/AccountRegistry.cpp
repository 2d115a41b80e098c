#include "AccountRegistry.h"

#include "Async.h"

#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <utility>

namespace vantrel {

namespace {

constexpr char serviceName[] = "org.gnome.evolution.dataserver.Sources5";

} // namespace

AccountRegistry::AccountRegistry(Listener listener, RegistryPatience patience)
    : m_listener(std::move(listener)), m_answerTime(patience.answer), m_pause(patience.pause) {}

AccountRegistry::~AccountRegistry() {
    disconnect();
}

void AccountRegistry::start() {
    connect();
}

/// The libraries talk over the connection that everything in the process shares, whose signals
/// come to whichever thread was first to ask for it. What has to be heard here for certain takes a
/// connection of our own.
void AccountRegistry::connect() {
    m_cancellable.reset(g_cancellable_new());
    Failure failure;
    const QByteArray address =
        takeText(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, failure.out()));
    if (failure)
        return fail("no session bus: " + failure.message());
    g_dbus_connection_new_for_address(
        address.constData(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, m_cancellable.get(), Async::ready,
        Async::data([weak = weak_from_this()](GObject * /*object*/, GAsyncResult *result) {
            Failure problem;
            const Reference<GDBusConnection> bus(
                g_dbus_connection_new_for_address_finish(result, problem.out()));
            const auto self = weak.lock();
            if (self && bus)
                self->adoptBus(bus.get());
            else if (self)
                self->fail("no session bus: " + problem.message());
        }));
}

void AccountRegistry::adoptBus(GDBusConnection *bus) {
    m_bus = anotherReference(bus);
    g_signal_connect(bus, "closed", G_CALLBACK(busClosed), this);
    shareBus();
}

void AccountRegistry::shareBus() {
    g_bus_get(G_BUS_TYPE_SESSION, m_cancellable.get(), Async::ready,
              Async::data([weak = weak_from_this()](GObject * /*object*/, GAsyncResult *result) {
                  Failure failure;
                  Reference<GDBusConnection> bus(g_bus_get_finish(result, failure.out()));
                  // GLib would end the program together with the bus.
                  if (bus)
                      g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
                  const auto self = weak.lock();
                  if (!self || !self->m_bus)
                      return;
                  if (!bus || g_dbus_connection_is_closed(bus.get()))
                      return self->fail("no session bus: " + failure.message());
                  self->m_sharedBus = std::move(bus);
                  self->open();
                  self->m_watch = g_bus_watch_name_on_connection(
                      self->m_bus.get(), serviceName, G_BUS_NAME_WATCHER_FLAGS_NONE,
                      serviceAppeared, serviceVanished, self.get(), nullptr);
              }));
}

void AccountRegistry::open() {
    m_retry.stop();
    m_isOpening = true;
    m_answer.startFor(m_answerTime, [this] {
        noteTrouble("the registry of accounts does not answer");
        m_listener.failed();
    });
    e_source_registry_new(
        m_cancellable.get(), Async::ready,
        Async::data([weak = weak_from_this(), attempt = m_cancellable.get()](GObject * /*object*/,
                                                                             GAsyncResult *result) {
            Failure failure;
            const Reference<ESourceRegistry> registry(
                e_source_registry_new_finish(result, failure.out()));
            const auto self = weak.lock();
            if (!self || self->m_cancellable.get() != attempt)
                return;
            self->m_isOpening = false;
            self->m_answer.stop();
            if (registry)
                self->adopt(registry.get());
            else
                self->failOpening("the registry of accounts: " + failure.message());
        }));
}

void AccountRegistry::adopt(ESourceRegistry *registry) {
    m_registry = anotherReference(registry);
    for (const char *const signal :
         {"source-added", "source-removed", "source-changed", "source-enabled", "source-disabled"})
        g_signal_connect(registry, signal, G_CALLBACK(sourcesChanged), this);
    relist();
}

void AccountRegistry::busClosed(GDBusConnection * /*bus*/, gboolean /*isVanished*/,
                                const GError * /*error*/, gpointer self) {
    auto *registry = static_cast<AccountRegistry *>(self);
    registry->m_listener.lost();
    registry->fail("the session bus has gone");
}

void AccountRegistry::serviceAppeared(GDBusConnection * /*bus*/, const gchar * /*name*/,
                                      const gchar * /*owner*/, gpointer self) {
    auto *registry = static_cast<AccountRegistry *>(self);
    if (registry->m_registry) {
        registry->m_retry.stop();
        registry->noteReturn();
    } else if (!registry->m_isOpening) {
        registry->open();
    }
}

void AccountRegistry::serviceVanished(GDBusConnection * /*bus*/, const gchar * /*name*/,
                                      gpointer self) {
    auto *registry = static_cast<AccountRegistry *>(self);
    if (!registry->m_registry || g_dbus_connection_is_closed(registry->m_bus.get()))
        return;
    registry->noteTrouble("the registry of accounts has ended; its calendars stay");
    registry->m_retry.startFor(registry->m_pause.next(), [registry] { registry->wakeService(); });
}

/// What is asked of it starts it; it then tells anew what it has.
void AccountRegistry::wakeService() {
    g_dbus_connection_call(
        m_bus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "StartServiceByName", g_variant_new("(su)", serviceName, 0U), nullptr,
        G_DBUS_CALL_FLAGS_NONE, -1, m_cancellable.get(), Async::ready,
        Async::data([weak = weak_from_this()](GObject *object, GAsyncResult *result) {
            Failure failure;
            GVariant *const answer =
                g_dbus_connection_call_finish(G_DBUS_CONNECTION(object), result, failure.out());
            if (answer)
                g_variant_unref(answer);
            const auto self = weak.lock();
            if (self && failure && !failure.is(G_IO_ERROR, G_IO_ERROR_CANCELLED) && self->m_bus)
                self->m_retry.startFor(self->m_pause.next(),
                                       [registry = self.get()] { registry->wakeService(); });
        }));
}

void AccountRegistry::sourcesChanged(ESourceRegistry * /*registry*/, ESource * /*source*/,
                                     gpointer self) {
    static_cast<AccountRegistry *>(self)->relistSoon();
}

void AccountRegistry::statusChanged(ESource * /*source*/, GParamSpec * /*property*/,
                                    gpointer self) {
    static_cast<AccountRegistry *>(self)->relistSoon();
}

void AccountRegistry::relistSoon() {
    m_relisting.startFor(m_pace.waitAfterChange(ContextTimer::uptime()), [this] {
        m_pace.announced();
        relist();
    });
}

/// The registry does not tell of it.
void AccountRegistry::followStatus() {
    unfollowStatus();
    forEachSource(m_registry.get(), E_SOURCE_EXTENSION_CALENDAR, [this](ESource *source) {
        g_signal_connect(source, "notify::connection-status", G_CALLBACK(statusChanged), this);
        m_followed.push_back(anotherReference(source));
    });
}

void AccountRegistry::unfollowStatus() {
    for (const auto &source : m_followed)
        g_signal_handlers_disconnect_by_data(source.get(), this);
    m_followed.clear();
}

/// Where the bus cannot start the service, the library shows an empty registry and waits for it to
/// come by itself. A real one brings some sources along: nothing counts as deleted by an empty one.
void AccountRegistry::relist() {
    bool isReal = false;
    forEachSource(m_registry.get(), nullptr, [&isReal](ESource *) { isReal = true; });
    if (isReal) {
        noteReturn();
        followStatus();
        return m_listener.listed(listSources(m_registry.get()));
    }
    noteTrouble("the registry of accounts is not there");
    m_listener.failed();
    m_retry.startFor(m_pause.next(), [this] { wakeService(); });
}

void AccountRegistry::fail(const QByteArray &reason) {
    noteTrouble(reason);
    disconnect();
    m_listener.failed();
    m_retry.startFor(m_pause.next(), [this] { connect(); });
}

/// The bus stays, so that the service is heard when it comes.
void AccountRegistry::failOpening(const QByteArray &reason) {
    noteTrouble(reason);
    m_listener.failed();
    m_retry.startFor(m_pause.next(), [this] { open(); });
}

void AccountRegistry::noteTrouble(const QByteArray &reason) {
    if (std::exchange(m_trouble, reason) != reason)
        qCWarning(eventStoreLog).noquote() << logText(QString::fromUtf8(reason));
}

void AccountRegistry::noteReturn() {
    m_pause.reset();
    if (!std::exchange(m_trouble, {}).isEmpty())
        qCInfo(eventStoreLog) << "the registry of accounts is back";
}

void AccountRegistry::disconnect() {
    m_relisting.stop();
    m_retry.stop();
    m_answer.stop();
    m_isOpening = false;
    if (m_watch != 0)
        g_bus_unwatch_name(std::exchange(m_watch, 0));
    if (m_registry)
        g_signal_handlers_disconnect_by_data(m_registry.get(), this);
    unfollowStatus();
    m_registry.reset();
    if (m_cancellable)
        g_cancellable_cancel(m_cancellable.get());
    m_cancellable.reset();
    if (m_bus)
        g_signal_handlers_disconnect_by_data(m_bus.get(), this);
    m_bus.reset();
    m_sharedBus.reset();
}

} // namespace vantrel
