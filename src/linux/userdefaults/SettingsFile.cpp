#include "SettingsFile.h"

#include <platform/Log.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace vantrel {

namespace {

VANTREL_LOG(userDefaultsLog, "UserDefaults")

/// Far more than any settings take.
constexpr qint64 largestFile = 16'000'000;

QString lastSystemError() {
    return QString::fromStdString(std::generic_category().message(errno));
}

/// Puts a rename on the disk: it is there only once its folder is. Answers what went wrong.
std::optional<QString> syncFolder(const QString &folder) {
    const int descriptor =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return lastSystemError();
    // File systems that cannot sync a folder answer EINVAL; there is nothing more to be had there.
    std::optional<QString> error;
    if (::fsync(descriptor) != 0 && errno != EINVAL)
        error = lastSystemError();
    ::close(descriptor);
    return error;
}

/// Opens an ordinary file of a sensible size, and never waits for a pipe or a device. Answers what
/// went wrong.
std::optional<QString> open(QFile &file, const QString &path) {
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return lastSystemError();
    struct stat status = {};
    std::optional<QString> error;
    if (::fstat(descriptor, &status) != 0)
        error = lastSystemError();
    else if (!S_ISREG(status.st_mode))
        error = QStringLiteral("it is no ordinary file");
    else if (status.st_size > largestFile)
        error = QStringLiteral("it is larger than any settings");
    else if (!file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        error = file.errorString();
    if (error)
        ::close(descriptor);
    return error;
}

/// Where the symbolic links at `path` lead in the end, whether there is a file or not: QSaveFile
/// would put a file in place of a link that points nowhere yet. Links may form a circle.
QString linkTarget(QString path) {
    constexpr int mostLinks = 40; // as many as the kernel follows
    for (int link = 0; link < mostLinks && QFileInfo(path).isSymLink(); ++link)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

/// Answers what went wrong; the file then holds the old text or the new one, never a part.
std::optional<QString> replace(const QString &path, const QByteArray &text) {
    const QString target = linkTarget(path);
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly) ||
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
        file.write(text) != text.size() || !file.flush())
        return file.errorString();
    // On a full disk a write comes back short or fails as late as here, and committing looks at
    // neither.
    if (::fsync(file.handle()) != 0)
        return lastSystemError();
    if (!file.commit())
        return file.errorString();
    return syncFolder(QFileInfo(target).absolutePath());
}

void makeFolder(const QString &folder) {
    if (QFileInfo::exists(folder) || !QDir().mkpath(folder))
        return;
    // A folder for settings is its owner's alone (XDG base directory specification).
    QFile::setPermissions(folder,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

} // namespace

SettingsFile::SettingsFile(QString path) : m_path(std::move(path)) {}

QJsonObject SettingsFile::load() {
    QJsonObject object;
    if (const auto error = read(object))
        qCCritical(userDefaultsLog).noquote()
            << "Cannot read the settings" << m_path + QLatin1Char(':') << *error;
    return object;
}

std::optional<QJsonObject> SettingsFile::loadAgain() {
    QJsonObject object;
    const bool isThere = QFileInfo::exists(m_path);
    return !read(object) && isThere ? std::optional(object) : std::nullopt;
}

/// Answers what went wrong. Without a file there is nothing to read.
std::optional<QString> SettingsFile::read(QJsonObject &object) {
    m_isUnreadable = false;
    std::error_code code;
    const auto status = std::filesystem::status(m_path.toStdU16String(), code);
    if (status.type() == std::filesystem::file_type::not_found)
        return std::nullopt;
    QFile file;
    std::optional<QString> error = open(file, m_path);
    if (!error) {
        QJsonParseError parseError;
        const QJsonDocument document = QJsonDocument::fromJson(file.read(largestFile), &parseError);
        if (document.isObject()) {
            object = document.object();
            return std::nullopt;
        }
        error = document.isNull() ? parseError.errorString()
                                  : QStringLiteral("the top level is no object");
    }
    m_isUnreadable = true;
    return error;
}

bool SettingsFile::save(const QJsonObject &object) {
    const std::optional<QString> error = write(object);
    if (error && !m_isFailing)
        qCCritical(userDefaultsLog).noquote()
            << "Cannot save the settings" << m_path + QLatin1Char(':') << *error;
    m_isFailing = error.has_value();
    return !m_isFailing;
}

std::optional<QString> SettingsFile::write(const QJsonObject &object) {
    makeFolder(QFileInfo(m_path).absolutePath());
    if (m_isUnreadable) {
        if (auto error = keepAside())
            return error;
        m_isUnreadable = false;
    }
    return replace(m_path, QJsonDocument(object).toJson(QJsonDocument::Indented));
}

/// Copies the file, so that it stays in place until it is replaced; what cannot be opened is moved.
std::optional<QString> SettingsFile::keepAside() const {
    const QString aside = m_path + QStringLiteral(".unreadable");
    QFile file;
    if (!open(file, m_path))
        return replace(aside, file.read(largestFile));
    std::error_code code;
    std::filesystem::rename(m_path.toStdU16String(), aside.toStdU16String(), code);
    return code ? std::optional(QString::fromStdString(code.message())) : std::nullopt;
}

} // namespace vantrel
