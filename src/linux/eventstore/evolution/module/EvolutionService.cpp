#include "EvolutionService.h"

#include <utility>

namespace vantrel {

EvolutionService::EvolutionService(AnswerTable &table, std::function<void()> announce)
    : m_table(table), m_announce(std::move(announce)) {}

void EvolutionService::setWindow(Window window) {
    m_window = window;
    for (const auto &[identifier, feed] : m_feeds)
        feed->setWindow(window);
}

void EvolutionService::start() {
    AccountRegistry::Listener listener;
    listener.listed = [this](SourceList list) { take(std::move(list)); };
    listener.lost = [this] { lose(); };
    listener.failed = [this] {
        // Ahead of the answer that somebody may be waiting for.
        m_table.setTrouble(QStringLiteral("Accounts of this desktop may be out of date: Evolution "
                                          "Data Server does not answer."));
        m_table.settleRegistry(false);
        noteChange();
    };
    m_registry = std::make_shared<AccountRegistry>(std::move(listener));
    m_registry->start();
}

void EvolutionService::take(SourceList list) {
    if (m_table.setTrouble({}))
        noteChange();
    std::vector<SourceCalendar> calendars;
    for (const ListedSource &listed : list.calendars)
        calendars.push_back(listed.calendar);
    AnswerTable::Extent extent;
    if (list.isExhausted)
        extent.exhaustedPrefix = QString::fromLatin1(evolutionPrefix);
    extent.isAwaitingMore = list.isAwaitingMore;
    if (m_table.list(std::move(calendars), extent))
        noteChange();
    auto before = std::exchange(m_feeds, {});
    for (const ListedSource &listed : list.calendars) {
        const QString &identifier = listed.calendar.calendar.calendarIdentifier;
        auto &feed = m_feeds[identifier];
        feed = std::move(before[identifier]);
        if (feed) {
            feed->noteObstacle(listed.obstacle);
            continue;
        }
        feed = std::make_shared<CalendarFeed>(listed.uid, identifier,
                                              CalendarFeed::Surroundings{m_registry->bus(), m_table,
                                                                         m_slots[listed.place],
                                                                         [this] { noteChange(); }});
        feed->start(m_window);
        feed->noteObstacle(listed.obstacle);
    }
    if (m_table.settleRegistry(true))
        noteChange();
}

void EvolutionService::lose() {
    m_feeds.clear();
}

void EvolutionService::noteChange() {
    m_announcement.startFor(m_pace.waitAfterChange(ContextTimer::uptime()), [this] {
        m_pace.announced();
        m_announce();
    });
}

} // namespace vantrel
