#include "BusObject.h"

#include "Async.h"

#include <utility>

namespace vantrel {

namespace {

constexpr int withoutLimit = G_MAXINT; // milliseconds, which GLib takes for none

void hearSignal(GDBusConnection * /*bus*/, const gchar * /*sender*/, const gchar * /*path*/,
                const gchar * /*interface*/, const gchar *signal, GVariant *arguments,
                gpointer data) {
    (*static_cast<BusObject::Hear *>(data))(signal, arguments);
}

void dropHearer(gpointer data) {
    delete static_cast<BusObject::Hear *>(data);
}

} // namespace

BusObject::BusObject(GDBusConnection *bus, QByteArray service, QByteArray path,
                     QByteArray interface)
    : m_bus(anotherReference(bus)),
      m_service(std::move(service)),
      m_path(std::move(path)),
      m_interface(std::move(interface)),
      m_cancellable(g_cancellable_new()),
      m_life(std::make_shared<int>()) {}

BusObject::~BusObject() {
    for (const guint subscription : m_subscriptions)
        g_dbus_connection_signal_unsubscribe(m_bus.get(), subscription);
    g_cancellable_cancel(m_cancellable.get());
}

void BusObject::call(const char *method, GVariant *arguments, Take take) {
    g_dbus_connection_call(
        m_bus.get(), m_service.constData(), m_path.constData(), m_interface.constData(), method,
        arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, withoutLimit, m_cancellable.get(), Async::ready,
        Async::data([life = std::weak_ptr<int>(m_life),
                     take = std::move(take)](GObject *object, GAsyncResult *result) {
            Failure failure;
            const OwnedVariant answer(
                g_dbus_connection_call_finish(G_DBUS_CONNECTION(object), result, failure.out()));
            if (life.expired())
                return;
            failure.dropRemoteName();
            take(answer.get(), failure);
        }));
}

void BusObject::tell(const char *method) {
    g_dbus_connection_call(m_bus.get(), m_service.constData(), m_path.constData(),
                           m_interface.constData(), method, nullptr, nullptr,
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr, nullptr);
}

void BusObject::listen(const char *interface, Hear hear) {
    m_subscriptions.push_back(g_dbus_connection_signal_subscribe(
        m_bus.get(), m_service.constData(), interface, nullptr, m_path.constData(), nullptr,
        G_DBUS_SIGNAL_FLAGS_NONE, hearSignal, std::make_unique<Hear>(std::move(hear)).release(),
        dropHearer));
}

} // namespace vantrel
