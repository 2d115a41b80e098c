#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <set>

namespace vantrel {

enum class NotificationKind { alert, sound };

/// Whether the desktop shows the program's notifications. Answers come on the main thread, once
/// each and within some seconds, perhaps before the call returns; none comes after this is gone.
class NotificationPermission {
public:
    enum class Status {
        notDetermined, ///< The desktop has not said.
        denied,
        authorized
    };

    virtual ~NotificationPermission() = default;

    virtual void readStatus(std::function<void(Status)> completion) = 0;

    /// Has the desktop, or the user, asked for it. `completion` gets whether it was granted, and
    /// what went wrong.
    virtual void
    requestAuthorization(const std::set<NotificationKind> &kinds,
                         std::function<void(bool, const std::optional<QString> &)> completion) = 0;
};

} // namespace vantrel
