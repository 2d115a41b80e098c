#pragma once

#include "ContentLines.h"
#include "Zone.h"

#include <memory>
#include <vector>

namespace vantrel {

/// The zone that the lines of a VTIMEZONE block describe (RFC 5545, section 3.6.5). Of its rules
/// only yearly ones are taken, up to the year 2100: nobody changes clocks daily, but a stranger may
/// claim so. Null when no observance can be used.
[[nodiscard]] std::shared_ptr<const Zone> zoneFromRules(const std::vector<ContentLine> &lines);

} // namespace vantrel
