#include "PopoverModel.h"

#include <theme/Theme.h>

#include <utility>

namespace vantrel {

PopoverModel::PopoverModel(UpcomingEventsViewModel &viewModel, PreferencesStore &preferences,
                           CurrentCalendar currentCalendar, Actions actions)
    : m_viewModel(viewModel),
      m_preferences(preferences),
      m_currentCalendar(std::move(currentCalendar)),
      m_actions(std::move(actions)),
      m_rows(m_currentCalendar()) {
    m_subscriptions = {
        viewModel.observeMode([this](EventListMode mode) { takeMode(mode); }),
        viewModel.observeGroups(
            [this](const std::vector<DayGroup> &groups) { takeGroups(groups); }),
        preferences.isPausedPublisher().subscribe([this](bool isPaused) {
            if (std::exchange(m_isPaused, isPaused) != isPaused)
                Q_EMIT isPausedChanged();
        }),
        preferences.selectedThemePublisher().subscribe([this](Theme theme) {
            const ThemePalette chosen(palette(theme));
            if (std::exchange(m_themePalette, chosen) != chosen)
                Q_EMIT themePaletteChanged();
        }),
    };
}

void PopoverModel::setMode(Mode mode) {
    if (mode != m_mode)
        m_viewModel.setMode(mode == Today ? EventListMode::today : EventListMode::all);
}

QString PopoverModel::emptyLine() const {
    return m_viewModel.emptyStateLine(m_mode == Today ? EventListMode::today : EventListMode::all);
}

void PopoverModel::togglePaused() {
    m_preferences.setIsPaused(!m_isPaused);
}

void PopoverModel::join(int row) const {
    const UpcomingEvent *event = m_rows.event(row);
    if (!event || !event->videoLink || !event->videoLink->asVideo())
        return;
    // A copy: what joining leads to may change the list.
    const UpcomingEvent joined = *event;
    m_actions.join(joined);
}

void PopoverModel::openMenu(QPointF place) const {
    m_actions.openMenu(place.toPoint());
}

void PopoverModel::takeMode(EventListMode mode) {
    const Mode taken = mode == EventListMode::today ? Today : All;
    if (std::exchange(m_mode, taken) != taken)
        Q_EMIT modeChanged();
}

void PopoverModel::takeGroups(const std::vector<DayGroup> &groups) {
    const LocalCalendar calendar = m_currentCalendar();
    const bool isRightToLeft = calendar.locale().textDirection() == Qt::RightToLeft;
    if (std::exchange(m_isRightToLeft, isRightToLeft) != isRightToLeft)
        Q_EMIT isRightToLeftChanged();
    m_rows.show(groups, calendar);
    if (std::exchange(m_isEmpty, groups.empty()) != groups.empty())
        Q_EMIT isEmptyChanged();
}

} // namespace vantrel
