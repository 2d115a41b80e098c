#include "RulesModel.h"

#include <QDateTime>

#include <algorithm>

namespace vantrel::simulation {

namespace {

constexpr Micros hour = 3600 * microsPerSecond;
constexpr Micros quietTime = 500'000;
constexpr Micros joinedViewTime = 1'500'000;

std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
    return (value >= 0 ? value : value - divisor + 1) / divisor;
}

const char *labelOf(Way way) {
    switch (way) {
    case Way::video:
        return "Join";
    case Way::phone:
        return "Call";
    case Way::place:
        return "Heading over";
    case Way::nothing:
        return "Got it";
    }
    return "";
}

} // namespace

RulesModel::RulesModel(Micros wall, QTimeZone homeZone) : zone(std::move(homeZone)), m_wall(wall) {}

void RulesModel::start() {
    add(hour, {Kind::hourlyTick, {}, {}});
    plan(0);
}

void RulesModel::stop() {
    drop(Kind::fire);
    drop(Kind::hourlyTick);
    drop(Kind::settingSignal);
}

void RulesModel::storeChanged() {
    drop(Kind::quietTimeOver);
    add(quietTime, {Kind::quietTimeOver, {}, {}});
}

// The plan

void RulesModel::plan(Micros asleep) {
    drop(Kind::fire);
    std::erase_if(m_shown,
                  [&](const auto &entry) { return entry.second * microsPerSecond <= m_wall; });
    if (settings.isPaused)
        return;
    const std::vector<Meeting> listed = upcoming();
    if (isAnyCalendarWatched())
        m_wall += asleep;
    for (const Meeting &meeting : listed) {
        const Micros start = meeting.start * microsPerSecond;
        const Micros end = meeting.end * microsPerSecond;
        const bool wasShown = m_shown.contains(occurrenceOf(meeting));
        const bool isOver = end <= m_wall;
        const bool isTooLate = m_wall - start > 300 * microsPerSecond;
        if (wasShown || isOver || isTooLate)
            continue;
        const Micros moment = std::max(start - settings.leadTimeSeconds * microsPerSecond, m_wall);
        if (!settings.workHoursEnabled || isInWorkHours(moment))
            arm(meeting, moment - m_wall);
    }
}

std::vector<Meeting> RulesModel::upcoming() const {
    std::vector<Meeting> found;
    for (const Meeting &meeting : meetings) {
        const Micros start = meeting.start * microsPerSecond;
        const bool isWatched = settings.selectedCalendars.contains(meeting.calendar) &&
                               calendars.contains(meeting.calendar);
        const bool isNear = start >= m_wall - 300 * microsPerSecond && start < m_wall + 24 * hour;
        const bool isMeant = !meeting.isAllDay && !meeting.isCancelled && !meeting.isDeclined;
        if (isWatched && isNear && isMeant)
            found.push_back(meeting);
    }
    std::stable_sort(found.begin(), found.end(), [](const Meeting &left, const Meeting &right) {
        return left.start < right.start;
    });
    return found;
}

bool RulesModel::isAnyCalendarWatched() const {
    return std::any_of(calendars.begin(), calendars.end(), [&](const QString &calendar) {
        return settings.selectedCalendars.contains(calendar);
    });
}

bool RulesModel::isInWorkHours(Micros moment) const {
    const std::int64_t second = floorDivide(moment, microsPerSecond);
    const std::int64_t local =
        second + zone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(second, Qt::UTC));
    const std::int64_t day = floorDivide(local, 86400);
    const std::int64_t weekday = ((day + 4) % 7 + 7) % 7 + 1; // 1970 began on a Thursday.
    if (!settings.workHoursWeekdays.contains(weekday))
        return false;
    const std::int64_t minute = (local - day * 86400) / 60;
    const std::int64_t from = settings.workHoursStartMinute;
    const std::int64_t to = settings.workHoursEndMinute;
    if (from < to)
        return minute >= from && minute < to;
    return from != to && !(minute >= to && minute < from);
}

void RulesModel::arm(const Meeting &meeting, Micros delay) {
    std::erase_if(m_agenda, [&](const auto &entry) {
        return entry.second.kind == Kind::fire &&
               occurrenceOf(entry.second.meeting) == occurrenceOf(meeting);
    });
    add(delay, {Kind::fire, meeting, {}});
}

RulesModel::Occurrence RulesModel::occurrenceOf(const Meeting &meeting) {
    return {meeting.identifier, meeting.start};
}

// The takeover

