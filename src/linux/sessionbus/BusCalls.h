#pragma once

#include <QDBusMessage>
#include <QString>

namespace vantrel {

/// A call of the bus itself, without its arguments.
[[nodiscard]] QDBusMessage callOfBus(const QString &member);

/// Asks for a name; without waiting in line where another one has it.
[[nodiscard]] QDBusMessage requestOfName(const QString &name);

} // namespace vantrel
