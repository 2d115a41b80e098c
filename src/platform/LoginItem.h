#pragma once

#include <QString>

#include <optional>

namespace vantrel {

/// The program among those that the desktop starts when the user logs in. The desktop keeps the
/// registration, and the user may change it there at any time. Main thread only.
class LoginItem {
public:
    enum class Status {
        notRegistered,
        enabled,          ///< The one state in which the program is started.
        requiresApproval, ///< Registered, and switched off by the user or by the desktop.
        notFound          ///< Registered, but what would be started is not there.
    };

    virtual ~LoginItem() = default;

    /// Read anew each time.
    [[nodiscard]] virtual Status status() const = 0;

    /// Has the program started from the next login on, also where it was switched off. Answers what
    /// went wrong, in words for the user.
    [[nodiscard]] virtual std::optional<QString> registerItem() = 0;

    /// Has it no longer started; harmless where it is not. Answers like `registerItem`.
    [[nodiscard]] virtual std::optional<QString> unregisterItem() = 0;
};

} // namespace vantrel
