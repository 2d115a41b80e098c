#include "TakeoverWindowController.h"

#include "TakeoverContents.h"
#include "TakeoverViewModel.h"

#include <platform/Log.h>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

constexpr Seconds fadeInLength{0.18};
constexpr Seconds fadeOutLength{0.14};
constexpr Seconds joinedViewLength{1.5};

VANTREL_LOG(takeoverLog, "Takeover")

bool contains(const std::vector<Screen> &screens, const Screen &screen) {
    return std::find(screens.begin(), screens.end(), screen) != screens.end();
}

} // namespace

TakeoverWindowController::TakeoverWindowController(MainQueue &queue, ScreenLayout &screenLayout,
                                                   ShieldingPanels &panels)
    : m_queue(queue), m_screenLayout(screenLayout), m_panels(panels) {}

TakeoverWindowController::~TakeoverWindowController() {
    // What the panels' content still calls while it is taken down goes nowhere.
    m_showing.reset();
}

void TakeoverWindowController::show(const TakeoverContext &context, const Palette &palette,
                                    std::optional<Seconds> autoCloseAfter, Callback onJoin,
                                    Callback onSnooze, Callback onDismiss) {
    if (isUp()) {
        qCWarning(takeoverLog) << "a takeover is up, so the next one is not shown";
        return;
    }
    Request request{context,
                    palette,
                    autoCloseAfter,
                    std::move(onJoin),
                    std::move(onSnooze),
                    std::move(onDismiss),
                    m_queue.now()};
    if (interactiveCandidates().empty())
        waitForMonitor(std::move(request));
    else
        present(std::move(request));
}

void TakeoverWindowController::present(Request request) {
    m_waiting.reset();
    m_currentContext = request.context;
    m_palette = request.palette;
    m_phaseState.phase.set(TakeoverPhase::urgent);
    m_showing = std::make_shared<char>();
    const Callback join = joining(request.onJoin);
    const Callback snooze = closing(request.onSnooze);
    const Callback dismiss = closing(request.onDismiss);
    m_viewModel = std::make_unique<TakeoverViewModel>(
        request.context, m_phaseState, m_queue, TakeoverViewModel::Actions{join, snooze, dismiss});
    m_opacity = 0.0;
    comesUp.announce();
    m_screenChanges = m_screenLayout.changed.subscribe([this] { coverScreens(); });
    coverScreens();
    if (!m_interactivePanel) { // The monitors have gone since they were counted.
        hide();
        waitForMonitor(std::move(request));
        return;
    }
    fadeIn();
    installKeyEventMonitor(snooze, dismiss, join);
    scheduleAutoClose(request.autoCloseAfter, dismiss);
}

void TakeoverWindowController::waitForMonitor(Request request) {
    qCWarning(takeoverLog) << "no monitor takes the takeover, so it waits for the next one";
    m_waiting = std::move(request);
    m_screenChanges = m_screenLayout.changed.subscribe([this] { presentWaiting(); });
}

void TakeoverWindowController::presentWaiting() {
    if (interactiveCandidates().empty())
        return;
    Request request = std::move(*m_waiting);
    m_waiting.reset();
    if (isLapsed(request)) {
        qCInfo(takeoverLog) << "the takeover that waited for a monitor is over";
        m_screenChanges.reset();
    } else {
        present(std::move(request));
    }
}

bool TakeoverWindowController::isLapsed(const Request &request) const {
    const Instant now = m_queue.now();
    const bool isClosed = request.autoCloseAfter && *request.autoCloseAfter > Seconds::zero() &&
                          now >= request.askedAt + *request.autoCloseAfter;
    return isClosed || now >= request.context.endsAt;
}

void TakeoverWindowController::hide() {
    m_waiting.reset();
    m_screenChanges.reset();
    if (!isUp())
        return;
    m_autoCloseWorkItem.cancel();
    m_madeItHideWorkItem.cancel();
    removeKeyEventMonitor();
    m_showing.reset();
    m_currentContext.reset();

    auto departure = std::make_unique<Departure>();
    departure->viewModel = std::move(m_viewModel);
    if (m_interactivePanel)
        departure->panels.push_back(std::move(*m_interactivePanel));
    m_interactivePanel.reset();
    std::move(m_echoPanels.begin(), m_echoPanels.end(), std::back_inserter(departure->panels));
    m_echoPanels.clear();
    fadeOut(std::move(departure));
}

// The callbacks of a showing

TakeoverWindowController::Callback TakeoverWindowController::whileUrgent(Callback action) const {
    const std::weak_ptr<void> showing = m_showing;
    return [this, showing, action = std::move(action)] {
        // The panels stay clickable while they fade out, and by then a later takeover may be
        // urgent: an answer counts only for the showing that it was given to.
        if (!showing.expired() && m_phaseState.phase.value() == TakeoverPhase::urgent)
            action();
    };
}

TakeoverWindowController::Callback TakeoverWindowController::joining(Callback onJoin) {
    const std::weak_ptr<void> showing = m_showing;
    return whileUrgent([this, showing, onJoin = std::move(onJoin)] {
        onJoin();
        if (showing.expired())
            return;
        m_phaseState.phase.set(TakeoverPhase::joined);
        m_autoCloseWorkItem.cancel();
        scheduleMadeItHide();
    });
}

TakeoverWindowController::Callback TakeoverWindowController::closing(Callback onAnswer) {
    const std::weak_ptr<void> showing = m_showing;
    return whileUrgent([this, showing, onAnswer = std::move(onAnswer)] {
        onAnswer();
        if (!showing.expired())
            hide();
    });
}

