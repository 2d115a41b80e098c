#pragma once

#include "EventComponent.h"
#include "UserClock.h"

#include <QByteArray>
#include <QString>

namespace vantrel {

/// "calendar/UID" for a series and its plain occurrences, "calendar/UID/recurrence id" for an
/// override. Within the pieces "|", "/", "%" and control characters stand as "%7C" and the like,
/// so that the pieces can be told apart and none of them holds a "|".
[[nodiscard]] QString eventIdentifier(const QString &calendarIdentifier,
                                      const EventComponent &component, const UserClock &clock);

/// One piece, escaped.
[[nodiscard]] QString escapedPiece(const QString &piece);

} // namespace vantrel
