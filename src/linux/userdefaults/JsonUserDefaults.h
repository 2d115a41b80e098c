#pragma once

#include "SettingsFile.h"
#include "SettingsWatch.h"

#include <platform/UserDefaults.h>

#include <QJsonObject>
#include <QJsonValue>

#include <memory>

namespace vantrel {

/// The user's settings in one JSON file, read once unless it is followed. Members that the program
/// does not know stay as they are. A call that changes something waits for the disk.
class JsonUserDefaults : public UserDefaults {
public:
    explicit JsonUserDefaults(const QString &path = defaultPath());

    /// `Vantrel/settings.json` in the user's folder for settings.
    [[nodiscard]] static QString defaultPath();

    /// Takes over what others write into the file from now on. While it cannot be read, or is not
    /// there, what is known of it holds. `queue` must outlive this object.
    void follow(MainQueue &queue);

    [[nodiscard]] bool hasObject(const QString &key) const override;
    /// A number beyond 64 bits reads as the nearest one that fits.
    [[nodiscard]] std::int64_t integer(const QString &key) const override;
    [[nodiscard]] bool boolean(const QString &key) const override;
    [[nodiscard]] std::optional<QString> string(const QString &key) const override;
    [[nodiscard]] std::optional<QStringList> stringArray(const QString &key) const override;
    [[nodiscard]] std::optional<std::vector<std::int64_t>>
    integerArray(const QString &key) const override;

    void setInteger(const QString &key, std::int64_t value) override;
    void setBoolean(const QString &key, bool value) override;
    void setString(const QString &key, const QString &value) override;
    void setStringArray(const QString &key, const QStringList &value) override;
    void setIntegerArray(const QString &key, const std::vector<std::int64_t> &value) override;
    void removeObject(const QString &key) override;

private:
    [[nodiscard]] bool takeOver();
    void look();
    void store(const QString &key, const QJsonValue &value);

    const QString m_path;
    SettingsFile m_file;
    QJsonObject m_objects;
    QJsonObject m_onDisk;  ///< As it was read or saved last.
    bool m_isSaved = true; ///< Whether the file holds `m_objects`.
    std::unique_ptr<SettingsWatch> m_watch;
};

} // namespace vantrel
