#include "MenuBarTabModel.h"

#include "ValueTexts.h"

namespace vantrel {

MenuBarTabModel::MenuBarTabModel(PreferencesStore &preferences)
    : m_showNextMeeting(
          preferences.showNextMeetingInMenuBarPublisher(),
          [&preferences](bool isShown) { preferences.setShowNextMeetingInMenuBar(isShown); }),
      m_upcomingHorizon(
          preferences.menuBarUpcomingHorizonMinutesPublisher(),
          [&preferences](std::int64_t minutes) {
              preferences.setMenuBarUpcomingHorizonMinutes(minutes);
          },
          &upcomingHorizonText) {}

} // namespace vantrel
