#pragma once

#include <platform/NotificationPermission.h>

#include <functional>
#include <set>
#include <utility>
#include <vector>

namespace vantrel::fakes {

/// Keeps the questions until the test answers; what it is asked for its status it answers at once.
class FakeNotificationPermission : public NotificationPermission {
public:
    Status status = Status::notDetermined;
    int readings = 0;
    std::vector<std::set<NotificationKind>> requests;

    void readStatus(std::function<void(Status)> completion) override {
        ++readings;
        completion(status);
    }

    void requestAuthorization(
        const std::set<NotificationKind> &kinds,
        std::function<void(bool, const std::optional<QString> &)> completion) override {
        requests.push_back(kinds);
        m_completion = std::move(completion);
    }

    /// The answer to the latest request.
    void answer(Status answered, const std::optional<QString> &error = std::nullopt) {
        status = answered;
        m_completion(answered == Status::authorized, error);
    }

private:
    std::function<void(bool, const std::optional<QString> &)> m_completion;
};

} // namespace vantrel::fakes
