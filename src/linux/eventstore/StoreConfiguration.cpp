#include "StoreConfiguration.h"

#include "ConfigurationFile.h"

#include <linux/eventstore/evolution/EvolutionSource.h>
#include <linux/eventstore/ical/UserAddress.h>
#include <linux/eventstore/source/StoreLog.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace vantrel {

namespace {

bool isListOfTexts(const QJsonValue &list) {
    const QJsonArray values = list.toArray();
    return list.isUndefined() ||
           (list.isArray() && std::all_of(values.begin(), values.end(),
                                          [](const QJsonValue &value) { return value.isString(); }));
}

/// The texts of an array; whatever else stands there is logged and passed over.
QStringList texts(const QJsonObject &object, const QString &key, const QString &path) {
    QStringList found;
    const QJsonValue list = object.value(key);
    for (const QJsonValue &value : list.toArray()) {
        if (value.isString() && !value.toString().isEmpty())
            found.append(value.toString());
    }
    if (!isListOfTexts(list))
        qCWarning(eventStoreLog).noquote().nospace()
            << path << ": \"" << key << "\" is no list of texts";
    return found;
}

QString withHome(const QString &path) {
    return path.startsWith(QLatin1String("~/")) ? QDir::homePath() + path.mid(1) : path;
}

QString withoutHome(const QString &path) {
    return path.startsWith(QDir::homePath() + u'/') ? u'~' + path.mid(QDir::homePath().size())
                                                    : path;
}

} // namespace

StoreConfiguration StoreConfiguration::ofUser(const std::optional<QString> &profile) {
    const QString path =
        placeBelow(profile, QStandardPaths::GenericConfigLocation, QLatin1String("calendars.json"));
    const ConfigurationFile read = readConfigurationFile(path);
    const QJsonObject &file = read.object;
    StoreConfiguration configuration;
    configuration.roots.push_back(
        {placeBelow(profile, QStandardPaths::GenericDataLocation, QLatin1String("calendars")),
         QStringLiteral("On This Computer"), true});
    if (!profile)
        configuration.evolutionModule = EvolutionSource::moduleOfProgram();
    configuration.roots.front().mayHaveOthers =
        read.state == ConfigurationFile::State::unreadable ||
        !isListOfTexts(file.value(QStringLiteral("folders")));
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

std::vector<CalendarPlace> StoreConfiguration::places() const {
    std::vector<CalendarPlace> places;
    for (const FolderRoot &root : roots) {
        const QString path = QDir::cleanPath(root.path);
        const QString name = root.title.isEmpty() ? path.section(u'/', -1) : root.title;
        places.push_back({name.isEmpty() ? path : name, withoutHome(path)});
    }
    return places;
}

} // namespace vantrel
