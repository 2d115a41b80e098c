#include "CalendarAccess.h"

namespace vantrel {

CalendarAccess::Status CalendarAccess::currentStatus() const {
    switch (m_store.authorizationStatus()) {
    case StoreAuthorization::notDetermined:
        return Status::notDetermined;
    case StoreAuthorization::restricted:
        return Status::restricted;
    case StoreAuthorization::denied:
        return Status::denied;
    case StoreAuthorization::fullAccess:
        return Status::fullAccess;
    case StoreAuthorization::writeOnly:
        return Status::writeOnly;
    }
    return Status::denied;
}

void CalendarAccess::requestFullAccess(const std::function<void(Status)> &completion) {
    const Status status = currentStatus();
    if (status == Status::writeOnly || status == Status::fullAccess)
        return completion(currentStatus());
    // The answer itself counts: what the store says of its status may come later than it.
    m_store.requestFullAccessToEvents(
        [completion](bool granted, const std::optional<QString> &error) {
            completion(granted && !error ? Status::fullAccess : Status::denied);
        });
}

QString rawValue(CalendarAccess::Status status) {
    switch (status) {
    case CalendarAccess::Status::notDetermined:
        return QStringLiteral("notDetermined");
    case CalendarAccess::Status::denied:
        return QStringLiteral("denied");
    case CalendarAccess::Status::restricted:
        return QStringLiteral("restricted");
    case CalendarAccess::Status::writeOnly:
        return QStringLiteral("writeOnly");
    case CalendarAccess::Status::fullAccess:
        return QStringLiteral("fullAccess");
    }
    Q_UNREACHABLE();
}

} // namespace vantrel
