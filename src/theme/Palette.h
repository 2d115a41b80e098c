#pragma once

#include <platform/Color.h>

namespace vantrel {

/// The colours that one window is drawn with.
struct Palette {
    Color surfaceBackground;
    Color primaryText;
    Color secondaryText; ///< The primary text at reduced opacity.
    Color accent;
    Color accentForeground; ///< What is drawn on top of the accent.
    Color dimSurface;
    Color dotStroke; ///< The accent at low opacity.
    bool isDark = false;

    bool operator==(const Palette &) const = default;
};

} // namespace vantrel
