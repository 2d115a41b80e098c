#pragma once

#include <linux/layershell/LayerSurface.h>
#include <platform/ShieldingPanels.h>

#include <QPointer>

#include <memory>

class QScreen;
class QWindow;

namespace vantrel {

class LayerShell;
class PanelEvents;

/// One panel where the compositor has a layer shell: a surface over the whole of one output, above
/// full-screen programs and the desktop's own panels. One that is interactive has the keyboard for
/// as long as it is shown.
class LayerPanel final : public ShieldingPanel {
public:
    /// `shell` must be there, and outlive the panel. The window must be one that nobody else shows
    /// or deletes.
    LayerPanel(const LayerShell &shell, std::unique_ptr<QWindow> window, PanelEvents &events,
               QScreen &screen, PanelRole role);
    LayerPanel(const LayerPanel &) = delete;
    LayerPanel &operator=(const LayerPanel &) = delete;
    ~LayerPanel() override;

    void orderFront() override;
    void setOpacity(double opacity) override;
    void orderOut() override;

private:
    void cover(QSize size);

    const LayerShell &m_shell;
    QPointer<QWindow> m_window;
    PanelEvents &m_events;
    QPointer<QScreen> m_screen;
    PanelRole m_role;
    std::unique_ptr<LayerSurface> m_surface; ///< Null while the panel is not in front.
};

} // namespace vantrel
