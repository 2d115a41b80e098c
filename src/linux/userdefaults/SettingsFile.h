#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace vantrel {

/// One JSON object on disk, readable by its owner only. A save replaces the whole file in one
/// step, so that whoever reads it, after a crash as well, finds the old text or the new one.
class SettingsFile {
public:
    /// Where `path` is a symbolic link, the file that it points to is read and replaced, and the
    /// link stays.
    explicit SettingsFile(QString path);

    /// No members when there is no file, nor, with a log line, when it is no object. It changes
    /// nothing on the disk.
    [[nodiscard]] QJsonObject load();

    /// What the file holds by now; empty when there is no file, or when it is no object, which it
    /// may be while somebody writes it.
    [[nodiscard]] std::optional<QJsonObject> loadAgain();

    /// Makes the folder when it is missing. A file that could not be read is kept as
    /// `<path>.unreadable` first; where that is not possible, nothing is saved. Answers whether the
    /// object is on the disk; the first failure after a success is logged.
    bool save(const QJsonObject &object);

private:
    [[nodiscard]] std::optional<QString> read(QJsonObject &object);
    [[nodiscard]] std::optional<QString> keepAside() const;
    [[nodiscard]] std::optional<QString> write(const QJsonObject &object);

    QString m_path;
    bool m_isUnreadable = false; ///< The file holds something that nobody has put aside yet.
    bool m_isFailing = false;
};

} // namespace vantrel
