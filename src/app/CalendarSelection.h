#pragma once

#include <calendar/CalendarRepository.h>
#include <platform/EventStore.h>
#include <platform/UserDefaults.h>
#include <preferences/PreferencesStore.h>

#include <QString>

#include <set>

namespace vantrel {

/// Keeps the selection of calendars in line with the calendars that there are: chooses for a user
/// who never did, and lets deleted calendars drop out. Main thread only.
///
/// A default that is chosen before all sources have been heard is stored at once, so that nobody
/// waits for a slow one, and completed as they come, over further starts if need be. It is complete
/// once the store has all calendars, and it ends as soon as the user changes the selection.
class CalendarSelection {
public:
    /// All of them must outlive this object.
    CalendarSelection(PreferencesStore &preferences, UserDefaults &defaults,
                      const EventStore &store, const CalendarRepository &repository);

    /// Whether the user, or a default for them, ever chose; nothing may have been chosen.
    [[nodiscard]] static bool isStored(const UserDefaults &defaults);

    /// What is watched: the stored selection, or the default for a user who never chose.
    [[nodiscard]] static std::set<QString> inForce(UserDefaults &defaults,
                                                   const CalendarRepository &repository);

    /// Chooses for a user who never did: every ordinary calendar. As long as there is no calendar
    /// at all nothing is chosen; `follow` does it then. To be called once access is granted.
    void chooseDefault();

    /// To be called when the calendars have changed.
    void follow();

private:
    void dropDeleted();
    void completeDefault();
    [[nodiscard]] bool isChangedByUser() const;
    void keepAsUnfinished(const std::set<QString> &selection);
    void endDefault();

    PreferencesStore &m_preferences;
    UserDefaults &m_defaults;
    const EventStore &m_store;
    const CalendarRepository &m_repository;
    bool m_isDefaultDue = false; ///< None is stored yet, or one that is not complete.
};

} // namespace vantrel
