#include "InMemoryUserDefaults.h"

#include <QJsonArray>

#include <algorithm>
#include <limits>

namespace vantrel::fakes {

namespace {

/// Empty for anything but a whole number of 64 bits.
std::optional<std::int64_t> wholeNumber(const QJsonValue &value) {
    const qint64 number = value.toInteger(0);
    return number == value.toInteger(1) ? std::optional<std::int64_t>(number) : std::nullopt;
}

std::int64_t nearestWholeNumber(double number) {
    if (number >= 0x1p63)
        return std::numeric_limits<std::int64_t>::max();
    if (number < -0x1p63)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(number);
}

} // namespace

bool InMemoryUserDefaults::hasObject(const QString &key) const {
    return objects.contains(key);
}

std::int64_t InMemoryUserDefaults::integer(const QString &key) const {
    const QJsonValue value = object(key);
    if (value.isBool())
        return value.toBool() ? 1 : 0;
    return wholeNumber(value).value_or(nearestWholeNumber(value.toDouble(0.0)));
}

bool InMemoryUserDefaults::boolean(const QString &key) const {
    const QJsonValue value = object(key);
    return value.isDouble() ? value.toDouble() != 0.0 : value.toBool(false);
}

std::optional<QString> InMemoryUserDefaults::string(const QString &key) const {
    const QJsonValue value = object(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QStringList> InMemoryUserDefaults::stringArray(const QString &key) const {
    const QJsonValue value = object(key);
    if (!value.isArray())
        return std::nullopt;
    QStringList strings;
    for (const QJsonValue &element : value.toArray()) {
        if (!element.isString())
            return std::nullopt;
        strings.append(element.toString());
    }
    return strings;
}

std::optional<std::vector<std::int64_t>>
InMemoryUserDefaults::integerArray(const QString &key) const {
    const QJsonValue value = object(key);
    if (!value.isArray())
        return std::nullopt;
    std::vector<std::int64_t> integers;
    for (const QJsonValue &element : value.toArray()) {
        const auto number = wholeNumber(element);
        if (!number)
            return std::nullopt;
        integers.push_back(*number);
    }
    return integers;
}

void InMemoryUserDefaults::setInteger(const QString &key, std::int64_t value) {
    store(key, QJsonValue(static_cast<qint64>(value)));
}

void InMemoryUserDefaults::setBoolean(const QString &key, bool value) {
    store(key, QJsonValue(value));
}

void InMemoryUserDefaults::setString(const QString &key, const QString &value) {
    store(key, QJsonValue(value));
}

void InMemoryUserDefaults::setStringArray(const QString &key, const QStringList &value) {
    store(key, QJsonArray::fromStringList(value));
}

void InMemoryUserDefaults::setIntegerArray(const QString &key,
                                           const std::vector<std::int64_t> &value) {
    QJsonArray array;
    std::for_each(value.begin(), value.end(),
                  [&](std::int64_t element) { array.append(static_cast<qint64>(element)); });
    store(key, array);
}

void InMemoryUserDefaults::removeObject(const QString &key) {
    objects.erase(key);
    writes.push_back(key);
}

QJsonValue InMemoryUserDefaults::object(const QString &key) const {
    const auto found = objects.find(key);
    return found == objects.end() ? QJsonValue(QJsonValue::Undefined) : found->second;
}

void InMemoryUserDefaults::store(const QString &key, const QJsonValue &value) {
    objects.insert_or_assign(key, value);
    writes.push_back(key);
}

} // namespace vantrel::fakes
