#include "StoreConfiguration.h"

#include "ConfigurationFile.h"

#include <linux/eventstore/evolution/AccountPlaces.h>
#include <linux/eventstore/evolution/EvolutionSource.h>
#include <linux/eventstore/ical/UserAddress.h>
#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <map>
#include <set>

namespace vantrel {

namespace {

bool isListOfTexts(const QJsonValue &list) {
    const QJsonArray values = list.toArray();
    return list.isUndefined() || (list.isArray() && std::all_of(values.begin(), values.end(),
                                                                [](const QJsonValue &value) {
                                                                    return value.isString();
                                                                }));
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
            << logText(path) << ": \"" << key << "\" is no list of texts";
    return found;
}

QString withHome(const QString &path) {
    return path.startsWith(QLatin1String("~/")) ? QDir::homePath() + path.mid(1) : path;
}

QString withoutHome(const QString &path) {
    return path.startsWith(QDir::homePath() + u'/') ? u'~' + path.mid(QDir::homePath().size())
                                                    : path;
}

QString nameOf(const FolderRoot &root) {
    return root.title.isEmpty() ? QDir::cleanPath(root.path).section(u'/', -1) : root.title;
}

/// Places of one name get their paths for titles, so that people can tell them apart.
void tellApart(std::vector<FolderRoot> &roots) {
    std::map<QString, std::set<QString>> places;
    for (const FolderRoot &root : roots)
        places[nameOf(root)].insert(QDir::cleanPath(root.path));
    for (FolderRoot &root : roots) {
        if (root.title.isEmpty() && places[nameOf(root)].size() > 1)
            root.title = withoutHome(QDir::cleanPath(root.path));
    }
}

} // namespace

StoreConfiguration StoreConfiguration::ofUser(const std::optional<QString> &profile) {
    StoreConfiguration configuration;
    configuration.file =
        placeBelow(profile, QStandardPaths::GenericConfigLocation, QLatin1String("calendars.json"));
    configuration.roots.push_back(
        {placeBelow(profile, QStandardPaths::GenericDataLocation, QLatin1String("calendars")),
         QStringLiteral("Calendar Folder"), true});
    if (!profile)
        configuration.evolutionModule = EvolutionSource::moduleOfProgram();
    const auto read = readConfigurationFile(*configuration.file);
    configuration.take(read.object);
    if (read.state == ConfigurationFile::State::unreadable)
        configuration.mayNameOthers = true;
    return configuration;
}

StoreConfiguration StoreConfiguration::ofPaths(const QStringList &paths,
                                               const std::optional<QString> &profile) {
    StoreConfiguration configuration;
    configuration.addresses = ofUser(profile).addresses;
    for (const QString &path : paths)
        configuration.roots.push_back({path, {}, false});
    return configuration;
}

std::optional<StoreConfiguration> StoreConfiguration::readAgain() const {
    const auto read = readConfigurationFile(*file);
    if (read.state == ConfigurationFile::State::unreadable) {
        qCWarning(eventStoreLog) << "the calendar folders and addresses stay as they were";
        return std::nullopt;
    }
    StoreConfiguration configuration = *this;
    std::erase_if(configuration.roots, [](const FolderRoot &root) { return !root.isCalendarHome; });
    configuration.addresses.clear();
    configuration.take(read.object);
    return configuration;
}

/// Adds what the file names to the calendar home.
void StoreConfiguration::take(const QJsonObject &object) {
    mayNameOthers = !isListOfTexts(object.value(QStringLiteral("folders")));
    for (const QString &folder : texts(object, QStringLiteral("folders"), *file))
        roots.push_back({withHome(folder), {}, false});
    tellApart(roots);
    for (const QString &address : texts(object, QStringLiteral("addresses"), *file))
        addresses.append(plainAddress(address));
}

void StoreConfiguration::leaveOutMissingService() {
    if (evolutionModule && !EvolutionSource::isInstalled(*evolutionModule))
        evolutionModule.reset();
}

std::vector<CalendarPlace> StoreConfiguration::places() const {
    std::vector<CalendarPlace> places;
    for (const FolderRoot &root : roots) {
        const QString path = QDir::cleanPath(root.path);
        const QString name = nameOf(root);
        const QString place = withoutHome(path);
        places.push_back({name.isEmpty() ? path : name, name == place ? QString() : place});
    }
    if (evolutionModule && EvolutionSource::isInstalled(*evolutionModule)) {
        places.push_back({QStringLiteral("Evolution"),
                          QStringLiteral("calendars and birthdays of this desktop")});
        const auto accounts = accountPlaces();
        places.insert(places.end(), accounts.begin(), accounts.end());
    }
    return places;
}

} // namespace vantrel
