#pragma once

#include <QQuickWindow>

#include <functional>

namespace vantrel {

/// The window of a popup: without a frame, past the window manager where there is X11, see-through
/// where its content draws nothing.
class PopupWindow : public QQuickWindow {
public:
    struct Handler {
        std::function<void()> dismissed; ///< Escape, or the desktop closed the window.
        /// A button was pressed in the window. True when the click was for another popup: none of
        /// it reaches the content.
        std::function<bool()> takesPress;
    };

    PopupWindow();

    /// None by default.
    void setHandler(Handler handler) { m_handler = std::move(handler); }

    /// The press that comes next is for another popup, whatever the handler will say.
    void swallowNextClick() { m_isNextClickSwallowed = true; }

    /// Whether the content, or the handler, is being called: the window must not be deleted.
    [[nodiscard]] bool isDelivering() const { return m_depth > 0; }

protected:
    bool event(QEvent *event) override;

private:
    [[nodiscard]] bool isForAnother(const QEvent &event);

    Handler m_handler;
    int m_depth = 0;
    bool m_isNextClickSwallowed = false;
    bool m_isSwallowingClick = false;
};

} // namespace vantrel
