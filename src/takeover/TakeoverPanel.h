#pragma once

#include <platform/ScreenLayout.h>
#include <platform/ShieldingPanels.h>

#include <memory>
#include <optional>

namespace vantrel {

/// A shielding panel together with the monitor that it covers. Move-only; dropping it takes it off
/// the screen.
class TakeoverPanel {
public:
    /// A panel over the whole of `screen`, not shown yet. Empty when the monitor has gone.
    [[nodiscard]] static std::optional<TakeoverPanel>
    makeShieldingPanel(ShieldingPanels &panels, const Screen &screen, PanelRole role,
                       const ViewContent &content);

    /// The monitor as it was when the panel was made.
    [[nodiscard]] const Screen &screen() const { return m_screen; }

    void orderFront() { m_panel->orderFront(); }
    void setOpacity(double opacity) { m_panel->setOpacity(opacity); }
    void orderOut() { m_panel->orderOut(); }

private:
    TakeoverPanel(Screen screen, std::unique_ptr<ShieldingPanel> panel);

    Screen m_screen;
    std::unique_ptr<ShieldingPanel> m_panel;
};

/// The monitor that holds the pointer; empty when none does or the desktop does not tell.
[[nodiscard]] std::optional<Screen> screenWithMouse(const ScreenLayout &layout);

} // namespace vantrel
