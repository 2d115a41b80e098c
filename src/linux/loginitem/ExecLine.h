#pragma once

#include <QByteArray>
#include <QStringList>

namespace vantrel {

/// The value of a desktop entry's Exec key that runs the command, whatever stands in it (Desktop
/// Entry Specification, "The Exec key").
[[nodiscard]] QByteArray execLine(const QStringList &command);

/// Whether the program of that name is run by the line, by itself or through another program, and
/// is there together with that one.
[[nodiscard]] bool execLineStarts(const QByteArray &line, const QByteArray &programName);

/// Whether the path, or the name in the search path, is that of something that can be run.
[[nodiscard]] bool isProgram(const QByteArray &name);

} // namespace vantrel
