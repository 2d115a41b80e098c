#pragma once

#include <QSize>

#include <cstdint>
#include <functional>

struct wl_surface;
struct zwlr_layer_surface_v1;
struct zwlr_layer_surface_v1_listener;
class QScreen;
class QWindow;

namespace vantrel {

class LayerShell;

/// How a surface shares its output with the panels of the desktop.
enum class PanelSpace {
    leftFree, ///< It is as large as they leave it.
    covered
};

enum class KeyboardWish {
    none,
    exclusive ///< At once, and for as long as it is shown.
};

/// One window in the topmost layer of one output, from edge to edge, instead of among the windows
/// of the desktop. The output is fixed. Main thread only.
///
/// It stands before the window is shown and must be gone before it is hidden, since hiding ends
/// what lies beneath the window. The window needs the flag `Qt::BypassWindowManagerHint`.
class LayerSurface {
public:
    struct Listener {
        /// How large the window has to be, in the output's device-independent pixels: the first
        /// time it may be shown from here on. Never called from within a call of this class.
        std::function<void(QSize)> configured;
        /// The output has gone: nothing more will be seen of it. The surface may be destroyed here.
        std::function<void()> closed;
    };

    /// `scope` tells the compositor what the surface is for.
    LayerSurface(const LayerShell &shell, QWindow &window, QScreen &screen, const char *scope,
                 PanelSpace space, KeyboardWish wish, Listener listener);
    LayerSurface(const LayerSurface &) = delete;
    LayerSurface &operator=(const LayerSurface &) = delete;
    ~LayerSurface();

    void setPanelSpace(PanelSpace space);
    void setKeyboardWish(KeyboardWish wish);

private:
    static void configure(void *data, zwlr_layer_surface_v1 *surface, std::uint32_t serial,
                          std::uint32_t width, std::uint32_t height);
    static void close(void *data, zwlr_layer_surface_v1 *surface);
    static const zwlr_layer_surface_v1_listener events;

    const Listener m_listener;
    wl_surface *m_surface;
    zwlr_layer_surface_v1 *m_layerSurface;
};

} // namespace vantrel
