#pragma once

#include "Published.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>
#include <vector>

namespace vantrel {

/// One monitor. Two values with the same `id` are the same monitor; the id is good for as long as
/// the monitor stays connected.
struct Screen {
    QString id;
    QRect frame; ///< Place and size in the desktop's device-independent pixels.

    bool operator==(const Screen &) const = default;
};

/// The monitors of the desktop. Main thread only.
class ScreenLayout {
public:
    virtual ~ScreenLayout() = default;

    /// All monitors, in the desktop's order; empty while none is connected.
    [[nodiscard]] virtual std::vector<Screen> screens() const = 0;

    /// The user's main monitor; empty while none is connected.
    [[nodiscard]] virtual std::optional<Screen> mainScreen() const = 0;

    /// In the coordinates of `Screen::frame`; empty where the desktop does not tell.
    [[nodiscard]] virtual std::optional<QPoint> mouseLocation() const = 0;

    /// Announced after monitors came, went, moved or changed their size.
    Announcer<> changed;
};

} // namespace vantrel
