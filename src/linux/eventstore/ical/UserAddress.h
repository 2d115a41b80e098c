#pragma once

#include <QLatin1String>
#include <QString>

namespace vantrel {

/// A mail address in the form in which two of them are compared: lower case, without "mailto:".
[[nodiscard]] inline QString plainAddress(const QString &address) {
    constexpr QLatin1String scheme("mailto:");
    const QString plain = address.trimmed().toLower();
    return plain.startsWith(scheme) ? plain.mid(scheme.size()) : plain;
}

} // namespace vantrel
