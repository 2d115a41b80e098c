#pragma once

#include "TakeoverContext.h"

#include <copy/CopyProvider.h>
#include <platform/LocalCalendar.h>
#include <platform/Time.h>

namespace vantrel {

/// What a takeover shows that the user asks for to see what one is like: a meeting that nobody
/// holds, a minute from `now`, on an otherwise empty day.
[[nodiscard]] TakeoverContext demoTakeover(Instant now, const LocalCalendar &calendar,
                                           const CopyProvider &copyProvider);

} // namespace vantrel
