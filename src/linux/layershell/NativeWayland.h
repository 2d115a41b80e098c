#pragma once

struct wl_display;
struct wl_output;
struct wl_surface;
class QScreen;
class QWindow;

/// What lies beneath Qt's platform on Wayland. Everything is null elsewhere.
namespace vantrel::wayland {

[[nodiscard]] wl_display *display();

/// Null for a window that has not been created.
[[nodiscard]] wl_surface *surface(QWindow &window);

[[nodiscard]] wl_output *output(QScreen &screen);

} // namespace vantrel::wayland
