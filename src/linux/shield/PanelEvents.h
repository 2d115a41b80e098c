#pragma once

#include "KeyPresses.h"

#include <platform/ShieldingPanels.h>

#include <QObject>

#include <functional>

class QWindow;

namespace vantrel {

/// Stands between a panel's window and its events: keys go to those who listen first, and an echo
/// panel's content gets no input at all. A child of its window.
class PanelEvents : public QObject {
public:
    /// `listener` answers true for a press that it consumed.
    PanelEvents(QWindow &window, PanelRole role, KeyPresses presses,
                std::function<bool(const KeyPress &)> listener);

    /// Whether the window is in the midst of an event: then it cannot be deleted.
    [[nodiscard]] bool isDelivering() const { return m_depth > 0; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] bool isSwallowed(QEvent &event);
    void hearMisplacedKey(QEvent &event);

    PanelRole m_role;
    KeyPresses m_presses;
    std::function<bool(const KeyPress &)> m_listener;
    int m_depth = 0;
};

} // namespace vantrel
