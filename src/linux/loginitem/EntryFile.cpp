#include "EntryFile.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <glib/gstdio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <system_error>

namespace vantrel {

namespace {

/// Far more than any entry takes.
constexpr qint64 largestFile = 1'000'000;
constexpr int ownersAlone = 0700; ///< As the base directory specification has it.

QString lastSystemError() {
    return QString::fromStdString(std::generic_category().message(errno));
}

QString failure(const QString &path, const QString &reason) {
    return QStringLiteral("%1 cannot be changed: %2").arg(path, reason);
}

/// Whether all of it is on the disk: a full one may tell no earlier than at the end.
bool isWritten(int descriptor, QByteArrayView text) {
    while (!text.isEmpty()) {
        const ssize_t count =
            ::write(descriptor, text.data(), static_cast<std::size_t>(text.size()));
        if (count < 0 && errno != EINTR)
            return false;
        text = text.sliced(std::max<ssize_t>(count, 0));
    }
    return ::fsync(descriptor) == 0;
}

/// Answers what went wrong.
std::optional<QString> replace(const QString &path, const QByteArray &text) {
    const QByteArray target = QFile::encodeName(path);
    QByteArray draft = target + ".XXXXXX";
    constexpr int modeBeforeMask = 0666;
    const int descriptor = g_mkstemp_full(draft.data(), O_WRONLY | O_CLOEXEC, modeBeforeMask);
    if (descriptor < 0)
        return lastSystemError();
    const bool isWhole = isWritten(descriptor, text) && ::rename(draft, target) == 0;
    const auto error = isWhole ? std::nullopt : std::optional(lastSystemError());
    ::close(descriptor);
    if (error)
        ::unlink(draft);
    return error;
}

/// Where the symbolic links at `path` lead in the end, whether there is a file or not: renaming
/// would put a file in place of the link. Links may form a circle.
QString linkTarget(QString path) {
    constexpr int mostLinks = 40; // as many as the kernel follows
    for (int link = 0; link < mostLinks && QFileInfo(path).isSymLink(); ++link)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

} // namespace

bool isEntryFile(const QString &path) {
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

std::optional<QByteArray> readEntryFile(const QString &path) {
    if (!QFileInfo(path).isFile())
        return QByteArray();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.read(largestFile);
}

std::optional<QString> writeEntryFile(const QString &path, const QByteArray &text) {
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    if (g_mkdir_with_parents(folder.constData(), ownersAlone) != 0)
        return failure(QFile::decodeName(folder), lastSystemError());
    QString target = linkTarget(path);
    if (isEntryFile(target) && !QFileInfo(target).isFile()) {
        // What masks the entry is a device, and the link to it is what gives way.
        if (const auto error = removeEntryFile(path))
            return error;
        target = path;
    }
    const auto error = replace(target, text);
    return error ? std::optional(failure(path, *error)) : std::nullopt;
}

std::optional<QString> removeEntryFile(const QString &path) {
    if (::unlink(QFile::encodeName(path).constData()) == 0 || errno == ENOENT)
        return std::nullopt;
    return failure(path, lastSystemError());
}

} // namespace vantrel
