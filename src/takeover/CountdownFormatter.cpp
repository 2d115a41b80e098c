#include "CountdownFormatter.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vantrel {

QString CountdownFormatter::minutesAndSecondsString(Instant until, Instant from) {
    const double whole = std::max(std::ceil((until - from).count()), 0.0);
    const auto seconds = static_cast<std::int64_t>(whole);
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace vantrel
