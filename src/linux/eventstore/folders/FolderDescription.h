#pragma once

#include <platform/EventStore.h>

#include <QByteArray>

namespace vantrel {

/// Names and colours of calendars that lie in the file system, and the identifiers that stay
/// theirs as long as their paths do. All functions may read the disk.

/// Whether a file of that name is an item of a calendar: it ends in ".ics", in whatever case.
[[nodiscard]] bool hasCalendarSuffix(const QByteArray &name);

[[nodiscard]] QString identifierOfPath(const QByteArray &path);

/// A folder in the vdir layout: its `displayname` and `color` files, else its own name and a
/// colour of its own. The source is left open.
[[nodiscard]] StoreCalendar describeFolder(const QByteArray &path);

/// A file that is a calendar, as long as its text is not known.
[[nodiscard]] StoreCalendar describeFile(const QByteArray &path);

/// Whether the folder holds an item, or one of the files that describe a calendar.
[[nodiscard]] bool looksLikeCalendar(const QByteArray &path);

} // namespace vantrel
