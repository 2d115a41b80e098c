#pragma once

#include <QString>

#include <cstddef>

namespace vantrel::bench {

/// The plain way to ask a folder for the occurrences of a stretch of time: each file parsed by
/// libical, each of its events walked by libical's own recurrence loop, nothing kept. Answers how
/// many there were.
[[nodiscard]] std::size_t plainLoop(const QString &folder, qint64 from, qint64 to);

} // namespace vantrel::bench
