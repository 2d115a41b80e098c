#pragma once

#include "RemoteCalendar.h"

#include <linux/eventstore/ical/ZoneRegistry.h>

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace vantrel {

/// The VTIMEZONE texts of the zones that only a calendar knows, asked for once each.
class ZoneTexts : public std::enable_shared_from_this<ZoneTexts> {
public:
    /// `title` is the calendar's, for the log.
    ZoneTexts(std::shared_ptr<RemoteCalendar> calendar, QString title);

    /// Those of the names for which a text is needed: none that the system knows itself.
    [[nodiscard]] QByteArrayList unusual(const QByteArrayList &names);

    /// Calls `take` with the texts of these zones, one after another: at once if they are known.
    /// What the calendar does not know is left out. So is what it could not tell this time: the
    /// list is not whole then, and the next call asks again.
    using Take = std::function<void(const QByteArray &texts, bool isWhole)>;
    void get(const QByteArrayList &names, Take take);

private:
    struct Waiting {
        QByteArrayList names;
        Take take;
    };

    void ask(const QByteArray &name);
    void noteFailure(const QByteArray &reason);
    void serve();

    const std::shared_ptr<RemoteCalendar> m_calendar;
    ZoneRegistry m_system;
    const QString m_title;
    std::map<QByteArray, QByteArray> m_texts; ///< By name; empty where the calendar has none.
    std::set<QByteArray> m_asked;             ///< Under way.
    bool m_isFailureLogged = false;
    std::vector<Waiting> m_waiting;
};

} // namespace vantrel
