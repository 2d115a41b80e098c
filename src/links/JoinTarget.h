#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantrel {

/// Where a video link opens: with the handler registered for it, or always in the browser.
enum class JoinTarget { appWhenInstalled, defaultBrowser };

/// In the order of the preferences picker.
inline constexpr std::array allJoinTargets{JoinTarget::appWhenInstalled,
                                           JoinTarget::defaultBrowser};

/// The target's name in stored settings.
[[nodiscard]] QString rawValue(JoinTarget target);

/// Empty for a name that `rawValue` does not give.
[[nodiscard]] std::optional<JoinTarget> joinTargetFromRawValue(const QString &rawValue);

/// The target's line in the preferences picker.
[[nodiscard]] QString label(JoinTarget target);

} // namespace vantrel
