#include "TakeoverPanel.h"

#include <utility>

namespace vantrel {

std::optional<TakeoverPanel> TakeoverPanel::makeShieldingPanel(ShieldingPanels &panels,
                                                               const Screen &screen, PanelRole role,
                                                               const ViewContent &content) {
    auto panel = panels.makePanel(screen, role, content);
    if (!panel)
        return std::nullopt;
    return TakeoverPanel(screen, std::move(panel));
}

TakeoverPanel::TakeoverPanel(Screen screen, std::unique_ptr<ShieldingPanel> panel)
    : m_screen(std::move(screen)), m_panel(std::move(panel)) {}

std::optional<Screen> screenWithMouse(const ScreenLayout &layout) {
    const auto mouse = layout.mouseLocation();
    if (!mouse)
        return std::nullopt;
    for (const Screen &screen : layout.screens()) {
        if (screen.frame.contains(*mouse))
            return screen;
    }
    return std::nullopt;
}

} // namespace vantrel
