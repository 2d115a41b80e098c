#pragma once

#include <linux/statusitem/X11Link.h>

#include <QColor>
#include <QImage>
#include <QRect>

#include <optional>

namespace vantrel::tests {

/// A system tray as panels have it: it embeds the window that asks to be docked.
class Tray {
public:
    enum class Visual { ordinary, withAlpha };

    static inline const QRect frame{100, 50, 64, 30};
    static inline const QColor ground{0x20, 0x40, 0x60};

    explicit Tray(Visual visual = Visual::ordinary);
    ~Tray();

    /// The docked window; nothing before it was docked and after it has gone.
    [[nodiscard]] std::optional<xcb_window_t> docked() const { return m_docked; }

    /// What the tray shows.
    [[nodiscard]] QImage picture() const;
    [[nodiscard]] int depthOfDocked() const;
    [[nodiscard]] QByteArray nameOfDocked() const;

    /// Lets go of a button over the docked window, at its left upper corner and so far away from
    /// it.
    void release(xcb_button_t button, std::uint16_t state, QPoint place = {2, 3}) const;

private:
    void take(const xcb_generic_event_t &event);
    void embed(xcb_window_t window);
    void announce(xcb_atom_t selection) const;

    X11Link m_link;
    xcb_window_t m_window;
    std::optional<xcb_window_t> m_docked;
};

} // namespace vantrel::tests
