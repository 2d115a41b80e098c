#pragma once

#include "GObjects.h"

#include <QByteArray>

#include <gio/gio.h>

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

/// An object of another program on the bus. Nothing waits for it: an answer comes when there is
/// one, to the thread that asked, and to nobody once this is gone.
class BusObject {
public:
    /// The answer is null when there is a failure, and lives as long as the call.
    using Take = std::function<void(GVariant *answer, const Failure &failure)>;
    using Hear = std::function<void(const char *signal, GVariant *arguments)>;

    BusObject(GDBusConnection *bus, QByteArray service, QByteArray path, QByteArray interface);
    BusObject(const BusObject &) = delete;
    BusObject &operator=(const BusObject &) = delete;
    ~BusObject();

    /// Has no limit in time: whoever loses patience drops the object. Takes over floating
    /// arguments. Starts the other program where `service` is one that the bus can start.
    void call(const char *method, GVariant *arguments, Take take);

    /// Asks for no answer, and starts no program.
    void tell(const char *method);

    /// All signals of one of its interfaces.
    void listen(const char *interface, Hear hear);

private:
    const Reference<GDBusConnection> m_bus;
    const QByteArray m_service;
    const QByteArray m_path;
    const QByteArray m_interface;
    const Reference<GCancellable> m_cancellable;
    const std::shared_ptr<int> m_life; ///< Answers look whether it is still there.
    std::vector<guint> m_subscriptions;
};

} // namespace vantrel
