#pragma once

#include "ItemLook.h"
#include "SymbolArt.h"
#include "X11Link.h"

#include <QColor>
#include <QImage>
#include <QSize>

#include <optional>

namespace vantrel {

/// The item's window in a system tray that embeds windows (XEMBED). It asks to be docked when it is
/// made and goes with this object. `link` and `art` must outlive it.
class TrayWindow {
public:
    TrayWindow(X11Link &link, const SymbolArt &art, xcb_window_t tray);
    TrayWindow(const TrayWindow &) = delete;
    TrayWindow &operator=(const TrayWindow &) = delete;
    ~TrayWindow();

    [[nodiscard]] xcb_window_t id() const { return m_window; }

    void show(const ItemLook &look);

    /// Takes the size that the tray gave it.
    void resize(QSize pixels);
    [[nodiscard]] QSize size() const { return m_size; }

    /// Paints all of it. Before the tray has shown it, nothing.
    void paint();

private:
    void create();
    void dock(xcb_window_t tray);
    /// What the tray has behind the window; transparent where it blends windows by itself.
    [[nodiscard]] std::optional<QImage> background() const;
    [[nodiscard]] QColor tone(const QImage &behind) const;

    X11Link &m_link;
    const SymbolArt &m_art;
    xcb_window_t m_window;
    std::optional<xcb_visualid_t> m_blendedVisual; ///< With alpha, where the tray offers one.
    std::optional<QColor> m_traysTone;
    xcb_gcontext_t m_context;
    QSize m_size;
    ItemLook m_look;
};

} // namespace vantrel