void RulesModel::fire(const Meeting &meeting) {
    m_shown[occurrenceOf(meeting)] = meeting.end;
    if (settings.isPaused)
        return;
    const auto stored = storedEvent(meeting.identifier);
    if (stored && !m_takeover)
        show(meeting, stored->way);
}

/// Of a series the occurrence under way, else the next one, else the last one.
std::optional<Meeting> RulesModel::storedEvent(const QString &identifier) const {
    std::optional<Meeting> next;
    std::optional<Meeting> last;
    for (const Meeting &meeting : meetings) {
        if (meeting.identifier != identifier)
            continue;
        const bool hasBegun = meeting.start * microsPerSecond <= m_wall;
        if (hasBegun && m_wall < meeting.end * microsPerSecond)
            return meeting;
        auto &best = hasBegun ? last : next;
        if (!best || (hasBegun ? meeting.start > best->start : meeting.start < best->start))
            best = meeting;
    }
    return next ? next : last;
}

void RulesModel::show(const Meeting &meeting, Way way) {
    m_takeover = Takeover{meeting, way};
    QString countdown = QStringLiteral("wrapped up");
    if (m_wall < meeting.start * microsPerSecond) {
        const std::int64_t left = meeting.start - floorDivide(m_wall, microsPerSecond);
        countdown = QStringLiteral("starts in %1:%2")
                        .arg(left / 60)
                        .arg(left % 60, 2, 10, QLatin1Char('0'));
    } else if (m_wall < meeting.end * microsPerSecond) {
        countdown = QStringLiteral("rolling now");
    }
    write(QStringLiteral("show %1, %2, %3")
              .arg(meeting.title, QLatin1String(labelOf(way)), countdown));
    if (settings.autoCloseSeconds >= 1)
        add(settings.autoCloseSeconds * microsPerSecond, {Kind::autoClose, {}, {}});
}

void RulesModel::close() {
    drop(Kind::autoClose);
    drop(Kind::joinedViewOver);
    m_takeover.reset();
}

void RulesModel::answer(Answer given) {
    if (!m_takeover || m_takeover->isJoined)
        return;
    const Meeting meeting = m_takeover->meeting;
    switch (given) {
    case Answer::join:
        if (m_takeover->way == Way::video)
            write(QStringLiteral("open ") + videoUrl(meeting.identifier));
        if (m_takeover->way == Way::phone)
            write(QStringLiteral("open tel:+41446681800"));
        write(QStringLiteral("rescue"));
        m_takeover->isJoined = true;
        drop(Kind::autoClose);
        add(joinedViewTime, {Kind::joinedViewOver, {}, {}});
        return;
    case Answer::snooze:
        write(QStringLiteral("snooze"));
        m_shown.erase(occurrenceOf(meeting));
        arm(meeting, settings.snoozeDurationMinutes * 60 * microsPerSecond);
        break;
    case Answer::dismiss:
        write(QStringLiteral("dismiss"));
        break;
    }
    close();
}

// The run of time

void RulesModel::add(Micros delay, Item item) {
    m_agenda.emplace(std::pair{m_uptime + delay, m_asked++}, std::move(item));
}

void RulesModel::drop(Kind kind) {
    std::erase_if(m_agenda, [kind](const auto &entry) { return entry.second.kind == kind; });
}

std::optional<Micros> RulesModel::nextMoment() const {
    if (m_agenda.empty())
        return std::nullopt;
    return m_agenda.begin()->first.first;
}

void RulesModel::advanceTo(Micros uptime) {
    while (!m_agenda.empty() && m_agenda.begin()->first.first <= uptime) {
        const Micros moment = m_agenda.begin()->first.first;
        const Item item = m_agenda.begin()->second;
        m_agenda.erase(m_agenda.begin());
        m_wall += moment - m_uptime;
        m_uptime = moment;
        happen(item);
    }
    m_wall += uptime - m_uptime;
    m_uptime = uptime;
}

void RulesModel::happen(const Item &item) {
    switch (item.kind) {
    case Kind::hourlyTick:
        add(hour, {Kind::hourlyTick, {}, {}});
        plan(0);
        break;
    case Kind::settingSignal:
    case Kind::quietTimeOver:
        plan(0);
        break;
    case Kind::fire:
        fire(item.meeting);
        break;
    case Kind::autoClose:
        answer(Answer::dismiss);
        break;
    case Kind::joinedViewOver:
        close();
        break;
    case Kind::happening:
        item.happening();
        break;
    }
}

void RulesModel::write(const QString &what) {
    log.push_back(QStringLiteral("%1 %2").arg(m_uptime).arg(what));
}

} // namespace vantrel::simulation
