#include "LayerSurface.h"

#include "LayerShell.h"
#include "NativeWayland.h"

#include <QScreen>
#include <QWindow>

#include <wayland-client.h>
#include <wlr-layer-shell-unstable-v1.h>

#include <utility>

namespace vantrel {

namespace {

constexpr std::uint32_t allEdges =
    ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
    ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;

constexpr int zone(PanelSpace space) {
    return space == PanelSpace::covered ? -1 : 0;
}

constexpr std::uint32_t interactivity(KeyboardWish wish) {
    return wish == KeyboardWish::exclusive ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE
                                           : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE;
}

} // namespace

const zwlr_layer_surface_v1_listener LayerSurface::events{&LayerSurface::configure,
                                                          &LayerSurface::close};

LayerSurface::LayerSurface(const LayerShell &shell, QWindow &window, QScreen &screen,
                           const char *scope, PanelSpace space, KeyboardWish wish,
                           Listener listener)
    : m_listener(std::move(listener)) {
    window.create();
    m_surface = wayland::surface(window);
    m_layerSurface =
        zwlr_layer_shell_v1_get_layer_surface(shell.handle(), m_surface, wayland::output(screen),
                                              ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, scope);
    zwlr_layer_surface_v1_add_listener(m_layerSurface, &events, this);
    zwlr_layer_surface_v1_set_anchor(m_layerSurface, allEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(m_layerSurface, zone(space));
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_layerSurface, interactivity(wish));
    wl_surface_commit(m_surface);
}

LayerSurface::~LayerSurface() {
    zwlr_layer_surface_v1_destroy(m_layerSurface);
}

void LayerSurface::setPanelSpace(PanelSpace space) {
    zwlr_layer_surface_v1_set_exclusive_zone(m_layerSurface, zone(space));
    wl_surface_commit(m_surface);
}

void LayerSurface::setKeyboardWish(KeyboardWish wish) {
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_layerSurface, interactivity(wish));
    wl_surface_commit(m_surface);
}

void LayerSurface::configure(void *data, zwlr_layer_surface_v1 *surface, std::uint32_t serial,
                             std::uint32_t width, std::uint32_t height) {
    zwlr_layer_surface_v1_ack_configure(surface, serial);
    const auto configured = static_cast<LayerSurface *>(data)->m_listener.configured;
    configured({static_cast<int>(width), static_cast<int>(height)});
}

void LayerSurface::close(void *data, zwlr_layer_surface_v1 *) {
    const auto closed = static_cast<LayerSurface *>(data)->m_listener.closed;
    closed();
}

} // namespace vantrel
