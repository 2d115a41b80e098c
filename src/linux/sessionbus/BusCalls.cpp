#include "BusCalls.h"

namespace vantrel {

QDBusMessage callOfBus(const QString &member) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), member);
}

QDBusMessage requestOfName(const QString &name) {
    constexpr uint doNotQueue = 4;
    QDBusMessage message = callOfBus(QStringLiteral("RequestName"));
    message << name << doNotQueue;
    return message;
}

} // namespace vantrel
