#pragma once

#include <platform/Color.h>

#include <QString>

#include <optional>

namespace vantrel {

/// Reads "#rrggbb" and "#rrggbbaa", and the colour names of CSS, which iCalendar's COLOR
/// uses (RFC 7986, section 5.9). Empty for anything else.
[[nodiscard]] std::optional<Color> colorFromText(const QString &text);

/// A colour for a calendar that names none: always the same one for the same identifier.
[[nodiscard]] Color defaultColor(const QString &calendarIdentifier);

} // namespace vantrel
