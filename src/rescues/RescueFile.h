#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vantrel {

/// The file behind the rescue log, read and replaced as a whole.
///
/// It may lie in a folder that all users write to. A symbolic link there that somebody else put in
/// its place is not followed, neither for reading nor for writing; the user's own links are.
class RescueFile {
public:
    struct Reading {
        std::optional<QByteArray> text; ///< Empty when there is no file, and on an error.
        QString error;                  ///< Empty when nothing went wrong.
    };

    explicit RescueFile(QString path);

    [[nodiscard]] const QString &path() const { return m_path; }

    /// Never waits for a pipe or a device; whatever is no ordinary file of a sensible size is an
    /// error.
    [[nodiscard]] Reading read() const;

    /// Puts the text in the place of the file, readable by its owner only: whoever reads it, after
    /// a crash as well, finds the old text or the new one. Answers what went wrong.
    [[nodiscard]] std::optional<QString> replace(const QByteArray &text) const;

private:
    QString m_path;
};

} // namespace vantrel
