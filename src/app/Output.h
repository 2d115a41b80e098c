#pragma once

#include <platform/Color.h>
#include <platform/LocalCalendar.h>
#include <platform/Time.h>

#include <QByteArray>
#include <QJsonObject>
#include <QString>

namespace vantrel {

// How the verbs print what comes from calendars. Titles are written by strangers: none may drive a
// terminal, or turn around what stands beside it.

/// For people: with a space in the place of each control and formatting character. Those that join
/// emoji and letters stay.
[[nodiscard]] QString printable(QString text);

/// For programs: UTF-8 with a line break at the end. Characters that `printable` would take out
/// are escaped, and read as they were.
[[nodiscard]] QByteArray jsonOutput(const QJsonObject &object);

/// `#rrggbb`, without the alpha.
[[nodiscard]] QString colorText(const Color &color);

/// ISO 8601 with the offset of the calendar's zone at that moment, to the second.
[[nodiscard]] QString isoText(Instant instant, const LocalCalendar &calendar);

} // namespace vantrel
