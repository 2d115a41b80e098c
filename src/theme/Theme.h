#pragma once

#include "Palette.h"

#include <QString>

#include <array>
#include <optional>

namespace vantrel {

/// One of the looks that the user can pick.
enum class Theme { hearth, summit, alpineDawn, dusk, chestnut };

/// All themes, in the order in which they are offered.
inline constexpr std::array allThemes{Theme::hearth, Theme::summit, Theme::alpineDawn, Theme::dusk,
                                      Theme::chestnut};

/// The name under which a theme is stored; equal to the name of its case.
[[nodiscard]] QString rawValue(Theme theme);

/// Empty for a name that is no theme's.
[[nodiscard]] std::optional<Theme> themeFromRawValue(const QString &rawValue);

/// The theme's name as shown.
[[nodiscard]] QString name(Theme theme);

/// One line about the theme, as shown beneath its name.
[[nodiscard]] QString description(Theme theme);

/// The theme's colours: built on first use, then the same object each time. Safe to ask for from
/// any thread.
[[nodiscard]] const Palette &palette(Theme theme);

} // namespace vantrel
