#pragma once

#include "TakeoverContext.h"
#include "TakeoverPanel.h"
#include "TakeoverPhase.h"

#include <platform/MainQueue.h>
#include <platform/ScreenLayout.h>
#include <platform/ShieldingPanels.h>
#include <theme/Palette.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

class OpacityFade;
class TakeoverViewModel;

/// Puts a takeover on every monitor at once and takes it off again: the full view on the monitor
/// with the pointer, the bare title on all others. Hears the takeover's keys, closes one that
/// nobody answers, and leaves the joined view up for a moment.
///
/// While a takeover is up, monitors may come and go: each stays covered, the full view moves to
/// one that is left, and with none left the takeover waits for the next one. Main thread only.
class TakeoverWindowController {
public:
    using Callback = std::function<void()>;

    /// What is passed in must outlive the controller. Destroying the controller takes its panels
    /// off the screen at once and runs no callback.
    TakeoverWindowController(MainQueue &queue, ScreenLayout &screenLayout, ShieldingPanels &panels);
    ~TakeoverWindowController();
    TakeoverWindowController(const TakeoverWindowController &) = delete;
    TakeoverWindowController &operator=(const TakeoverWindowController &) = delete;

    /// Shows a takeover, unless one is up: then nothing happens and no callback ever runs.
    /// The same with no monitor connected: a takeover nobody can see is not kept for later.
    ///
    /// `onJoin` runs at most once; the takeover then disappears 1.5 s later. `onSnooze` and
    /// `onDismiss` close it at once. An interval `autoCloseAfter` above zero without any of these
    /// counts as a dismiss.
    void show(const TakeoverContext &context, const Palette &palette,
              std::optional<Seconds> autoCloseAfter, Callback onJoin, Callback onSnooze,
              Callback onDismiss);

    /// Takes down what is up, in any state, without running a callback; harmless otherwise.
    void hide();

private:
    struct Showing;
    struct Departure;

    [[nodiscard]] bool isShowing() const { return m_currentContext.has_value(); }
    [[nodiscard]] Callback whileUrgent(Callback action) const;
    [[nodiscard]] Callback wrappedJoin(Callback onJoin);
    [[nodiscard]] Callback wrappedClosing(Callback action);

    void installKeyEventMonitor(Callback snooze, Callback dismiss, Callback join);
    void removeKeyEventMonitor();
    void scheduleAutoClose(std::optional<Seconds> after, Callback dismiss);
    void scheduleMadeItHide();

    std::optional<TakeoverPanel> m_interactivePanel;
    std::vector<TakeoverPanel> m_echoPanels;
    Subscription m_keyEventMonitor;
    ScheduledWork m_autoCloseWorkItem;
    ScheduledWork m_madeItHideWorkItem;
    TakeoverPhaseState m_phaseState;
    std::optional<TakeoverContext> m_currentContext;

    MainQueue &m_queue;
    ScreenLayout &m_screenLayout;
    ShieldingPanels &m_panels;
};

} // namespace vantrel
