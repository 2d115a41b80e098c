#include "RecapWindowController.h"

#include "DateRange.h"
#include "RecapContents.h"

namespace vantrel {

namespace {

constexpr int daysOfTheWeek = 7;

WindowDescription recapWindow() {
    return {QStringLiteral("This Week's Rescues"), {520, 600}, {480, 520}, WindowLevel::floating};
}

} // namespace

RecapWindowController::RecapWindowController(RescueLog &rescueLog, PreferencesStore &preferences,
                                             Windows &windows, MainQueue &queue)
    : m_rescueLog(rescueLog),
      m_preferences(preferences),
      m_window(windows.makeWindow(recapContent(m_viewModel), recapWindow())) {
    // Both tell of a value before it is stored.
    const auto refreshSoon = [this, &queue](const auto &) {
        m_refresh = queue.after({}, [this] { refresh(); });
    };
    m_subscriptions = {m_rescueLog.subscribe(refreshSoon),
                       m_preferences.selectedThemePublisher().subscribe(refreshSoon)};
    refresh();
}

void RecapWindowController::refresh() {
    m_viewModel.show({m_rescueLog.stats(m_rescueLog.lastDays(daysOfTheWeek)),
                      m_rescueLog.stats(DateRange::allTime()),
                      palette(m_preferences.selectedTheme()),
                      {},
                      {}});
}

} // namespace vantrel
