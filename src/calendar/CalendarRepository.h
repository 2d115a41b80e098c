#pragma once

#include <platform/Color.h>
#include <platform/EventStore.h>
#include <platform/LocalCalendar.h>

#include <QHashFunctions>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace vantrel {

/// Lists the user's calendars by account, in the order in which they are shown. Keeps nothing
/// between calls. Main thread only, like the store.
class CalendarRepository {
public:
    enum class CalendarType {
        standard,
        subscription, ///< Holidays, fixtures and the like, which others publish.
        birthday      ///< Made from the address book.
    };

    struct CalendarInfo {
        QString id; ///< What the selection of the user holds.
        QString title;
        Color color;
        bool allowsModifications = true;
        CalendarType type = CalendarType::standard;

        bool operator==(const CalendarInfo &) const = default;
    };

    /// An account, or another place that holds calendars.
    struct SourceInfo {
        QString id;
        QString title;

        bool operator==(const SourceInfo &) const = default;
    };

    struct Group {
        SourceInfo source;                   ///< Its `id` names the group.
        std::vector<CalendarInfo> calendars; ///< By title; never empty.

        bool operator==(const Group &) const = default;
    };

    struct Snapshot {
        std::vector<Group> groups; ///< By the title of the source.

        bool operator==(const Snapshot &) const = default;
    };

    /// `store` must outlive this object. Titles are sorted as in the locale of `currentCalendar`.
    CalendarRepository(const EventStore &store, CurrentCalendar currentCalendar);

    /// Empty without access. A calendar without a colour or a source stops the program: no store
    /// hands out such a calendar.
    [[nodiscard]] Snapshot currentSnapshot() const;

    /// The identifiers of the calendars that a user watches who never chose: all ordinary ones,
    /// those of others that may just be read included. May be empty.
    [[nodiscard]] QStringList defaultFirstRunSelection() const;

private:
    const EventStore &m_store;
    CurrentCalendar m_currentCalendar;
};

/// "standard", "subscription" or "birthday".
[[nodiscard]] QString rawValue(CalendarRepository::CalendarType type);

/// Empty for a name that `rawValue` does not give.
[[nodiscard]] std::optional<CalendarRepository::CalendarType>
calendarTypeFromRawValue(const QString &rawValue);

[[nodiscard]] std::size_t qHash(const CalendarRepository::CalendarInfo &calendar,
                                std::size_t seed = 0);
[[nodiscard]] std::size_t qHash(const CalendarRepository::SourceInfo &source, std::size_t seed = 0);
[[nodiscard]] std::size_t qHash(const CalendarRepository::Group &group, std::size_t seed = 0);
[[nodiscard]] std::size_t qHash(const CalendarRepository::Snapshot &snapshot, std::size_t seed = 0);

} // namespace vantrel
