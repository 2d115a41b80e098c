#pragma once

#include <QPoint>
#include <QRect>

#include <optional>

namespace vantrel {

/// The place of a click that a host tells in the pixels of the screen, in the coordinates of
/// `Screen::frame`. Empty for the zeros of a host that knows none, and for what lies on no screen.
[[nodiscard]] std::optional<QRect> placeOfClick(QPoint pixel);

/// The place of the pointer; empty where the display does not tell it to one without a window
/// there.
[[nodiscard]] std::optional<QRect> placeOfPointer();

/// `placeOfClick` of a frame; by the screen of its middle.
[[nodiscard]] std::optional<QRect> placeOfFrame(const QRect &pixels);

} // namespace vantrel