void TakeoverWindowController::installKeyEventMonitor(Callback snooze, Callback dismiss,
                                                      Callback join) {
    m_keyEventMonitor =
        m_panels.monitorKeyDown([snooze = std::move(snooze), dismiss = std::move(dismiss),
                                 join = std::move(join)](const KeyPress &press) {
            if (press.key == Key::escape) {
                dismiss();
                return true;
            }
            if (press.key == Key::space || press.key == Key::enter) {
                join();
                return true;
            }
            if (press.charactersIgnoringModifiers.toLower() == QLatin1String("s")) {
                snooze();
                return true;
            }
            return false;
        });
}

void TakeoverWindowController::removeKeyEventMonitor() {
    m_keyEventMonitor.reset();
}

void TakeoverWindowController::scheduleAutoClose(std::optional<Seconds> after, Callback dismiss) {
    if (after && *after > Seconds::zero())
        m_autoCloseWorkItem = m_queue.after(*after, std::move(dismiss));
}

void TakeoverWindowController::scheduleMadeItHide() {
    m_madeItHideWorkItem = m_queue.after(joinedViewLength, [this] { hide(); });
}

// Monitors

void TakeoverWindowController::coverScreens() {
    const std::vector<Screen> screens = m_screenLayout.screens();
    // A monitor whose place or size changed counts as lost: it gets a panel that fits.
    const auto isLost = [&](const TakeoverPanel &panel) {
        return !contains(screens, panel.screen());
    };
    if (!m_interactivePanel || isLost(*m_interactivePanel)) {
        const std::vector<Screen> candidates = interactiveCandidates();
        // The old panel stays until the new one has taken the keyboard over from it: in between,
        // a key would land in the program behind.
        const auto old = std::exchange(m_interactivePanel, std::nullopt);
        placeInteractivePanel(candidates);
    }
    std::erase_if(m_echoPanels, isLost);
    for (const Screen &screen : screens) {
        if (!isCovered(screen))
            placeEchoPanel(screen);
    }
    // Of two monitors that show the same part of the desktop, one would hide the view.
    if (m_interactivePanel && isOverlapped(m_interactivePanel->screen()))
        m_interactivePanel->orderFront();
}

void TakeoverWindowController::placeInteractivePanel(const std::vector<Screen> &candidates) {
    for (const Screen &screen : candidates) {
        m_interactivePanel = TakeoverPanel::makeShieldingPanel(
            m_panels, screen, PanelRole::interactive, takeoverViewContent(*m_viewModel, m_palette));
        if (m_interactivePanel)
            break;
    }
    if (!m_interactivePanel) {
        qCInfo(takeoverLog, "No monitor takes the takeover; it waits for the next one");
        return;
    }
    m_interactivePanel->setOpacity(m_opacity);
    m_interactivePanel->orderFront();
    std::erase_if(m_echoPanels, [&](const TakeoverPanel &panel) {
        return panel.screen() == m_interactivePanel->screen();
    });
}

void TakeoverWindowController::placeEchoPanel(const Screen &screen) {
    auto panel = TakeoverPanel::makeShieldingPanel(
        m_panels, screen, PanelRole::echo, takeoverEchoContent(m_currentContext->title, m_palette));
    if (!panel)
        return;
    panel->setOpacity(m_opacity);
    panel->orderFront();
    m_echoPanels.push_back(std::move(*panel));
}

bool TakeoverWindowController::isCovered(const Screen &screen) const {
    const auto covers = [&](const TakeoverPanel &panel) { return panel.screen() == screen; };
    return (m_interactivePanel && covers(*m_interactivePanel)) ||
           std::any_of(m_echoPanels.begin(), m_echoPanels.end(), covers);
}

bool TakeoverWindowController::isOverlapped(const Screen &screen) const {
    return std::any_of(m_echoPanels.begin(), m_echoPanels.end(), [&](const TakeoverPanel &panel) {
        return panel.screen().frame.intersects(screen.frame);
    });
}

std::vector<Screen> TakeoverWindowController::interactiveCandidates() const {
    std::vector<Screen> candidates;
    const auto add = [&](const std::optional<Screen> &screen) {
        if (screen && !contains(candidates, *screen))
            candidates.push_back(*screen);
    };
    const std::vector<Screen> screens = m_screenLayout.screens();
    if (m_interactivePanel) {
        const auto same = std::find_if(screens.begin(), screens.end(), [&](const Screen &screen) {
            return screen.id == m_interactivePanel->screen().id;
        });
        if (same != screens.end())
            add(*same);
    }
    add(screenWithMouse(m_screenLayout));
    add(m_screenLayout.mainScreen());
    std::for_each(screens.begin(), screens.end(), add);
    return candidates;
}

// Opacity

void TakeoverWindowController::fadeIn() {
    m_fade = std::make_unique<OpacityFade>(
        m_queue, m_opacity, 1.0, fadeInLength, [this](double opacity) { setOpacity(opacity); },
        [this] { m_fade.reset(); });
}

void TakeoverWindowController::setOpacity(double opacity) {
    m_opacity = opacity;
    if (m_interactivePanel)
        m_interactivePanel->setOpacity(opacity);
    for (TakeoverPanel &panel : m_echoPanels)
        panel.setOpacity(opacity);
}

void TakeoverWindowController::fadeOut(std::unique_ptr<Departure> departure) {
    m_fade.reset();
    Departure *departing = departure.get();
    departing->fade = std::make_unique<OpacityFade>(
        m_queue, m_opacity, 0.0, fadeOutLength,
        [departing](double opacity) {
            for (TakeoverPanel &panel : departing->panels)
                panel.setOpacity(opacity);
        },
        [this, departing] {
            for (TakeoverPanel &panel : departing->panels)
                panel.orderOut();
            std::erase_if(m_departures,
                          [&](const auto &other) { return other.get() == departing; });
        });
    m_departures.push_back(std::move(departure));
}

} // namespace vantrel
