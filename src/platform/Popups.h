#pragma once

#include "ViewContent.h"

#include <QRect>

#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

/// How a popup lies along the edge of its anchor.
enum class PopupAlignment {
    centred, ///< In its middle, with a little air between.
    leading  ///< From its beginning on, where reading begins, and close to it, as menus do.
};

/// Where a popup belongs, in the coordinates of `Screen::frame`.
struct PopupPlace {
    /// The window lies beside it, beneath where there is room; it has no size where only a point
    /// is known. Empty: in the corner of the screen where the status area usually is.
    std::optional<QRect> anchor;
    PopupAlignment alignment = PopupAlignment::centred;
};

/// A window that belongs to a place on the screen and goes away by itself: on Escape, on a click
/// elsewhere, when another window gets the keyboard. As large as its content wants to be (its
/// implicit size, followed while it is shown), and whole on the screen at any scale.
///
/// A popup that is shown while another has the keyboard lies on top of that one: closing the lower
/// one closes it, closing it gives the keyboard back, and a click into the lower one does nothing
/// but close it.
class Popup {
public:
    virtual ~Popup() = default;

    /// Shows it with the keyboard in it. Where it is shown already it is moved.
    virtual void show(const PopupPlace &place) = 0;

    /// Harmless when it is not shown.
    virtual void close() = 0;

    [[nodiscard]] virtual bool isShown() const = 0;
};

/// What a popup tells. Called on the main thread; never from within `close()` of a popup that is
/// not shown. The popup may be destroyed from within `didClose` and from within its own content.
struct PopupListener {
    std::function<void()> didShow;  ///< Before its first frame.
    std::function<void()> didClose; ///< Whatever closed it.
};

/// Makes popups. Main thread only.
///
/// A click elsewhere closes a popup when its button is let go, not before: where the click is on
/// the item that the popup hangs from, the item's own news of it arrives close to that moment,
/// whether its host tells of the press or of the release. Content with a property `cornerRadius`
/// is told which one its window can have: zero where nothing blends windows.
class Popups {
public:
    virtual ~Popups() = default;

    /// Not shown yet; the window is made when it is shown for the first time, and kept.
    [[nodiscard]] virtual std::unique_ptr<Popup> makePopup(const ViewContent &content,
                                                           PopupListener listener) = 0;
};

} // namespace vantrel
