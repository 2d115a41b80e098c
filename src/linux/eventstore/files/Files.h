#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel::files {

/// How much to find out about the names in a folder.
enum class Detail {
    kind,   ///< Only whether each is a folder or a file.
    version ///< When it was changed, its size and its inode too.
};

/// What a name in a folder stands for, symbolic links followed.
struct Entry {
    QByteArray name;
    bool isFolder = false;
    bool isLink = false;
    std::int64_t modified = 0; ///< Nanoseconds since 1970.
    std::int64_t size = 0;
    std::uint64_t inode = 0;
};

enum class Kind { missing, folder, file, other, unreadable };

struct Status {
    Kind kind = Kind::missing;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    int error = 0; ///< The system's number for why nothing else is known; 0 when it is.
};

[[nodiscard]] Status status(const QByteArray &path);

[[nodiscard]] bool isWritable(const QByteArray &path);

/// The folders and regular files in a folder whose names do not begin with a dot. Empty when the
/// folder, or what is to be known of a name in it, cannot be read; `error` is then the system's
/// number for why.
[[nodiscard]] std::optional<std::vector<Entry>> list(const QByteArray &folder, Detail detail,
                                                     int &error);

/// Whether a disk, or another part of the file system, begins at that folder.
[[nodiscard]] bool isMountPoint(const QByteArray &folder);

/// Whether the way to a place that is missing ends at a symbolic link that leads nowhere: there may
/// well be something once what it leads to, on another disk for instance, is within reach.
[[nodiscard]] bool isBehindBrokenLink(const QByteArray &path);

/// The names in a folder that lead to nothing that can be looked at: symbolic links whose target is
/// missing, or is out of reach.
[[nodiscard]] std::vector<QByteArray> brokenLinks(const QByteArray &folder);

/// A name in a folder, whose path holds no symbolic links.
struct NameInFolder {
    QByteArray folder;
    QByteArray name;

    bool operator==(const NameInFolder &) const = default;
};

/// On which names it hangs where an absolute path leads: each symbolic link on the way, and the
/// first name that is missing, or else the last one.
[[nodiscard]] std::vector<NameInFolder> waypoints(const QByteArray &path);

/// What a regular file holds, at most `limit` bytes of it. Empty when it cannot be read; `error`
/// is then the system's number for why. Never waits for a writer, as a pipe would.
[[nodiscard]] std::optional<QByteArray> read(const QByteArray &path, std::int64_t limit,
                                             int &error);

/// The path from the root folder on, without "." and "..". Touches no disk.
[[nodiscard]] QByteArray absolute(const QByteArray &path);

/// The same place without symbolic links on the way; the path as it is when there is no such place.
[[nodiscard]] QByteArray resolved(const QByteArray &path);

/// The last part of a path.
[[nodiscard]] QByteArray nameOf(const QByteArray &path);

/// All but the last part; "/" of a path with one part.
[[nodiscard]] QByteArray folderOf(const QByteArray &path);

} // namespace vantrel::files
