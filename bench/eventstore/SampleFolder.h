#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel::bench {

/// Noon of the day around which the sample's events lie: 2026-03-02 12:00 UTC, a Monday.
inline constexpr qint64 sampleNow = 1'772'452'800;

/// The text of one file of the sample: an event as a CalDAV server would hand it out, with its
/// time zone, a few attendees and a link in its notes. Every tenth recurs weekly, of which three
/// in ten have ended; the others lie within a year of `now`. The same for the same number and time.
[[nodiscard]] QByteArray sampleText(int number, qint64 now = sampleNow);

/// Writes that many files, one event each, into a folder that it makes.
void writeSampleFolder(const QString &folder, int count, qint64 now = sampleNow);

/// The same events in one file. Answers whether it could be written.
bool writeSampleFile(const QString &path, int count, qint64 now = sampleNow);

/// An event of half an hour, three hours after the sample's noon, for what is added to it.
[[nodiscard]] QByteArray addedEvent(const QByteArray &number);

} // namespace vantrel::bench
