#pragma once

#include <platform/AccessPrompt.h>

#include <QString>

#include <vector>

namespace vantrel {

/// The accounts, and the calendars that belong to none, by name: as they stand in the files in
/// which Evolution Data Server keeps what the user has set up (`*.source` in that folder). Starts
/// no service and reads no event. What cannot be read is passed over.
[[nodiscard]] std::vector<CalendarPlace> accountPlaces(const QString &folder);

/// The same where the service keeps them for the user.
[[nodiscard]] std::vector<CalendarPlace> accountPlaces();

} // namespace vantrel
