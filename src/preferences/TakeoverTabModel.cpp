#include "TakeoverTabModel.h"

#include "ValueTexts.h"

namespace vantrel {

TakeoverTabModel::TakeoverTabModel(PreferencesStore &preferences)
    : m_leadTime(
          preferences.leadTimeSecondsPublisher(),
          [&preferences](std::int64_t seconds) { preferences.setLeadTimeSeconds(seconds); },
          &leadTimeText),
      m_snoozeDuration(
          preferences.snoozeDurationMinutesPublisher(),
          [&preferences](std::int64_t minutes) { preferences.setSnoozeDurationMinutes(minutes); },
          &snoozeDurationText),
      m_autoClose(
          preferences.autoCloseSecondsPublisher(),
          [&preferences](std::int64_t seconds) { preferences.setAutoCloseSeconds(seconds); },
          &autoCloseText) {}

} // namespace vantrel
