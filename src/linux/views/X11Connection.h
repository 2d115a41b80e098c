#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

/// Questions for an X server, over Qt's own connection.
namespace vantrel::x11 {

struct FreeDeleter {
    void operator()(void *reply) const { std::free(reply); }
};

template <typename T>
using Reply = std::unique_ptr<T, FreeDeleter>;

/// Null when the program does not run on X11.
[[nodiscard]] xcb_connection_t *connection();

[[nodiscard]] xcb_window_t rootWindow();

} // namespace vantrel::x11
