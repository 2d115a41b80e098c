#pragma once

#include <platform/UserDefaults.h>

#include <QJsonValue>

#include <map>
#include <vector>

namespace vantrel::fakes {

/// Settings that live as long as the test. `objects` holds them as they would stand in a file, and
/// `writes` the keys in the order in which they were written or removed.
class InMemoryUserDefaults : public UserDefaults {
public:
    std::map<QString, QJsonValue> objects;
    std::vector<QString> writes;

    [[nodiscard]] bool hasObject(const QString &key) const override;
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
    [[nodiscard]] QJsonValue object(const QString &key) const;
    void store(const QString &key, const QJsonValue &value);
};

} // namespace vantrel::fakes
