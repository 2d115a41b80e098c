#pragma once

#include <QString>

namespace vantrel {

/// What looks after the program's files.
enum class PackageSystem {
    flatpak,
    debian, ///< dpkg and apt.
    rpm,    ///< With dnf or zypper.
    pacman,
    none ///< A build of the user's own, say.
};

struct Installation {
    PackageSystem system = PackageSystem::none;
    QString package; ///< The package's name; empty for none and for a Flatpak.

    bool operator==(const Installation &) const = default;
};

} // namespace vantrel
