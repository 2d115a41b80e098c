#include "JsonUserDefaults.h"

#include <QJsonArray>
#include <QStandardPaths>

#include <cmath>
#include <limits>

namespace vantrel {

namespace {

/// Empty for anything but a whole number of 64 bits.
std::optional<std::int64_t> wholeNumber(const QJsonValue &value) {
    // The second default tells a real 0 from a value that is no such number.
    const qint64 number = value.toInteger(0);
    if (number != value.toInteger(1))
        return std::nullopt;
    return number;
}

std::int64_t truncated(double number) {
    constexpr double limit = 9223372036854775808.0; // 2^63, the first that does not fit
    if (number >= limit)
        return std::numeric_limits<std::int64_t>::max();
    if (number < -limit)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(number);
}

} // namespace

JsonUserDefaults::JsonUserDefaults(const QString &path)
    : m_path(path), m_file(path), m_objects(m_file.load()), m_onDisk(m_objects) {}

void JsonUserDefaults::follow(MainQueue &queue) {
    m_watch = std::make_unique<SettingsWatch>(queue, m_path, [this] { look(); });
    look();
}

/// Answers whether somebody else has changed the file.
bool JsonUserDefaults::takeOver() {
    const auto object = m_file.loadAgain();
    if (!object || *object == m_onDisk)
        return false;
    m_objects = *object;
    m_onDisk = *object;
    m_isSaved = true;
    return true;
}

void JsonUserDefaults::look() {
    if (takeOver())
        changedOutside.announce();
}

QString JsonUserDefaults::defaultPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Vantrel/settings.json");
}

bool JsonUserDefaults::hasObject(const QString &key) const {
    return m_objects.contains(key);
}

std::int64_t JsonUserDefaults::integer(const QString &key) const {
    const QJsonValue value = m_objects.value(key);
    if (value.isBool())
        return value.toBool() ? 1 : 0;
    return wholeNumber(value).value_or(truncated(value.toDouble(0.0)));
}

bool JsonUserDefaults::boolean(const QString &key) const {
    const QJsonValue value = m_objects.value(key);
    return value.isDouble() ? value.toDouble() != 0.0 : value.toBool(false);
}

std::optional<QString> JsonUserDefaults::string(const QString &key) const {
    const QJsonValue value = m_objects.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QStringList> JsonUserDefaults::stringArray(const QString &key) const {
    const QJsonValue value = m_objects.value(key);
    if (!value.isArray())
        return std::nullopt;
    QStringList strings;
    for (const auto &element : value.toArray()) {
        if (!element.isString())
            return std::nullopt;
        strings.append(element.toString());
    }
    return strings;
}

std::optional<std::vector<std::int64_t>> JsonUserDefaults::integerArray(const QString &key) const {
    const QJsonValue value = m_objects.value(key);
    if (!value.isArray())
        return std::nullopt;
    std::vector<std::int64_t> integers;
    for (const auto &element : value.toArray()) {
        const auto number = wholeNumber(element);
        if (!number)
            return std::nullopt;
        integers.push_back(*number);
    }
    return integers;
}

void JsonUserDefaults::setInteger(const QString &key, std::int64_t value) {
    store(key, static_cast<qint64>(value));
}

void JsonUserDefaults::setBoolean(const QString &key, bool value) {
    store(key, value);
}

void JsonUserDefaults::setString(const QString &key, const QString &value) {
    store(key, value);
}

void JsonUserDefaults::setStringArray(const QString &key, const QStringList &value) {
    store(key, QJsonArray::fromStringList(value));
}

void JsonUserDefaults::setIntegerArray(const QString &key, const std::vector<std::int64_t> &value) {
    QJsonArray array;
    for (const std::int64_t element : value)
        array.append(static_cast<qint64>(element));
    store(key, array);
}

void JsonUserDefaults::removeObject(const QString &key) {
    store(key, QJsonValue::Undefined);
}

/// Removes the key when the value is undefined. What is on the disk already is not written again;
/// after a failure the whole state is.
void JsonUserDefaults::store(const QString &key, const QJsonValue &value) {
    // What somebody has written and nobody has told of yet would be lost.
    const bool isChangedOutside = m_watch && takeOver();
    if (m_objects.value(key) != value || !m_isSaved) {
        if (value.isUndefined())
            m_objects.remove(key);
        else
            m_objects.insert(key, value);
        m_isSaved = m_file.save(m_objects);
        if (m_isSaved)
            m_onDisk = m_objects;
    }
    // Last: whoever reads anew finds the value that is being set.
    if (isChangedOutside)
        changedOutside.announce();
}

} // namespace vantrel
