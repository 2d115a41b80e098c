#include "MenuBarController.h"

#include "MenuBarDisplayFormatter.h"

#include <theme/DisplayTitle.h>

#include <utility>

namespace vantrel {

namespace {

constexpr Seconds tickInterval{60.0};
constexpr Seconds fetchHorizon{1'209'600.0};

QString applicationName() {
    return QStringLiteral("Vantrel");
}

} // namespace

MenuBarController::MenuBarController(StatusBar &statusBar, PreferencesStore &preferences,
                                     const UpcomingEventsQuery &query, MainQueue &queue,
                                     Actions actions)
    : m_preferences(preferences),
      m_query(query),
      m_queue(queue),
      m_actions(std::move(actions)),
      m_statusItem(statusBar.makeItem({[this](const StatusItemClick &click) { handleClick(click); },
                                       [this] { return menu(); }})) {}

void MenuBarController::observePauseState() {
    m_cancellables.push_back(
        m_preferences.isPausedPublisher().subscribe([this](bool) { applyDisplaySoon(); }));
}

void MenuBarController::observeDisplayInputs() {
    const auto signal = [this](const auto &) { applyDisplaySoon(); };
    m_cancellables.push_back(m_preferences.showNextMeetingInMenuBarPublisher().subscribe(signal));
    m_cancellables.push_back(m_preferences.selectedCalendarIDsPublisher().subscribe(signal));
    m_cancellables.push_back(
        m_preferences.menuBarUpcomingHorizonMinutesPublisher().subscribe(signal));
}

void MenuBarController::startMinuteTick() {
    m_minuteTimer = m_queue.every(tickInterval, [this] { applyDisplay(); });
}

void MenuBarController::stop() {
    m_cancellables.clear();
    m_pendingDisplay.cancel();
    m_minuteTimer.cancel();
    m_statusItem.reset();
}

StatusItemPlace MenuBarController::itemPlace() const {
    return m_statusItem ? m_statusItem->place() : StatusItemPlace::nowhere;
}

/// A setting tells of its value before it stores it. Several that change at once make one display.
void MenuBarController::applyDisplaySoon() {
    m_pendingDisplay = m_queue.after(Seconds::zero(), [this] { applyDisplay(); });
}

void MenuBarController::applyDisplay() {
    if (!m_statusItem)
        return;
    const bool isPaused = m_preferences.isPaused();
    m_statusItem->setImage(isPaused ? QStringLiteral("pawprint") : QStringLiteral("pawprint.fill"),
                           applicationName());
    const Instant now = m_queue.now();
    auto event = displayEvent(now);
    // Hosts draw what they are given: a stranger's title must not turn the countdown around, nor
    // push it out.
    if (event)
        event->title = displayTitle(event->title);
    const auto text =
        event ? MenuBarDisplayFormatter::text({*event}, now) : std::optional<QString>();
    if (text) {
        m_statusItem->setTitle(StatusTitle{event->calendarColor, *text,
                                           MenuBarDisplayFormatter::widestText(*event, now)});
        m_statusItem->setToolTip(event->title);
    } else {
        m_statusItem->setTitle(std::nullopt);
        m_statusItem->setToolTip(isPaused ? QStringLiteral("Vantrel (paused)") : applicationName());
    }
}

std::optional<UpcomingEvent> MenuBarController::displayEvent(Instant now) const {
    if (m_preferences.isPaused() || !m_preferences.showNextMeetingInMenuBar())
        return std::nullopt;
    return MenuBarDisplayFormatter::pickDisplayEvent(
        m_query.fetchUpcoming(m_preferences.selectedCalendarIDs(), now, fetchHorizon), now,
        m_preferences.menuBarUpcomingHorizonMinutes());
}

void MenuBarController::handleClick(const StatusItemClick &click) {
    if (!m_statusItem)
        return;
    if (click.button == PointerButton::right || click.hasControl) {
        if (m_actions.showMenu)
            m_actions.showMenu(menu(), click.place);
    } else if (m_actions.leftClick) {
        m_actions.leftClick(click.place);
    }
}

Menu MenuBarController::menu() const {
    return {
        MenuItem{QStringLiteral("Preferences…"), QStringLiteral(","), m_actions.openPreferences},
        MenuItem{QStringLiteral("Check for Updates…"), {}, m_actions.checkForUpdates},
        MenuSeparator{},
        MenuItem{QStringLiteral("Quit Vantrel"), QStringLiteral("q"), m_actions.quit},
    };
}

} // namespace vantrel
