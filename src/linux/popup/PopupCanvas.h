#pragma once

#include <linux/layershell/LayerSurface.h>

#include <QQuickWindow>

#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

class LayerShell;

/// A see-through window over one whole output, in the topmost layer: popups lie in it, and what is
/// pressed beside them it hears as well. Surfaces of one layer are in no order among themselves,
/// so popups that lie on each other share one.
class PopupCanvas : public QQuickWindow {
public:
    struct Handler {
        std::function<void()> configured; ///< It has its sizes, for the first time or others.
        std::function<void()> closed;     ///< Its output has gone.
        std::function<void(QPoint)> pointerEntered;
        /// A button was pressed. False when the content is to hear nothing of the click.
        std::function<bool(QPoint)> pressed;
        std::function<void()> released;  ///< The end of a click that the content did not get.
        std::function<void()> dismissed; ///< Escape, which the content had no use for.
    };

    /// The shell must be there, and outlive the canvas. Places are in the coordinates of
    /// `Screen::frame`.
    PopupCanvas(const LayerShell &shell, QScreen &screen, Handler handler);

    /// Takes it off the screen; it calls its handler no more.
    void takeDown();

    [[nodiscard]] bool isConfigured() const { return m_freeSize.has_value() && isVisible(); }

    /// How much of the output the panels leave.
    [[nodiscard]] QSize freeSize() const { return m_freeSize.value_or(size()); }

    /// Takes the keyboard for as long as the canvas stands.
    void takeKeyboard();

    /// Whether content or handler are being called: neither may be deleted.
    [[nodiscard]] bool isDelivering() const { return m_depth > 0; }

protected:
    bool event(QEvent *event) override;

private:
    void adopt(QSize size);
    [[nodiscard]] bool deliver(QEvent &event);

    Handler m_handler;
    std::unique_ptr<LayerSurface> m_surface;
    const QPoint m_origin;
    std::optional<QSize> m_freeSize;
    int m_depth = 0;
    bool m_isSwallowingClick = false;
};

} // namespace vantrel
