#pragma once

#include "ItemLook.h"
#include "SymbolArt.h"
#include "TrayWindow.h"
#include "X11Link.h"

#include <platform/StatusItem.h>

#include <QRect>

#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

/// The item in the system tray of an X11 desktop (freedesktop's System Tray Protocol): it is docked
/// whenever there is a tray, however late, and again after the tray was restarted.
class TrayIcon {
public:
    struct Click {
        PointerButton button = PointerButton::left;
        bool hasControl = false;
        QRect pixels; ///< The item's place on the screen.
    };

    struct Listener {
        std::function<void(const Click &)> clicked;
        /// The pointer has come to the item, which has this place; empty when it has gone, and when
        /// it presses a button.
        std::function<void(const std::optional<QRect> &pixels)> pointed;
    };

    /// The listener is called from the event loop. Without an X server the icon does nothing.
    TrayIcon(SymbolArt art, Listener listener);

    void show(const ItemLook &look);

    [[nodiscard]] bool isDocked() const { return m_window != nullptr; }

private:
    void take(const xcb_generic_event_t &event);
    void takeMessage(const xcb_client_message_event_t &message);
    void takeRelease(const xcb_button_release_event_t &release);
    void takeEntry(const xcb_enter_notify_event_t &entry);
    void takeLoss(xcb_window_t window);
    /// Docks the item where a tray has come or changed.
    void look();

    SymbolArt m_art;
    Listener m_listener;
    ItemLook m_look;
    X11Link m_link;
    xcb_atom_t m_selection = XCB_ATOM_NONE; ///< What the tray of this screen owns.
    xcb_atom_t m_manager = XCB_ATOM_NONE;   ///< What a tray announces itself with.
    xcb_window_t m_tray = XCB_WINDOW_NONE;
    std::unique_ptr<TrayWindow> m_window; ///< While it is docked, or waits to be.
};

} // namespace vantrel
