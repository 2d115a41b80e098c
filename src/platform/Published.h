#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vantrel {

/// Keeps a subscriber subscribed; dropping it ends the subscription. It may be dropped from
/// within the subscriber, and may outlive what it is subscribed to.
using Subscription = std::shared_ptr<void>;

/// A list of callbacks that are called in the order in which they subscribed. A subscriber that
/// joins during a call is first called at the next one. Main thread only.
template <typename... Values>
class Announcer {
public:
    using Subscriber = std::function<void(const Values &...)>;

    [[nodiscard]] Subscription subscribe(Subscriber subscriber) {
        auto entry = std::make_shared<Subscriber>(std::move(subscriber));
        m_subscribers.push_back(entry);
        return entry;
    }

    void announce(const Values &...values) {
        const auto subscribers = m_subscribers;
        for (const auto &weak : subscribers) {
            if (const auto subscriber = weak.lock())
                (*subscriber)(values...);
        }
        std::erase_if(m_subscribers, [](const auto &weak) { return weak.expired(); });
    }

private:
    std::vector<std::weak_ptr<Subscriber>> m_subscribers;
};

/// One observable value. A subscriber gets the current value at once and is told of each new one
/// before it is stored, also when it equals the old. Main thread only.
template <typename T>
class Published {
public:
    explicit Published(T initial) : m_value(std::move(initial)) {}
    Published(const Published &) = delete;
    Published &operator=(const Published &) = delete;

    [[nodiscard]] const T &value() const { return m_value; }

    [[nodiscard]] Subscription subscribe(std::function<void(const T &)> subscriber) {
        subscriber(m_value);
        return m_subscribers.subscribe(std::move(subscriber));
    }

    void set(T value) {
        m_subscribers.announce(value);
        m_value = std::move(value);
    }

private:
    T m_value;
    Announcer<T> m_subscribers;
};

} // namespace vantrel
