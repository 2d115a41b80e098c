#pragma once

#include <calendar/CalendarAccess.h>
#include <calendar/CalendarRepository.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <set>

namespace vantrel {

/// The calendars and which of them are watched, as printed for people and for programs.
struct CalendarList {
    CalendarAccess::Status accessStatus = CalendarAccess::Status::notDetermined;
    CalendarRepository::Snapshot snapshot;
    std::set<QString> selection;    ///< The calendars that are watched, by identifier.
    bool isSelectionStored = false; ///< False when it is the default of a user who never chose.
    bool isComplete = false;        ///< Whether every source has been heard.
    QStringList notes;              ///< Why something is not listed; a sentence each.

    /// One JSON object in UTF-8 with a line break at the end. Its members are a stable interface:
    /// see docs/calendars-verb.md.
    [[nodiscard]] QByteArray json() const;

    /// Lines under a heading for each account, in UTF-8.
    [[nodiscard]] QByteArray text() const;

private:
    /// Of calendars that are watched and not listed, in no order that means anything.
    [[nodiscard]] QStringList missing() const;
};

} // namespace vantrel
