#pragma once

#include <platform/ViewContent.h>

#include <memory>

class QQmlEngine;
class QQuickItem;
class QQuickWindow;

namespace vantrel {

/// How an item comes by its size.
enum class ItemSize {
    ofWindow, ///< The window's, or the container's, from before the item is complete.
    ofContent ///< Its own, until somebody sets another.
};

/// Makes the items of all windows. The QML engine behind them is made for the first one and shared
/// by the rest: a program at rest that showed none carries none of its weight. Construct it after
/// the application object and before any window of Qt Quick. Main thread only.
class ViewEngine {
public:
    ViewEngine();
    ViewEngine(const ViewEngine &) = delete;
    ViewEngine &operator=(const ViewEngine &) = delete;

    /// Each item must be gone before.
    ~ViewEngine();

    /// An item in the window's content, with the keyboard's focus once the window has it. Null for
    /// content that cannot be made, which is logged. The item must not outlive the window.
    [[nodiscard]] std::unique_ptr<QQuickItem> makeItem(const ViewContent &content,
                                                       QQuickWindow &window, ItemSize size);

    /// The same within another item, which may be in no window yet.
    [[nodiscard]] std::unique_ptr<QQuickItem> makeItem(const ViewContent &content,
                                                       QQuickItem &container, ItemSize size);

private:
    [[nodiscard]] QQmlEngine &engine();

    std::unique_ptr<QQmlEngine> m_engine;
};

/// For an item that is about to be shown once more: tells it whether the desktop wants nothing to
/// move, as it is at this moment.
void followDesktop(QQuickItem &item, const ViewContent &content);

} // namespace vantrel
