#pragma once

#include <platform/MainQueue.h>

#include <QObject>

#include <optional>

class QQuickWindow;

namespace vantrel {

/// Takes away from a window the keys of somebody who cannot have read it yet: who was typing as it
/// came up, and pressed Return, has not answered it. Keys count from a moment after the window has
/// been drawn and is the active one, and after that from the first pause in the typing. Clicks
/// always count: they are aimed.
class UnreadKeys : public QObject {
public:
    static constexpr Seconds reading{0.7}; ///< Until anybody can have seen what is asked.
    static constexpr Seconds pause{0.4};   ///< Longer than between two letters of a text.

    /// Both outlive it.
    UnreadKeys(MainQueue &queue, QQuickWindow &window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void begin();
    [[nodiscard]] bool takesKey();

    MainQueue &m_queue;
    QQuickWindow &m_window;
    bool m_isDrawn = false;
    std::optional<MonotonicInstant> m_end; ///< Empty while the window cannot be read.
};

} // namespace vantrel
