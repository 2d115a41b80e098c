#pragma once

#include <linux/eventstore/source/ComponentSource.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

namespace vantrel {

/// All components of one UID.
struct CalendarItem {
    QByteArray events; ///< VEVENT blocks.
    QByteArray zones;  ///< VTIMEZONE blocks of the zones that only the calendar knows.
    std::uint64_t serial = 0;

    [[nodiscard]] bool isAlike(const CalendarItem &other) const {
        return events == other.events && zones == other.zones;
    }
};

using CalendarItems = std::map<QByteArray, CalendarItem>; ///< By UID.

/// What the service has delivered so far, and all answers to the store: the service's thread fills
/// it, the store's thread asks, and neither ever waits for the other but to copy a few pointers.
///
/// A calendar that fails keeps its items; they go when it is no longer listed, and are replaced
/// when they have been delivered anew.
class AnswerTable {
public:
    // The service's thread. Those that answer a bool say whether an answer has become different.

    /// What a list of calendars says of those that are not in it.
    struct Extent {
        /// See `SourceKnowledge`; for the time when all that are listed have delivered or failed.
        QString exhaustedPrefix;
        bool isAwaitingMore = false; ///< Some will come without anybody adding them.

        bool operator==(const Extent &) const = default;
    };

    bool list(std::vector<SourceCalendar> calendars, const Extent &extent);
    bool setWritable(const QString &calendar, bool isWritable);
    bool setAddresses(const QString &calendar, const QStringList &addresses);
    bool replace(const QString &calendar, CalendarItems items);
    bool set(const QString &calendar, const QByteArray &uid, CalendarItem item);
    bool remove(const QString &calendar, const QByteArray &uid);
    /// It has delivered for the first time, or will not for now.
    bool settle(const QString &calendar);
    /// The registry has been heard, or will not be for now.
    bool settleRegistry(bool isHeard);
    /// For people; empty when there is none.
    bool setTrouble(const QString &trouble);

    // Any thread.

    void waitUntilSettled(Seconds limit);
    [[nodiscard]] std::vector<SourceCalendar> calendars();
    [[nodiscard]] SourceKnowledge knowledge() const;
    [[nodiscard]] QString trouble() const;
    [[nodiscard]] std::optional<std::vector<SourceItem>> items(const QString &calendar) const;
    [[nodiscard]] std::optional<QByteArray> text(const QString &calendar,
                                                 const QByteArray &uid) const;
    [[nodiscard]] QString title(const QString &calendar) const;

private:
    struct Calendar {
        SourceCalendar listed;
        std::optional<bool> isWritable; ///< As its back end says, once it is connected.
        QStringList addresses;
        CalendarItems items;
        bool isTouched = true; ///< Since it was last asked for.
        bool isSettled = false;
    };

    [[nodiscard]] Calendar *find(const QString &calendar);
    [[nodiscard]] bool isSettled() const;
    [[nodiscard]] bool isComplete() const;

    mutable std::mutex m_mutex;
    std::condition_variable m_settled;
    std::map<QString, Calendar> m_calendars; ///< By identifier.
    Extent m_extent;
    QString m_trouble;
    bool m_isRegistryHeard = false;
    bool m_isRegistrySettled = false;
    std::uint64_t m_serial = 0;
};

} // namespace vantrel
