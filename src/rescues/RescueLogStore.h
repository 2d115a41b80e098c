#pragma once

#include "DayBucket.h"
#include "RescueFile.h"

#include <QString>

namespace vantrel {

/// Keeps the rescue log in one JSON file: an object of days, each an object of five counts.
/// Failures are logged and nothing else. Main thread only; reads and writes wait for the disk.
class RescueLogStore {
public:
    explicit RescueLogStore(QString fileURL);

    /// `Vantrel/rescues.json` in the user's data folder, which is created; a file in the temporary
    /// folder when that is not possible.
    [[nodiscard]] static QString defaultFileURL();

    /// A path.
    [[nodiscard]] const QString &fileURL() const { return m_file.path(); }

    /// No days when there is no file, and when it holds anything but a log; a bad file stays in
    /// place until the next save.
    [[nodiscard]] DayBuckets load() const;

    /// Replaces the file atomically; it is readable by its owner only.
    void save(const DayBuckets &byDay) const;

private:
    RescueFile m_file;
};

} // namespace vantrel
