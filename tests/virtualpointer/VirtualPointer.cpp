// A mouse for a compositor without one, plugged in for as long as the program runs. It carries out
// one line of standard input after another and answers each with an empty line:
//
//   move X Y WIDTH HEIGHT    to a place on a desktop of that size
//   press, release           the left button

#include <wayland-client.h>
#include <wlr-virtual-pointer-unstable-v1.h>

#include <cstdint>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

namespace {

constexpr std::uint32_t leftButton = 0x110; // as the kernel counts

struct Globals {
    zwlr_virtual_pointer_manager_v1 *manager = nullptr;
    wl_seat *seat = nullptr;
};

void noteGlobal(void *data, wl_registry *registry, std::uint32_t name, const char *interface,
                std::uint32_t) {
    auto &globals = *static_cast<Globals *>(data);
    if (std::string_view(interface) == zwlr_virtual_pointer_manager_v1_interface.name)
        globals.manager = static_cast<zwlr_virtual_pointer_manager_v1 *>(
            wl_registry_bind(registry, name, &zwlr_virtual_pointer_manager_v1_interface, 1));
    if (std::string_view(interface) == wl_seat_interface.name)
        globals.seat =
            static_cast<wl_seat *>(wl_registry_bind(registry, name, &wl_seat_interface, 1));
}

constexpr wl_registry_listener listener{&noteGlobal, [](void *, wl_registry *, std::uint32_t) {}};

bool carryOut(const std::string &line, zwlr_virtual_pointer_v1 *pointer, std::uint32_t time) {
    std::istringstream words(line);
    std::string verb;
    words >> verb;
    if (verb == "move") {
        std::uint32_t x = 0, y = 0, width = 0, height = 0;
        if (!(words >> x >> y >> width >> height))
            return false;
        zwlr_virtual_pointer_v1_motion_absolute(pointer, time, x, y, width, height);
    } else if (verb == "press" || verb == "release") {
        zwlr_virtual_pointer_v1_button(pointer, time, leftButton,
                                       verb == "press" ? WL_POINTER_BUTTON_STATE_PRESSED
                                                       : WL_POINTER_BUTTON_STATE_RELEASED);
    } else {
        return false;
    }
    zwlr_virtual_pointer_v1_frame(pointer);
    return true;
}

} // namespace

int main() {
    wl_display *display = wl_display_connect(nullptr);
    if (!display)
        return 1;
    Globals globals;
    wl_registry *registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &listener, &globals);
    wl_display_roundtrip(display);
    if (!globals.manager || !globals.seat)
        return 1;
    auto *pointer =
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(globals.manager, globals.seat);
    wl_display_roundtrip(display);
    std::cout << std::endl;
    std::uint32_t time = 0;
    for (std::string line; std::getline(std::cin, line); time += 10) {
        if (!carryOut(line, pointer, time) || wl_display_roundtrip(display) < 0)
            return 1;
        std::cout << std::endl;
    }
    wl_display_disconnect(display);
    return 0;
}
