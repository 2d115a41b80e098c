#pragma once

#include "AccountRegistry.h"
#include "AnswerTable.h"
#include "CalendarFeed.h"
#include "ConnectSlots.h"
#include "ContextTimer.h"

#include <linux/eventstore/evolution/Pace.h>
#include <linux/eventstore/ical/Window.h>

#include <QString>

#include <functional>
#include <map>
#include <memory>

namespace vantrel {

/// Keeps a table in line with the service: one feed for each calendar that the registry lists. On
/// the service's thread, apart from its construction.
class EvolutionService {
public:
    /// `announce` is called, on the service's thread, after answers of the table have changed.
    EvolutionService(AnswerTable &table, std::function<void()> announce);

    void setWindow(Window window);
    void start();

private:
    void take(SourceList list);
    void lose();
    void noteChange();

    AnswerTable &m_table;
    const std::function<void()> m_announce;
    Window m_window;
    std::map<QString, ConnectSlots> m_slots; ///< By place.
    std::shared_ptr<AccountRegistry> m_registry;
    std::map<QString, std::shared_ptr<CalendarFeed>> m_feeds; ///< By calendar identifier.
    AnnouncementPace m_pace;
    ContextTimer m_announcement;
};

} // namespace vantrel
