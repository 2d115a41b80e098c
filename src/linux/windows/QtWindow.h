#pragma once

#include <platform/Windows.h>

#include <memory>

class QQuickItem;
class QQuickWindow;

namespace vantrel {

class ViewEngine;

/// One window and its content.
class QtWindow final : public DesktopWindow {
public:
    /// `engine` must outlive the window.
    QtWindow(ViewContent content, WindowDescription description, ViewEngine &engine);
    QtWindow(const QtWindow &) = delete;
    QtWindow &operator=(const QtWindow &) = delete;
    ~QtWindow() override;

    void show() override;
    void hide() override;

    /// Null until it was shown for the first time.
    [[nodiscard]] QQuickWindow *window() const { return m_window.get(); }

private:
    [[nodiscard]] bool makeWindow();
    void place();

    const ViewContent m_content;
    const WindowDescription m_description;
    ViewEngine &m_engine;
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<QQuickItem> m_item;
};

} // namespace vantrel
