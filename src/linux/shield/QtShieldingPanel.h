#pragma once

#include <platform/ShieldingPanels.h>

#include <QPointer>
#include <QRect>

#include <memory>

class QScreen;
class QWindow;

namespace vantrel {

class PanelEvents;
class X11Shield;

/// One panel: a window that is as large as its monitor, above the others as far as the desktop
/// lets a program decide that.
class QtShieldingPanel final : public ShieldingPanel {
public:
    /// `shield` is null off X11. The window must be one that nobody else shows or deletes.
    QtShieldingPanel(std::unique_ptr<QWindow> window, PanelEvents &events, QScreen &screen,
                     PanelRole role, X11Shield *shield);
    ~QtShieldingPanel() override;

    /// What a panel over that monitor takes of the desktop, in device-independent pixels.
    [[nodiscard]] static QRect frameOver(const QScreen &screen);

    void orderFront() override;
    void setOpacity(double opacity) override;
    void orderOut() override;

private:
    QPointer<QWindow> m_window;
    PanelEvents &m_events;
    PanelRole m_role;
    X11Shield *m_shield;
};

} // namespace vantrel
