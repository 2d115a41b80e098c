#pragma once

#include <QSocketNotifier>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename T>
using XReply = std::unique_ptr<T, FreeReply>;

/// A connection of its own to the X server that DISPLAY names, apart from Qt's: the windows of a
/// system tray are no windows of Qt's, and no error about one of them reaches its log.
class X11Link {
public:
    using OnEvent = std::function<void(const xcb_generic_event_t &event)>;

    /// Events arrive from the event loop, and from within `drain`.
    explicit X11Link(OnEvent onEvent);
    X11Link(const X11Link &) = delete;
    X11Link &operator=(const X11Link &) = delete;
    ~X11Link();

    /// False without a server, and once it has gone.
    [[nodiscard]] bool isAlive() const;

    [[nodiscard]] xcb_connection_t *connection() const { return m_connection; }
    [[nodiscard]] const xcb_screen_t &screen() const { return *m_screen; }
    [[nodiscard]] int screenNumber() const { return m_screenNumber; }
    [[nodiscard]] xcb_atom_t atom(const char *name) const;

    /// The 32-bit values of a property; empty where there is none.
    [[nodiscard]] std::vector<std::uint32_t> values(xcb_window_t window, xcb_atom_t property) const;

    /// Hands on the events that came with the answer to a question, and sends what waits. To be
    /// called after each question that was not asked from within `onEvent`.
    void drain();

private:
    OnEvent m_onEvent;
    int m_screenNumber = 0;
    xcb_connection_t *m_connection;
    xcb_screen_t *m_screen = nullptr;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace vantrel
