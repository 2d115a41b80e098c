#include "Files.h"

#include <QDir>
#include <QFile>
#include <QList>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>

namespace vantrel::files {

namespace {

/// Closes a descriptor at the end of a scope.
class Descriptor {
public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    [[nodiscard]] int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

Entry entryOf(const char *name, const struct stat &status) {
    Entry entry;
    entry.name = name;
    entry.isFolder = S_ISDIR(status.st_mode);
    entry.modified =
        static_cast<std::int64_t>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
    entry.size = status.st_size;
    entry.inode = status.st_ino;
    return entry;
}

} // namespace

Status status(const QByteArray &path) {
    struct stat found = {};
    if (::stat(path.constData(), &found) != 0)
        return {errno == ENOENT || errno == ENOTDIR ? Kind::missing : Kind::unreadable, 0, 0,
                errno};
    const Kind kind = S_ISDIR(found.st_mode)   ? Kind::folder
                      : S_ISREG(found.st_mode) ? Kind::file
                                               : Kind::other;
    return {kind, found.st_dev, found.st_ino, 0};
}

bool isWritable(const QByteArray &path) {
    return ::faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) == 0;
}

std::optional<std::vector<Entry>> list(const QByteArray &folder, Detail detail, int &error) {
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(folder.constData()),
                                                         &::closedir);
    if (!directory) {
        error = errno;
        return std::nullopt;
    }
    std::vector<Entry> entries;
    for (;;) {
        errno = 0;
        const dirent *const one = ::readdir(directory.get());
        if (!one && errno != 0) {
            error = errno;
            return std::nullopt;
        }
        if (!one)
            return entries;
        if (one->d_name[0] == '.')
            continue;
        const bool isKindKnown = one->d_type == DT_REG || one->d_type == DT_DIR;
        if (detail == Detail::kind && isKindKnown) {
            entries.push_back({one->d_name, one->d_type == DT_DIR});
            continue;
        }
        struct stat found = {};
        const bool isKnown = ::fstatat(::dirfd(directory.get()), one->d_name, &found, 0) == 0;
        // A link leads elsewhere; a name of the folder's own does not vanish for being out of
        // reach.
        if (!isKnown && isKindKnown && errno != ENOENT) {
            error = errno;
            return std::nullopt;
        }
        if (!isKnown || (!S_ISDIR(found.st_mode) && !S_ISREG(found.st_mode)))
            continue;
        entries.push_back(entryOf(one->d_name, found));
        entries.back().isLink = one->d_type == DT_LNK;
    }
}

std::vector<QByteArray> brokenLinks(const QByteArray &folder) {
    std::vector<QByteArray> names;
    const std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(folder.constData()),
                                                         &::closedir);
    while (const dirent *one = directory ? ::readdir(directory.get()) : nullptr) {
        struct stat found = {};
        const bool mayBeLink = one->d_type == DT_LNK || one->d_type == DT_UNKNOWN;
        if (one->d_name[0] != '.' && mayBeLink &&
            ::fstatat(::dirfd(directory.get()), one->d_name, &found, 0) != 0)
            names.emplace_back(one->d_name);
    }
    return names;
}

std::vector<NameInFolder> waypoints(const QByteArray &path) {
    constexpr int mostLinks = 40; // As many as the kernel follows.
    std::vector<NameInFolder> waypoints;
    QByteArray folder = "/";
    QList<QByteArray> names = path.split('/');
    int links = 0;
    while (!names.isEmpty()) {
        const QByteArray name = names.takeFirst();
        if (name.isEmpty() || name == ".")
            continue;
        if (name == "..") {
            folder = folderOf(folder);
            continue;
        }
        const QByteArray place = folder == "/" ? folder + name : folder + '/' + name;
        struct stat found = {};
        const bool isThere = ::lstat(place.constData(), &found) == 0;
        const bool isLink = isThere && S_ISLNK(found.st_mode);
        const bool isBlocked = isThere && !isLink && !S_ISDIR(found.st_mode);
        if (!isThere || isLink || isBlocked || names.isEmpty())
            waypoints.push_back({folder, name});
        if (!isThere || isBlocked || (isLink && ++links > mostLinks))
            break;
        if (!isLink) {
            folder = place;
            continue;
        }
        char target[PATH_MAX];
        const auto length = ::readlink(place.constData(), target, sizeof target);
        names = QByteArray(target, std::max<ssize_t>(length, 0)).split('/') + names;
        if (length > 0 && target[0] == '/')
            folder = "/";
    }
    return waypoints;
}

bool isMountPoint(const QByteArray &folder) {
    struct stat found = {};
    struct stat above = {};
    return ::stat(folder.constData(), &found) == 0 &&
           ::stat((folder + "/..").constData(), &above) == 0 && found.st_dev != above.st_dev;
}

bool isBehindBrokenLink(const QByteArray &path) {
    struct stat found = {};
    QByteArray place = absolute(path);
    while (::lstat(place.constData(), &found) != 0) {
        if (place == "/")
            return false;
        place = folderOf(place);
    }
    return S_ISLNK(found.st_mode) && ::stat(place.constData(), &found) != 0;
}

std::optional<QByteArray> read(const QByteArray &path, std::int64_t limit, int &error) {
    const Descriptor file(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat found = {};
    if (file.get() < 0 || ::fstat(file.get(), &found) != 0) {
        error = errno;
        return std::nullopt;
    }
    if (!S_ISREG(found.st_mode)) {
        error = EINVAL;
        return std::nullopt;
    }
    QByteArray bytes(std::clamp<std::int64_t>(found.st_size, 0, limit), Qt::Uninitialized);
    qsizetype length = 0;
    while (length < bytes.size()) {
        const auto count = ::read(file.get(), bytes.data() + length,
                                  static_cast<std::size_t>(bytes.size() - length));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0) {
            error = errno;
            return std::nullopt;
        }
        if (count == 0)
            break;
        length += count;
    }
    bytes.truncate(length);
    return bytes;
}

QByteArray absolute(const QByteArray &path) {
    return QFile::encodeName(QDir::cleanPath(QDir(QFile::decodeName(path)).absolutePath()));
}

QByteArray resolved(const QByteArray &path) {
    const std::unique_ptr<char, void (*)(void *)> real(::realpath(path.constData(), nullptr),
                                                       &std::free);
    return real ? QByteArray(real.get()) : path;
}

QByteArray nameOf(const QByteArray &path) {
    return path.mid(path.lastIndexOf('/') + 1);
}

QByteArray folderOf(const QByteArray &path) {
    return path.left(std::max<qsizetype>(path.lastIndexOf('/'), 1));
}

} // namespace vantrel::files
