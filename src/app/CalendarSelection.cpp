#include "CalendarSelection.h"

#include <platform/Log.h>
#include <platform/LogText.h>

#include <QStringList>

namespace vantrel {

namespace {

VANTREL_LOG(selectionLog, "CalendarSelection")

QString selectionKey() {
    return QStringLiteral("Vantrel.selectedCalendarIDs");
}

/// Holds what was chosen for the user, for as long as more may have to be added.
QString unfinishedKey() {
    return QStringLiteral("Vantrel.unfinishedDefaultCalendarIDs");
}

std::set<QString> setOf(const QStringList &identifiers) {
    return {identifiers.begin(), identifiers.end()};
}

} // namespace

CalendarSelection::CalendarSelection(PreferencesStore &preferences, UserDefaults &defaults,
                                     const EventStore &store, const CalendarRepository &repository)
    : m_preferences(preferences), m_defaults(defaults), m_store(store), m_repository(repository) {}

bool CalendarSelection::isStored(const UserDefaults &defaults) {
    return defaults.hasObject(selectionKey());
}

std::set<QString> CalendarSelection::inForce(UserDefaults &defaults,
                                             const CalendarRepository &repository) {
    return isStored(defaults) ? PreferencesStore(defaults).selectedCalendarIDs()
                              : setOf(repository.defaultFirstRunSelection());
}

void CalendarSelection::chooseDefault() {
    m_isDefaultDue = !isStored(m_defaults) || m_defaults.hasObject(unfinishedKey());
    completeDefault();
}

void CalendarSelection::follow() {
    dropDeleted();
    completeDefault();
}

/// A calendar that is not listed may be one whose source has not been heard. Just what is known to
/// be deleted goes: a selection that shrinks by mistake does not come back.
void CalendarSelection::dropDeleted() {
    const std::set<QString> &selection = m_preferences.selectedCalendarIDs();
    std::set<QString> left = selection;
    std::erase_if(
        left, [this](const QString &identifier) { return m_store.isCalendarDeleted(identifier); });
    if (left == selection)
        return;
    for (const QString &identifier : selection) {
        if (!left.contains(identifier))
            qCInfo(selectionLog).noquote()
                << "the calendar" << logText(identifier)
                << "was deleted and is no longer among the selected ones";
    }
    if (m_isDefaultDue && !isChangedByUser())
        keepAsUnfinished(left);
    m_preferences.setSelectedCalendarIDs(left);
}

void CalendarSelection::completeDefault() {
    if (!m_isDefaultDue || m_store.calendars().empty())
        return;
    const bool isFirst = !isStored(m_defaults);
    if (!isFirst && isChangedByUser())
        return endDefault();

    const bool isComplete = m_store.hasAllCalendars();
    std::set<QString> selection = setOf(m_repository.defaultFirstRunSelection());
    if (selection.empty() && !isComplete)
        return;
    // What is out of reach at the moment stays chosen.
    selection.insert(m_preferences.selectedCalendarIDs().begin(),
                     m_preferences.selectedCalendarIDs().end());
    // Kept first: were the program to end in between, the next start would take up from here.
    if (!isComplete)
        keepAsUnfinished(selection);
    if (isFirst || selection != m_preferences.selectedCalendarIDs())
        m_preferences.setSelectedCalendarIDs(selection);
    if (isComplete)
        endDefault();
}

bool CalendarSelection::isChangedByUser() const {
    const auto unfinished = m_defaults.stringArray(unfinishedKey());
    return !unfinished || setOf(*unfinished) != m_preferences.selectedCalendarIDs();
}

void CalendarSelection::keepAsUnfinished(const std::set<QString> &selection) {
    const auto unfinished = m_defaults.stringArray(unfinishedKey());
    if (!unfinished || setOf(*unfinished) != selection)
        m_defaults.setStringArray(unfinishedKey(), QStringList(selection.begin(), selection.end()));
}

void CalendarSelection::endDefault() {
    m_isDefaultDue = false;
    if (m_defaults.hasObject(unfinishedKey()))
        m_defaults.removeObject(unfinishedKey());
}

} // namespace vantrel
