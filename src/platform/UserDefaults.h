#pragma once

#include "Published.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel {

/// A persistent key-value store with typed values. Every change is written through at once; a
/// write that fails is logged and leaves the value standing in memory. Main thread only.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// What is stored was changed by somebody else, in the file itself say. Announced from the
    /// event loop, or at the end of a call that changes something.
    Announcer<> changedOutside;

    /// Whether anything at all is stored under the key.
    [[nodiscard]] virtual bool hasObject(const QString &key) const = 0;

    /// 0 for a missing key and for an object that is not a number; a boolean reads as 0 or 1, a
    /// number with a fraction loses it.
    [[nodiscard]] virtual std::int64_t integer(const QString &key) const = 0;

    /// False for a missing key and for an object that is neither boolean nor number; a number
    /// reads as whether it differs from 0.
    [[nodiscard]] virtual bool boolean(const QString &key) const = 0;

    /// Empty for a missing key and for an object that is not a string.
    [[nodiscard]] virtual std::optional<QString> string(const QString &key) const = 0;

    /// Empty for a missing key and for an array with any element that is not a string.
    [[nodiscard]] virtual std::optional<QStringList> stringArray(const QString &key) const = 0;

    /// Empty for a missing key and for an array with any element that is not a whole number.
    [[nodiscard]] virtual std::optional<std::vector<std::int64_t>>
    integerArray(const QString &key) const = 0;

    virtual void setInteger(const QString &key, std::int64_t value) = 0;
    virtual void setBoolean(const QString &key, bool value) = 0;
    virtual void setString(const QString &key, const QString &value) = 0;
    virtual void setStringArray(const QString &key, const QStringList &value) = 0;
    virtual void setIntegerArray(const QString &key, const std::vector<std::int64_t> &value) = 0;

    /// Harmless for a missing key.
    virtual void removeObject(const QString &key) = 0;
};

} // namespace vantrel
