#pragma once

#include <platform/Published.h>

#include <functional>
#include <utility>

namespace vantrel {

/// The side of a setting that subscribers see: they are told of its values and cannot assign one
/// past the store. Good as long as the store.
template <typename T>
class SettingPublisher {
public:
    explicit SettingPublisher(Published<T> &setting) : m_setting(setting) {}

    /// Calls `subscriber` with the current value at once and with each assigned one before it is
    /// stored, also when it equals the old. A value beyond its range is followed by the clamped
    /// one.
    [[nodiscard]] Subscription subscribe(std::function<void(const T &)> subscriber) const {
        return m_setting.subscribe(std::move(subscriber));
    }

private:
    Published<T> &m_setting;
};

} // namespace vantrel
