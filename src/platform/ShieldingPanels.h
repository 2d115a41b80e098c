#pragma once

#include "Published.h"
#include "ScreenLayout.h"
#include "Time.h"
#include "ViewContent.h"

#include <QString>

#include <functional>
#include <memory>

namespace vantrel {

enum class PanelRole {
    interactive, ///< Takes the keyboard and the clicks.
    echo         ///< Takes nothing; a click on it does nothing.
};

/// An opaque panel over one whole monitor, above every other window, docks and full-screen
/// programs included. Destroying it takes it off the screen.
class ShieldingPanel {
public:
    virtual ~ShieldingPanel() = default;

    /// Shows the panel, at the opacity set last (1.0 at first). An interactive one takes the
    /// keyboard and holds it until it is ordered out.
    virtual void orderFront() = 0;

    /// 0.0 to 1.0. Where nothing on the desktop blends windows, a panel in front is simply seen.
    virtual void setOpacity(double opacity) = 0;

    /// Takes the panel off the screen and gives the keyboard back.
    virtual void orderOut() = 0;
};

enum class Key { escape, space, enter, other };

/// One press of a key; never the auto-repeat of a key that is being held.
struct KeyPress {
    Key key = Key::other; ///< `enter` is Return and the keypad's Enter.
    QString charactersIgnoringModifiers;
};

/// Makes the panels of a takeover and hears the keys pressed in them. Main thread only.
class ShieldingPanels {
public:
    virtual ~ShieldingPanels() = default;

    /// The panel is not shown yet. Null when the monitor has gone.
    [[nodiscard]] virtual std::unique_ptr<ShieldingPanel>
    makePanel(const Screen &screen, PanelRole role, const ViewContent &content) = 0;

    /// Answers true for a key that it consumed; any other goes on to the panel's content.
    using KeyHandler = std::function<bool(const KeyPress &)>;

    /// Calls `handler` for each key pressed in an interactive panel until the subscription is
    /// dropped, and in an echo panel that got the keyboard all the same. A key that was down before
    /// the panel had the keyboard is no press.
    [[nodiscard]] virtual Subscription monitorKeyDown(KeyHandler handler) = 0;
};

} // namespace vantrel
