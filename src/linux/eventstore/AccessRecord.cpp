#include "AccessRecord.h"

#include "ConfigurationFile.h"

#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStandardPaths>

#include <unistd.h>

#include <algorithm>

namespace vantrel {

namespace {

const QLatin1String accessKey("calendarAccess");
const QLatin1String granted("granted");
const QLatin1String denied("denied");
const QLatin1String restricted("restricted");

void logSenseless(const QString &path) {
    qCWarning(eventStoreLog).noquote().nospace()
        << logText(path) << ": \"" << accessKey << "\" has no value that is known";
}

bool isRestrictedBy(const QString &path) {
    const auto policy = readConfigurationFile(path);
    if (policy.state == ConfigurationFile::State::missing)
        return false;
    if (policy.state == ConfigurationFile::State::unreadable)
        return true;
    // Whatever else stands there may be a slip in the only thing that a policy can say.
    if (policy.object.value(accessKey).toString() != restricted)
        logSenseless(path);
    for (const QString &key : policy.object.keys()) {
        if (key != accessKey)
            qCWarning(eventStoreLog).noquote().nospace()
                << logText(path) << ": \"" << logText(key) << "\" is not known";
    }
    return true;
}

void makeFolder(const QString &folder) {
    if (QFileInfo::exists(folder) || !QDir().mkpath(folder))
        return;
    // A folder for settings is its owner's alone (XDG base directory specification).
    QFile::setPermissions(folder,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

} // namespace

AccessRecord AccessRecord::ofUser(const std::optional<QString> &profile,
                                  const QString &systemFolder) {
    const QString policyName = QStringLiteral("/Vantrel/policy.json");
    QStringList policies{systemFolder + policyName};
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const auto folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (const QString &folder : folders) {
        if (folder != own && folder != systemFolder)
            policies.append(folder + policyName);
    }
    return {
        placeBelow(profile, QStandardPaths::GenericConfigLocation, QLatin1String("access.json")),
        policies};
}

StoreAuthorization AccessRecord::read() const {
    if (std::any_of(m_policyFiles.begin(), m_policyFiles.end(), &isRestrictedBy))
        return StoreAuthorization::restricted;
    const auto answer = readConfigurationFile(m_answerFile);
    if (answer.state != ConfigurationFile::State::read)
        return StoreAuthorization::notDetermined;
    const QString value = answer.object.value(accessKey).toString();
    if (value == granted)
        return StoreAuthorization::fullAccess;
    if (value == denied)
        return StoreAuthorization::denied;
    logSenseless(m_answerFile);
    return StoreAuthorization::notDetermined;
}

void AccessRecord::keep(bool isGranted) const {
    makeFolder(QFileInfo(m_answerFile).absolutePath());
    const QByteArray text =
        QJsonDocument(QJsonObject{{accessKey, QString(isGranted ? granted : denied)}}).toJson();
    QSaveFile file(m_answerFile);
    // On a full disk a write comes back short or fails as late as in flushing, and committing looks
    // at neither.
    if (!file.open(QIODevice::WriteOnly) ||
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
        file.write(text) != text.size() || !file.flush() || ::fsync(file.handle()) != 0 ||
        !file.commit())
        qCCritical(eventStoreLog).noquote().nospace()
            << logText(m_answerFile) << ": the answer is not kept (" << file.errorString() << ")";
}

} // namespace vantrel
