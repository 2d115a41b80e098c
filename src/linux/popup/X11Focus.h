#pragma once

#include <xcb/xcb.h>

class QWindow;

/// The keyboard of an X server, for windows that no window manager looks after. Each does nothing
/// off X11.
namespace vantrel::x11 {

/// The window that has the keyboard; none off X11.
[[nodiscard]] xcb_window_t focusedWindow();

/// Gives the keyboard to a window of this program that is shown. Qt's own request bears the time
/// of the last event it saw, and the server drops it where another program got the keyboard since.
void takeFocus(const QWindow &window);

/// Hands the keyboard on to `next`, unless another window than `window` has it by now. The next
/// one may be gone.
void passFocus(const QWindow &window, xcb_window_t next);

/// Whether a program blends the windows into the picture on the screen. Elsewhere than on X11 the
/// desktop itself does.
[[nodiscard]] bool isBlended();

} // namespace vantrel::x11
