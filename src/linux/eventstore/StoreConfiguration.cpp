#include "StoreConfiguration.h"

#include <linux/eventstore/source/StoreLog.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace vantrel {

namespace {

constexpr qint64 maximumFileSize = 1024 * 1024;

QString placeBelow(const std::optional<QString> &profile, QStandardPaths::StandardLocation location,
                   QLatin1String name) {
    if (profile)
        return *profile + u'/' + name;
    return QStandardPaths::writableLocation(location) + QLatin1String("/Vantrel/") + name;
}

QJsonObject readFile(const QString &path) {
    QFile file(path);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(eventStoreLog).noquote().nospace()
            << path << ": not read (" << file.errorString() << ")";
        return {};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.read(maximumFileSize), &error);
    if (!document.isObject()) {
        const QString reason = error.error == QJsonParseError::NoError
                                   ? QStringLiteral("no JSON object")
                                   : error.errorString();
        qCWarning(eventStoreLog).noquote().nospace() << path << ": not read (" << reason << ")";
    }
    return document.object();
}

/// The texts of an array; whatever else stands there is logged and passed over.
QStringList texts(const QJsonObject &object, const QString &key, const QString &path) {
    QStringList found;
    const QJsonValue list = object.value(key);
    bool isSound = list.isUndefined() || list.isArray();
    for (const QJsonValue &value : list.toArray()) {
        isSound = isSound && value.isString();
        if (value.isString() && !value.toString().isEmpty())
            found.append(value.toString());
    }
    if (!isSound)
        qCWarning(eventStoreLog).noquote().nospace()
            << path << ": \"" << key << "\" is no list of texts";
    return found;
}

QString plainAddress(const QString &address) {
    const QString plain = address.trimmed().toLower();
    return plain.startsWith(QLatin1String("mailto:")) ? plain.mid(7) : plain;
}

QString withHome(const QString &path) {
    return path.startsWith(QLatin1String("~/")) ? QDir::homePath() + path.mid(1) : path;
}

} // namespace

StoreConfiguration StoreConfiguration::ofUser(const std::optional<QString> &profile) {
    const QString path =
        placeBelow(profile, QStandardPaths::GenericConfigLocation, QLatin1String("calendars.json"));
    const QJsonObject file = readFile(path);
    StoreConfiguration configuration;
    configuration.roots.push_back(
        {placeBelow(profile, QStandardPaths::GenericDataLocation, QLatin1String("calendars")),
         QStringLiteral("On This Computer"), true});
    for (const QString &folder : texts(file, QStringLiteral("folders"), path))
        configuration.roots.push_back({withHome(folder), {}, false});
    for (const QString &address : texts(file, QStringLiteral("addresses"), path))
        configuration.addresses.append(plainAddress(address));
    return configuration;
}

StoreConfiguration StoreConfiguration::ofPaths(const QStringList &paths,
                                               const std::optional<QString> &profile) {
    StoreConfiguration configuration = ofUser(profile);
    configuration.roots.clear();
    for (const QString &path : paths)
        configuration.roots.push_back({path, {}, false});
    return configuration;
}

} // namespace vantrel
