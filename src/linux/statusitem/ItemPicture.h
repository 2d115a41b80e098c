#pragma once

#include "ItemLook.h"
#include "SymbolArt.h"

#include <QColor>
#include <QImage>

namespace vantrel {

/// A tone that stands out from light panels and from dark ones, for hosts that do not tint.
inline constexpr QColor unknownPanelTone{0x82, 0x82, 0x82};

[[nodiscard]] QColor toQColor(const Color &color);

/// The symbol in `tone`, `side` pixels high and wide; with a title, the title's dot at the lower
/// right, its edges on whole pixels and a gap around it.
[[nodiscard]] QImage itemPicture(const ItemLook &look, int side, const QColor &tone,
                                 const SymbolArt &art);

} // namespace vantrel
