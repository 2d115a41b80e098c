#pragma once

#include <platform/EventStore.h>

#include <QString>
#include <QStringList>

#include <optional>

namespace vantrel {

/// What the user answered when they were asked for their calendars, and what the administrator
/// rules: one small JSON file each, apart from the settings. Both read
/// `{"calendarAccess": VALUE}`.
class AccessRecord {
public:
    AccessRecord(QString answerFile, QStringList policyFiles)
        : m_answerFile(std::move(answerFile)), m_policyFiles(std::move(policyFiles)) {}

    /// The answer in `$XDG_CONFIG_HOME/Vantrel/access.json`, or directly in the folder `profile`
    /// when one is given; policies in `Vantrel/policy.json` in `systemFolder`, whatever the
    /// environment says, which is the user's, and in each folder of `$XDG_CONFIG_DIRS`.
    [[nodiscard]] static AccessRecord
    ofUser(const std::optional<QString> &profile = {},
           const QString &systemFolder = QStringLiteral("/etc/xdg"));

    /// Reads the files. A policy of "restricted" outweighs every answer, and so does, with a log
    /// line, a policy that makes no sense: a slip in it opens nothing. An answer is "granted" or
    /// "denied"; without one, or with a log line when it makes no sense, nobody has been asked.
    [[nodiscard]] StoreAuthorization read() const;

    /// The files that `read` goes by.
    [[nodiscard]] QStringList files() const { return m_policyFiles + QStringList(m_answerFile); }

    /// Replaces the answer in one step, in a file that only its owner reads. A failure is logged.
    void keep(bool isGranted) const;

private:
    QString m_answerFile;
    QStringList m_policyFiles;
};

} // namespace vantrel
