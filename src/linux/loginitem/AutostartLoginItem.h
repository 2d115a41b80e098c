#pragma once

#include "AutostartEntry.h"

#include <platform/LoginItem.h>

#include <QStringList>

namespace vantrel {

/// The program's entry in the autostart folders, which desktops start their sessions with. The one
/// in the user's folder counts in place of those of the same name that the system has.
class AutostartLoginItem : public LoginItem {
public:
    /// `name` is that of the entry, without a suffix; `command` what it starts: the program's
    /// absolute path and its arguments.
    AutostartLoginItem(const QString &name, QStringList command);

    [[nodiscard]] Status status() const override;
    [[nodiscard]] std::optional<QString> registerItem() override;
    [[nodiscard]] std::optional<QString> unregisterItem() override;

private:
    [[nodiscard]] QString programName() const;
    [[nodiscard]] Status statusOf(const QString &path) const;

    const QString m_name; ///< Of the file, beneath a folder of the base directory specification.
    const QStringList m_command;
};

} // namespace vantrel
