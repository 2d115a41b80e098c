#include "CalendarRepository.h"

#include <platform/Collation.h>

#include <algorithm>
#include <map>
#include <utility>

namespace vantrel {

namespace {

using CalendarType = CalendarRepository::CalendarType;

constexpr CalendarType allCalendarTypes[] = {CalendarType::standard, CalendarType::subscription,
                                             CalendarType::birthday};

CalendarType typeOf(StoreCalendarType type) {
    switch (type) {
    case StoreCalendarType::subscription:
        return CalendarType::subscription;
    case StoreCalendarType::birthday:
        return CalendarType::birthday;
    case StoreCalendarType::local:
        break;
    }
    return CalendarType::standard;
}

CalendarRepository::CalendarInfo infoOf(const StoreCalendar &calendar) {
    if (!calendar.color)
        qFatal("A calendar of the store has no colour");
    return {calendar.calendarIdentifier, calendar.title, *calendar.color,
            calendar.allowsContentModifications, typeOf(calendar.type)};
}

/// `calendars` are those of one source, at least one.
CalendarRepository::Group groupOf(std::vector<StoreCalendar> calendars,
                                  const Collation &collation) {
    std::stable_sort(calendars.begin(), calendars.end(),
                     [&collation](const StoreCalendar &left, const StoreCalendar &right) {
                         return collation.localizedCompare(left.title, right.title) < 0;
                     });
    const StoreSource &source = calendars.front().source;
    CalendarRepository::Group group{{source.sourceIdentifier, source.title}, {}};
    group.calendars.reserve(calendars.size());
    for (const StoreCalendar &calendar : calendars)
        group.calendars.push_back(infoOf(calendar));
    return group;
}

} // namespace

CalendarRepository::CalendarRepository(const EventStore &store, CurrentCalendar currentCalendar)
    : m_store(store), m_currentCalendar(std::move(currentCalendar)) {}

CalendarRepository::Snapshot CalendarRepository::currentSnapshot() const {
    std::map<QString, std::vector<StoreCalendar>> bySource;
    for (StoreCalendar &calendar : m_store.calendars()) {
        if (calendar.source.sourceIdentifier.isEmpty())
            qFatal("A calendar of the store has no source");
        bySource[calendar.source.sourceIdentifier].push_back(std::move(calendar));
    }
    const Collation collation(m_currentCalendar().locale());
    Snapshot snapshot;
    for (auto &[identifier, calendars] : bySource)
        snapshot.groups.push_back(groupOf(std::move(calendars), collation));
    std::stable_sort(snapshot.groups.begin(), snapshot.groups.end(),
                     [&collation](const Group &left, const Group &right) {
                         return collation.localizedCompare(left.source.title, right.source.title) <
                                0;
                     });
    return snapshot;
}

QStringList CalendarRepository::defaultFirstRunSelection() const {
    QStringList identifiers;
    for (const Group &group : currentSnapshot().groups) {
        for (const CalendarInfo &calendar : group.calendars) {
            if (calendar.type == CalendarType::standard)
                identifiers.append(calendar.id);
        }
    }
    return identifiers;
}

QString rawValue(CalendarRepository::CalendarType type) {
    switch (type) {
    case CalendarType::standard:
        return QStringLiteral("standard");
    case CalendarType::subscription:
        return QStringLiteral("subscription");
    case CalendarType::birthday:
        return QStringLiteral("birthday");
    }
    Q_UNREACHABLE();
}

std::optional<CalendarRepository::CalendarType> calendarTypeFromRawValue(const QString &name) {
    for (const CalendarType type : allCalendarTypes) {
        if (rawValue(type) == name)
            return type;
    }
    return std::nullopt;
}

std::size_t qHash(const CalendarRepository::CalendarInfo &calendar, std::size_t seed) {
    const Color &color = calendar.color;
    return qHashMulti(seed, calendar.id, calendar.title, color.red, color.green, color.blue,
                      color.alpha, calendar.allowsModifications, static_cast<int>(calendar.type));
}

std::size_t qHash(const CalendarRepository::SourceInfo &source, std::size_t seed) {
    return qHashMulti(seed, source.id, source.title);
}

std::size_t qHash(const CalendarRepository::Group &group, std::size_t seed) {
    return qHashRange(group.calendars.begin(), group.calendars.end(), qHash(group.source, seed));
}

std::size_t qHash(const CalendarRepository::Snapshot &snapshot, std::size_t seed) {
    return qHashRange(snapshot.groups.begin(), snapshot.groups.end(), seed);
}

} // namespace vantrel
