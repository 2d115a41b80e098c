#include "EventReading.h"

#include <cmath>

namespace vantrel {

QString titleOf(const StoreEvent &event) {
    return event.title ? *event.title : QStringLiteral("(no title)");
}

std::optional<QString> locationOf(const StoreEvent &event) {
    if (!event.location)
        return std::nullopt;
    QString trimmed = event.location->trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    return trimmed;
}

void requireReadableSpan(const StoreEvent &event) {
    if (!std::isfinite(event.startDate.time_since_epoch().count()) ||
        !std::isfinite(event.endDate.time_since_epoch().count()))
        qFatal("An event of the store has no readable start or end");
}

} // namespace vantrel
