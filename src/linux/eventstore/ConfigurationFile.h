#pragma once

#include <QJsonObject>
#include <QLatin1String>
#include <QStandardPaths>
#include <QString>

#include <optional>

namespace vantrel {

/// A small JSON object that a person, an administrator or the program itself has written.
struct ConfigurationFile {
    enum class State { missing, unreadable, read };

    State state = State::missing;
    QJsonObject object;
};

/// A file that is there and holds no JSON object (of at most 1 MB) is unreadable and is logged; so
/// is one that cannot be looked for, behind a symbolic link that leads nowhere.
[[nodiscard]] ConfigurationFile readConfigurationFile(const QString &path);

/// Where a file of that name lies: directly in `profile` when there is one, else in the folder
/// `Vantrel` of the user's location.
[[nodiscard]] QString placeBelow(const std::optional<QString> &profile,
                                 QStandardPaths::StandardLocation location, QLatin1String name);

} // namespace vantrel
