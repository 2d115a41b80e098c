#pragma once

#include <linux/views/X11Connection.h>
#include <platform/Time.h>

#include <QRect>

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

/// The few questions that the shield has for an X server, over Qt's own connection.
namespace vantrel::x11 {

/// The children of the root window, the lowest one first; empty when the server has gone.
[[nodiscard]] std::vector<xcb_window_t> stackingOrder();

struct WindowFacts {
    bool isVisible = false; ///< Mapped, with all its parents, and made to show something.
    bool isUnmanaged = false;
    QRect frame; ///< In the pixels of the root window.
};

/// Of a window that may be gone by the time of the answer: then it is not visible.
[[nodiscard]] WindowFacts describe(xcb_window_t window);

/// Whether the server made the window for itself, as it does for a compositor's overlay.
[[nodiscard]] bool isServersOwn(xcb_window_t window);

/// Puts the window on top of all others.
void raise(xcb_window_t window);

/// Puts the window right below the other one.
void placeBelow(xcb_window_t window, xcb_window_t sibling);

/// Ends a screen saver and wakes monitors that were sent to sleep for want of input.
void wakeMonitors();

/// How long ago a key was pressed or the mouse was used last. Without an answer a long time.
[[nodiscard]] Seconds idleTime();

/// Adds to or takes from the events that Qt's connection gets for a window.
void selectEvents(xcb_window_t window, std::uint32_t mask);
void deselectEvents(xcb_window_t window, std::uint32_t mask);

} // namespace vantrel::x11
