#pragma once

#include <QByteArray>
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

    /// No members when there is no file. What cannot be read as an object is logged and kept aside
    /// as `<path>.unreadable`, where no save overwrites it.
    [[nodiscard]] QJsonObject load() const;

    /// Makes the folder when it is missing. Answers whether the object is on the disk; the first
    /// failure after a success is logged.
    bool save(const QJsonObject &object);

private:
    void keepAside(const std::optional<QByteArray> &text) const;

    QString m_path;
    bool m_isFailing = false;
};

} // namespace vantrel
