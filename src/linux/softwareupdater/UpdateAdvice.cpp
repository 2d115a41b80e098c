#include "UpdateAdvice.h"

#include <platform/Log.h>

namespace vantrel {

namespace {

QString packageWay() {
    return QStringLiteral("Your system updates it together with everything else. To do so now, "
                          "type in a terminal:");
}

QString fromPackage(const QString &package) {
    return QStringLiteral("It was installed from your system's package “%1”.").arg(package);
}

QString commandOfRpm(RpmInstaller installer) {
    switch (installer) {
    case RpmInstaller::dnf:
        return QStringLiteral("sudo dnf upgrade %1");
    case RpmInstaller::zypper:
        return QStringLiteral("sudo zypper update %1");
    }
    Q_UNREACHABLE();
}

} // namespace

UpdateAdvice updateAdvice(const Installation &installation, const QString &file,
                          RpmInstaller installer) {
    const QString &package = installation.package;
    switch (installation.system) {
    case PackageSystem::flatpak:
        return {QStringLiteral("It was installed as a Flatpak."), packageWay(),
                QStringLiteral("flatpak update %1").arg(QLatin1String(applicationId))};
    case PackageSystem::debian:
        return {
            fromPackage(package), packageWay(),
            QStringLiteral("sudo apt update && sudo apt install --only-upgrade %1").arg(package)};
    case PackageSystem::rpm:
        return {fromPackage(package), packageWay(), commandOfRpm(installer).arg(package)};
    case PackageSystem::pacman:
        return {fromPackage(package), packageWay(), QStringLiteral("sudo pacman -Syu")};
    case PackageSystem::none:
        return {QStringLiteral("It runs from %1, which belongs to no package of this system.")
                    .arg(file),
                QStringLiteral("Nothing updates it by itself: build it anew from newer sources, "
                               "or install a package of it."),
                {}};
    }
    Q_UNREACHABLE();
}

} // namespace vantrel
