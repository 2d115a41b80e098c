#include "ThemePalette.h"

#include "Theme.h"

namespace vantrel {

ThemePalette::ThemePalette() : m_palette(palette(Theme::hearth)) {}

QColor ThemePalette::color(const Color &color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

} // namespace vantrel
