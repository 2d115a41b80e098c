#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include <xcb/xcb.h>

#include <set>
#include <string>

namespace vantrel::tests {

/// Another client of the X server: a program with windows of its own, and the
/// hand at the keyboard and the mouse. Every call is answered by the server
/// before it returns.
class OtherProgram {
public:
    OtherProgram();
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;
    ~OtherProgram();

    enum class Kind { ordinary, fullScreen, dock, unmanaged };

    /// Asks for a window to be mapped; a window manager takes its time.
    xcb_window_t openWindow(Kind kind, const QRect &frame, const QColor &color);

    void closeWindow(xcb_window_t window);
    void raise(xcb_window_t window);
    void focus(xcb_window_t window);
    [[nodiscard]] xcb_window_t focused();
    /// Of two windows that no window manager has put into a frame.
    [[nodiscard]] bool isAbove(xcb_window_t higher, xcb_window_t lower);
    [[nodiscard]] bool isViewable(xcb_window_t window);

    /// Answers whether the server granted it.
    bool grabKeyboard();
    void letGoOfKeyboard();

    void pressKey(xcb_keycode_t key);
    void releaseKey(xcb_keycode_t key);
    void strikeKey(xcb_keycode_t key);
    enum class Button : std::uint8_t { left = 1, right = 3, wheelDown = 5 };
    void pressButton(QPoint place, Button button = Button::left);
    void releaseButton(Button button = Button::left);
    void click(QPoint place);

    /// What stands on the screen.
    [[nodiscard]] QImage picture(const QRect &area);

    /// Whether a window manager announces itself; forgets one that has gone.
    [[nodiscard]] bool hasWindowManager();
    void forgetWindowManager();

    /// Whether a program blends the windows into the picture on the screen.
    [[nodiscard]] bool isBlended();

    /// Whether any visible window says that it is of this class.
    [[nodiscard]] bool showsWindowOfClass(const std::string &name);

    /// A 32-bit number from a window's property; zero when it is not there.
    [[nodiscard]] std::uint32_t number(xcb_window_t window, const char *property);

    [[nodiscard]] xcb_window_t root() const { return m_screen->root; }
    [[nodiscard]] xcb_connection_t *connection() const { return m_connection; }

private:
    [[nodiscard]] xcb_atom_t atom(const char *name);
    [[nodiscard]] bool isOfClass(xcb_window_t window, const std::string &name);
    void setAtoms(xcb_window_t window, const char *property, const char *value);
    void fake(std::uint8_t type, std::uint8_t detail, QPoint place = {});
    void settle();

    xcb_connection_t *m_connection;
    xcb_screen_t *m_screen;
    std::set<xcb_keycode_t> m_heldKeys;
};

/// Keycodes of a PC keyboard, whatever the layout.
namespace keycode {
inline constexpr xcb_keycode_t escape = 9;
inline constexpr xcb_keycode_t enter = 36;
inline constexpr xcb_keycode_t leftControl = 37;
inline constexpr xcb_keycode_t a = 38;
inline constexpr xcb_keycode_t s = 39;
inline constexpr xcb_keycode_t semicolon = 47;
inline constexpr xcb_keycode_t leftShift = 50;
inline constexpr xcb_keycode_t leftAlt = 64;
inline constexpr xcb_keycode_t space = 65;
inline constexpr xcb_keycode_t keypadEnter = 104;
inline constexpr xcb_keycode_t altGr = 108;
inline constexpr xcb_keycode_t leftSuper = 133;
} // namespace keycode

} // namespace vantrel::tests
