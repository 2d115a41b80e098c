#include "ExecLine.h"

#include <QByteArrayList>
#include <QFile>

#include <glib.h>

#include <algorithm>
#include <cctype>
#include <memory>

namespace vantrel {

namespace {

bool isPlain(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 ||
           QByteArrayView("/._-+:@").contains(character);
}

QByteArray quoted(const QByteArray &argument) {
    if (!argument.isEmpty() && std::all_of(argument.begin(), argument.end(), isPlain))
        return argument;
    QByteArray text = "\"";
    for (const char character : argument) {
        if (QByteArrayView("\"`$\\").contains(character))
            text.append('\\');
        text.append(character);
        // Two stand for one that begins no field code.
        if (character == '%')
            text.append('%');
    }
    return text + '"';
}

/// Empty where the quotes do not match.
QByteArrayList words(const QByteArray &line) {
    int count = 0;
    char **list = nullptr;
    if (!g_shell_parse_argv(line.constData(), &count, &list, nullptr))
        return {};
    const std::unique_ptr<char *, decltype(&g_strfreev)> owner(list, &g_strfreev);
    QByteArrayList found;
    for (int index = 0; index < count; ++index)
        found.append(QByteArray(list[index]).replace("%%", "%"));
    return found;
}

} // namespace

QByteArray execLine(const QStringList &command) {
    QByteArrayList arguments;
    for (const QString &argument : command)
        arguments.append(quoted(QFile::encodeName(argument)));
    return arguments.join(' ');
}

bool execLineStarts(const QByteArray &line, const QByteArray &programName) {
    const QByteArrayList found = words(line);
    if (found.isEmpty() || !isProgram(found.first()))
        return false;
    const auto named = std::find_if(found.begin(), found.end(), [&](const QByteArray &word) {
        return word.contains(programName);
    });
    return named != found.end() && (!named->startsWith('/') || isProgram(*named));
}

bool isProgram(const QByteArray &name) {
    const std::unique_ptr<char, decltype(&g_free)> path(g_find_program_in_path(name.constData()),
                                                        &g_free);
    return path != nullptr;
}

} // namespace vantrel
