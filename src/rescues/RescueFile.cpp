#include "RescueFile.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

namespace vantrel {

namespace {

/// A few centuries of days.
constexpr qint64 largestFile = 64'000'000;

constexpr int mostLinks = 40; // as many as the kernel follows

QString lastSystemError() {
    return QString::fromStdString(std::generic_category().message(errno));
}

QString foreignLinkError() {
    return QStringLiteral("a symbolic link of another user stands in its place");
}

/// Where the user's links at `path` lead in the end, whether there is a file or not; empty when a
/// link on the way is another user's.
std::optional<QString> target(QString path) {
    for (int link = 0; link < mostLinks; ++link) {
        struct stat status = {};
        if (::lstat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISLNK(status.st_mode))
            break;
        if (status.st_uid != ::geteuid() && status.st_uid != 0)
            return std::nullopt;
        path = QFileInfo(path).symLinkTarget();
    }
    return path;
}

/// Closes what it holds when it goes.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    [[nodiscard]] int number() const { return m_number; }
    [[nodiscard]] bool isOpen() const { return m_number >= 0; }

private:
    int m_number;
};

/// Puts a rename on the disk: it is there only once its folder is.
std::optional<QString> syncFolder(const QString &folder) {
    const Descriptor descriptor(
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // File systems that cannot sync a folder answer EINVAL; there is nothing more to be had there.
    if (!descriptor.isOpen() || (::fsync(descriptor.number()) != 0 && errno != EINVAL))
        return lastSystemError();
    return std::nullopt;
}

} // namespace

RescueFile::RescueFile(QString path) : m_path(std::move(path)) {}

RescueFile::Reading RescueFile::read() const {
    const auto place = target(m_path);
    if (!place)
        return {std::nullopt, foreignLinkError()};
    const Descriptor descriptor(::open(QFile::encodeName(*place).constData(),
                                       O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW | O_CLOEXEC));
    if (!descriptor.isOpen())
        return {std::nullopt, errno == ENOENT ? QString() : lastSystemError()};
    struct stat status = {};
    if (::fstat(descriptor.number(), &status) != 0)
        return {std::nullopt, lastSystemError()};
    if (!S_ISREG(status.st_mode))
        return {std::nullopt, QStringLiteral("it is no ordinary file")};
    if (status.st_size > largestFile)
        return {std::nullopt, QStringLiteral("it is larger than any log")};
    QFile file;
    QByteArray text;
    if (file.open(descriptor.number(), QIODevice::ReadOnly))
        text = file.read(largestFile);
    if (file.error() != QFileDevice::NoError)
        return {std::nullopt, file.errorString()};
    return {text, {}};
}

std::optional<QString> RescueFile::replace(const QByteArray &text) const {
    const auto place = target(m_path);
    if (!place)
        return foreignLinkError();
    const QFileInfo info(*place);
    if (info.exists() && !info.isWritable())
        return QStringLiteral("it may not be written");
    // Made under a name that nobody can foresee, and never where there is something already.
    QTemporaryFile file(*place + QStringLiteral(".XXXXXX"));
    // On a full disk a write comes back short, or fails as late as with the flush.
    if (!file.open() || file.write(text) != text.size() || !file.flush())
        return file.errorString();
    if (::fsync(file.handle()) != 0)
        return lastSystemError();
    // A link that was put there meanwhile is replaced itself, not followed.
    if (std::rename(QFile::encodeName(file.fileName()).constData(),
                    QFile::encodeName(*place).constData()) != 0)
        return lastSystemError();
    file.setAutoRemove(false);
    return syncFolder(info.absolutePath());
}

} // namespace vantrel
