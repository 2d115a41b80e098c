#pragma once

#include "OpacityFade.h"
#include "TakeoverContext.h"
#include "TakeoverPanel.h"
#include "TakeoverPhase.h"

#include <platform/MainQueue.h>
#include <platform/Published.h>
#include <platform/ScreenLayout.h>
#include <platform/ShieldingPanels.h>
#include <theme/Palette.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

class TakeoverViewModel;

/// Puts a takeover on every monitor at once and takes it off again: the full view on the monitor
/// with the pointer, the bare title on all others. Hears the takeover's keys (Escape dismisses,
/// Space and Return join, S snoozes, with any modifiers), closes a takeover that nobody answers,
/// and leaves the joined view up for a moment.
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
    ///
    /// While there is no monitor (a lid is shut, a dock pulled out) nothing is shown and no
    /// callback runs either. The takeover that was asked for last comes up with the next monitor,
    /// unless its meeting is over by then or its auto-close would have ended it.
    ///
    /// `onJoin` runs at most once; the takeover disappears 1.5 s later. `onSnooze` and `onDismiss`
    /// close it at once. `autoCloseAfter` (nothing: never; at most zero: never) without an answer
    /// counts as a dismiss.
    void show(const TakeoverContext &context, const Palette &palette,
              std::optional<Seconds> autoCloseAfter, Callback onJoin, Callback onSnooze,
              Callback onDismiss);

    /// A takeover is about to come up: no panel of it is there yet.
    Announcer<> comesUp;

    /// What the takeover that is up shows; empty while none is.
    [[nodiscard]] const std::optional<TakeoverContext> &currentContext() const {
        return m_currentContext;
    }

    /// Takes down what is up, in any state, without running a callback, and forgets what waits for
    /// a monitor; harmless otherwise.
    void hide();

private:
    struct Request {
        TakeoverContext context;
        Palette palette;
        std::optional<Seconds> autoCloseAfter;
        Callback onJoin;
        Callback onSnooze;
        Callback onDismiss;
        Instant askedAt;
    };

    /// Panels on their way out. The view model outlives the panels that show it.
    struct Departure {
        std::unique_ptr<TakeoverViewModel> viewModel;
        std::vector<TakeoverPanel> panels;
        std::unique_ptr<OpacityFade> fade;
    };

    [[nodiscard]] bool isUp() const { return m_currentContext.has_value(); }

    void present(Request request);
    void waitForMonitor(Request request);
    void presentWaiting();
    [[nodiscard]] bool isLapsed(const Request &request) const;

    [[nodiscard]] Callback whileUrgent(Callback action) const;
    [[nodiscard]] Callback joining(Callback onJoin);
    [[nodiscard]] Callback closing(Callback onAnswer);

    void installKeyEventMonitor(Callback snooze, Callback dismiss, Callback join);
    void removeKeyEventMonitor();
    void scheduleAutoClose(std::optional<Seconds> after, Callback dismiss);
    void scheduleMadeItHide();

    void coverScreens();
    void placeInteractivePanel(const std::vector<Screen> &candidates);
    void placeEchoPanel(const Screen &screen);
    [[nodiscard]] bool isCovered(const Screen &screen) const;
    [[nodiscard]] bool isOverlapped(const Screen &screen) const;
    [[nodiscard]] std::vector<Screen> interactiveCandidates() const;

    void fadeIn();
    void fadeOut(std::unique_ptr<Departure> departure);
    void setOpacity(double opacity);

    MainQueue &m_queue;
    ScreenLayout &m_screenLayout;
    ShieldingPanels &m_panels;

    TakeoverPhaseState m_phaseState;
    std::optional<TakeoverContext> m_currentContext;
    Palette m_palette;
    /// Lives from `show` to the end of that showing; callbacks that come later find it gone.
    std::shared_ptr<void> m_showing;
    /// Declared before the panels, which show it.
    std::unique_ptr<TakeoverViewModel> m_viewModel;
    std::optional<TakeoverPanel> m_interactivePanel;
    std::vector<TakeoverPanel> m_echoPanels;
    double m_opacity = 0.0;
    std::unique_ptr<OpacityFade> m_fade;
    std::vector<std::unique_ptr<Departure>> m_departures;

    /// Asked for while there was no monitor. Never there while a takeover is up.
    std::optional<Request> m_waiting;

    Subscription m_screenChanges;
    Subscription m_keyEventMonitor;
    ScheduledWork m_autoCloseWorkItem;
    ScheduledWork m_madeItHideWorkItem;
};

} // namespace vantrel
