#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// A text that a stranger may have chosen, a file's name for instance, as it may stand in a line of
/// the log: what could end the line, drive a terminal or turn the direction of writing is written
/// as its number in hexadecimal, "\x0a" or "\u202e", and a text of more than 1024 characters is
/// cut.
[[nodiscard]] QString logText(const QString &text);

/// The same of a path as the system has it. Bytes that are no text are left out.
[[nodiscard]] QString logText(const QByteArray &path);

} // namespace vantrel
