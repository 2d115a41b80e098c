#include "OwnedFolder.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace vantrel {

namespace {

constexpr QLatin1String lockName("owner");

/// In a place that others may write to, names say nothing.
bool isOwnFolder(const QString &path) {
    struct stat entry {};
    return ::lstat(QFile::encodeName(path).constData(), &entry) == 0 && S_ISDIR(entry.st_mode) &&
           entry.st_uid == ::getuid();
}

void removeIfOrphaned(const QString &path) {
    if (!isOwnFolder(path))
        return;
    const int lock = ::open(QFile::encodeName(path + u'/' + lockName).constData(),
                            O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (lock < 0)
        return;
    if (::flock(lock, LOCK_EX | LOCK_NB) == 0)
        QDir(path).removeRecursively();
    ::close(lock);
}

} // namespace

OwnedFolder::OwnedFolder(const QString &place, const QString &kind)
    : m_folder(place + u'/' + kind + QStringLiteral("XXXXXX")) {
    const QDir folder(place);
    for (const QString &name : folder.entryList({kind + u'*'}, QDir::Dirs | QDir::NoSymLinks))
        removeIfOrphaned(folder.filePath(name));
    if (m_folder.isValid())
        lock();
}

OwnedFolder::~OwnedFolder() {
    m_folder.remove();
    if (m_lock >= 0)
        ::close(m_lock);
}

void OwnedFolder::lock() {
    const QByteArray name = QFile::encodeName(filePath(lockName));
    const QByteArray inTheMaking = name + ".part";
    m_lock = ::open(inTheMaking.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    // Where files cannot be locked nobody can tell an orphan, and none is taken for one.
    if (m_lock >= 0 && ::flock(m_lock, LOCK_EX | LOCK_NB) == 0)
        (void)std::rename(inTheMaking.constData(), name.constData());
}

} // namespace vantrel
