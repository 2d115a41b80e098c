#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vantrel {

/// Whether something stands there that takes the place of entries further down: a file, or a link
/// to a device, but no folder and no link that leads nowhere.
[[nodiscard]] bool isEntryFile(const QString &path);

/// No text for a device: a link to /dev/null is how entries are masked. Empty when it cannot be
/// read.
[[nodiscard]] std::optional<QByteArray> readEntryFile(const QString &path);

// What went wrong, in words for the user; the file then is as it was.

/// Replaces the file in one step, through a link to its target. Makes the folder.
[[nodiscard]] std::optional<QString> writeEntryFile(const QString &path, const QByteArray &text);

/// Of a link it is the link that goes.
[[nodiscard]] std::optional<QString> removeEntryFile(const QString &path);

} // namespace vantrel
