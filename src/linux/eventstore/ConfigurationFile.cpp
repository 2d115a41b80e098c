#include "ConfigurationFile.h"

#include <linux/eventstore/files/Files.h>
#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <QFile>
#include <QJsonDocument>

#include <cerrno>
#include <cstring>

namespace vantrel {

namespace {

constexpr std::int64_t maximumFileSize = 1024 * 1024;

ConfigurationFile unreadable(const QString &path, const QString &reason) {
    qCWarning(eventStoreLog).noquote().nospace()
        << logText(path) << ": not read (" << reason << ")";
    return {ConfigurationFile::State::unreadable, {}};
}

} // namespace

ConfigurationFile readConfigurationFile(const QString &path) {
    int number = 0;
    const QByteArray name = QFile::encodeName(path);
    const auto bytes = files::read(name, maximumFileSize, number);
    if (!bytes && (number == ENOENT || number == ENOTDIR) && !files::isBehindBrokenLink(name))
        return {};
    if (!bytes)
        return unreadable(path, QString::fromLocal8Bit(std::strerror(number)));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(*bytes, &error);
    if (document.isObject())
        return {ConfigurationFile::State::read, document.object()};
    return unreadable(path, error.error == QJsonParseError::NoError
                                ? QStringLiteral("no JSON object")
                                : error.errorString());
}

QString placeBelow(const std::optional<QString> &profile, QStandardPaths::StandardLocation location,
                   QLatin1String name) {
    if (profile)
        return *profile + u'/' + name;
    return QStandardPaths::writableLocation(location) + QLatin1String("/Vantrel/") + name;
}

} // namespace vantrel
