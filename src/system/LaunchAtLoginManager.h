#pragma once

#include <platform/LoginItem.h>
#include <platform/Published.h>

#include <QString>

#include <functional>
#include <optional>

namespace vantrel {

/// Whether the program is started at login, as the desktop says; nothing of it is kept here beyond
/// the state that was read last. Main thread only.
class LaunchAtLoginManager {
public:
    /// Reads the state. `item` must outlive the manager.
    explicit LaunchAtLoginManager(LoginItem &item);
    LaunchAtLoginManager(const LaunchAtLoginManager &) = delete;
    LaunchAtLoginManager &operator=(const LaunchAtLoginManager &) = delete;

    /// The state that was read last.
    [[nodiscard]] bool isEnabled() const { return m_isEnabled.value(); }
    /// Calls `subscriber` with the current state at once and with each further one before it is
    /// stored.
    [[nodiscard]] Subscription observeIsEnabled(std::function<void(bool)> subscriber);

    /// Afterwards the state is the one that the desktop reports, which may differ from the one that
    /// was asked for. Answers what went wrong, in the desktop's words; the state then stays.
    [[nodiscard]] std::optional<QString> setEnabled(bool enabled);

    /// Reads the state anew: the user may have changed it elsewhere.
    void refresh();

private:
    LoginItem &m_item;
    Published<bool> m_isEnabled;
};

} // namespace vantrel
