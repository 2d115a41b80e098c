#pragma once

#include "CalendarText.h"

namespace vantrel {

class ZoneRegistry;

/// Reads a calendar text (RFC 5545) in time that grows with its length alone. What cannot be read
/// is left out and noted; one bad component costs none of the others.
[[nodiscard]] CalendarText readCalendarText(QByteArray text, ZoneRegistry &zones);

} // namespace vantrel
