#pragma once

#include "Installation.h"

#include <QString>

namespace vantrel {

/// Where the program came from and how that brings it up to date, in words for the user.
struct UpdateAdvice {
    QString origin;
    QString way;
    QString command; ///< For a terminal; empty where there is none to give.

    bool operator==(const UpdateAdvice &) const = default;
};

/// The program that installs packages of RPM: Fedora's or openSUSE's.
enum class RpmInstaller { dnf, zypper };

/// `file` is the program's own.
[[nodiscard]] UpdateAdvice updateAdvice(const Installation &installation, const QString &file,
                                        RpmInstaller installer);

} // namespace vantrel
