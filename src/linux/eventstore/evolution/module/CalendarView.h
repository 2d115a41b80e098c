#pragma once

#include "AnswerTable.h"
#include "ContextTimer.h"
#include "RemoteView.h"

#include <linux/eventstore/evolution/Pace.h>
#include <linux/eventstore/ical/Window.h>

#include <QByteArray>
#include <QByteArrayList>

#include <libecal/libecal.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

namespace vantrel {

class ZoneTexts;

/// What one calendar has within a window, kept in line with it.
///
/// The service picks components one by one, by their own times: it lists a series for an occurrence
/// that an override has moved away, and leaves out the override that did. So of everything that
/// recurs, and of every override, all components of the UID are asked for, and our own expander
/// decides.
class CalendarView : public std::enable_shared_from_this<CalendarView> {
public:
    /// Called on the service's thread.
    struct Listener {
        std::function<void()> progressed;
        std::function<void()> filled; ///< Once: everything is there.
        /// After `filled`: the item, or none when it has gone.
        std::function<void(const QByteArray &uid, std::optional<CalendarItem>)> changed;
        std::function<void(const QByteArray &message)> failed;
        /// Something could not be had and will be asked for again; nothing else is lost.
        std::function<void(const QByteArray &message)> complained;
    };

    CalendarView(std::shared_ptr<RemoteCalendar> calendar, std::shared_ptr<ZoneTexts> zones,
                 Listener listener);
    CalendarView(const CalendarView &) = delete;
    CalendarView &operator=(const CalendarView &) = delete;
    ~CalendarView() = default;

    void open(Window window);

    /// Asks again for all components of that UID if any is in the view.
    void refresh(const QByteArray &uid);

    [[nodiscard]] bool isFilled() const { return m_isFilled; }

    /// Whether answers are on their way; of each, `progressed` tells.
    [[nodiscard]] bool isWaiting() const { return m_fetches > 0; }

    /// Everything that there is, once filled.
    [[nodiscard]] CalendarItems items() const;

private:
    struct Entry {
        std::uint64_t number = 0;     ///< A UID that goes and comes back is another entry.
        std::set<QByteArray> present; ///< Recurrence ids in the view; empty for a master.
        bool isSeries = false;        ///< Or more than one component, or an override.
        bool isLoading = false;
        bool isOutdated = false; ///< Something happened while loading.
        CalendarItem item;
    };

    void take(ICalComponent *component);
    void drop(const RemoteView::ComponentName &name);
    [[nodiscard]] Entry *find(const QByteArray &uid, std::uint64_t number);
    void load(const QByteArray &uid);
    void pump();
    void fetch(const QByteArray &uid, std::uint64_t number);
    void finishFetch(const QByteArray &uid, std::uint64_t number, const QByteArray &text,
                     const Failure &failure);
    void putOff(const QByteArray &uid, const QByteArray &reason);
    void loadAgain(const QByteArray &uid);
    void askAgainLater(const QByteArray &uid);
    void keep(const QByteArray &uid, CalendarItem item, const QByteArrayList &zones);
    void finishLoading(const QByteArray &uid);
    void forget(const QByteArray &uid);
    void checkFilled();

    const std::shared_ptr<RemoteCalendar> m_calendar;
    const std::shared_ptr<ZoneTexts> m_zones;
    const Listener m_listener;
    std::shared_ptr<RemoteView> m_view;
    std::map<QByteArray, Entry> m_entries; ///< By UID.
    std::uint64_t m_lastNumber = 0;
    std::deque<std::pair<QByteArray, std::uint64_t>> m_toFetch;
    int m_fetches = 0;         ///< Under way.
    int m_loading = 0;         ///< Entries.
    bool m_isComplete = false; ///< The service has listed everything.
    bool m_isFilled = false;
    std::set<QByteArray> m_unsure; ///< Something of theirs could not be read.
    ContextTimer m_retry;          ///< Of those.
    RetryPause m_pause;
};

} // namespace vantrel
