#pragma once

#include <QString>

class QScreen;

namespace vantrel {

/// Names a monitor for as long as it stays connected: its output and, where it tells, its serial
/// number, so that another monitor on the same socket is another one.
[[nodiscard]] QString screenId(const QScreen &screen);

/// Null when no such monitor is connected.
[[nodiscard]] QScreen *findScreen(const QString &id);

} // namespace vantrel
