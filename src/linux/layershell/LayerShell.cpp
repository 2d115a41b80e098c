#include "LayerShell.h"

#include "NativeWayland.h"

#include <QByteArray>

#include <wayland-client.h>
#include <wlr-layer-shell-unstable-v1.h>

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace vantrel {

namespace {

/// The latest one that the description in this folder knows.
constexpr std::uint32_t newestVersion = 4;

void noteGlobal(void *data, wl_registry *registry, std::uint32_t name, const char *interface,
                std::uint32_t version) {
    if (std::string_view(interface) != zwlr_layer_shell_v1_interface.name)
        return;
    *static_cast<zwlr_layer_shell_v1 **>(data) =
        static_cast<zwlr_layer_shell_v1 *>(wl_registry_bind(
            registry, name, &zwlr_layer_shell_v1_interface, std::min(version, newestVersion)));
}

void ignoreRemoval(void *, wl_registry *, std::uint32_t) {}

constexpr wl_registry_listener registryListener{&noteGlobal, &ignoreRemoval};

/// On a queue of its own, so that none of Qt's events is dispatched out of turn.
zwlr_layer_shell_v1 *findShell(wl_display *display) {
    zwlr_layer_shell_v1 *shell = nullptr;
    wl_event_queue *queue = wl_display_create_queue(display);
    auto *wrapper = static_cast<wl_display *>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper), queue);
    wl_registry *registry = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    wl_registry_add_listener(registry, &registryListener, &shell);
    wl_display_roundtrip_queue(display, queue);
    wl_registry_destroy(registry);
    // What the shell makes is heard of on the queue that Qt's loop dispatches.
    if (shell)
        wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(shell), nullptr);
    wl_event_queue_destroy(queue);
    return shell;
}

} // namespace

LayerShell::LayerShell() {
    wl_display *display = wayland::display();
    if (!display || qgetenv("VANTREL_LAYER_SHELL") == "off")
        return;
    m_shell = findShell(display);
    // Without it Qt makes a window of the desktop's of every surface.
    if (m_shell)
        qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", QByteArrayLiteral("1"));
}

LayerShell::~LayerShell() {
    if (!m_shell)
        return;
    if (zwlr_layer_shell_v1_get_version(m_shell) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION)
        zwlr_layer_shell_v1_destroy(m_shell);
    else
        wl_proxy_destroy(reinterpret_cast<wl_proxy *>(m_shell));
}

} // namespace vantrel
