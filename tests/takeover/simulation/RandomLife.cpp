#include "RandomLife.h"

#include <QDateTime>

#include <algorithm>

namespace vantrel::simulation {

namespace {

constexpr Micros second = microsPerSecond;
constexpr Micros minute = 60 * second;
constexpr Micros hour = 60 * minute;
constexpr Micros day = 24 * hour;

QTimeZone anyZone(Chance &chance) {
    return QTimeZone(chance.oneOf<const char *>(
        {"Europe/Zurich", "America/New_York", "Asia/Kathmandu", "Australia/Lord_Howe", "UTC"}));
}

/// Some moment of 2026 that is no full second, so that what counts from it meets nothing by chance.
Micros anyBeginning(Chance &chance) {
    const QDateTime newYear(QDate(2026, 1, 1), QTime(), Qt::UTC);
    const Micros days = chance.between(0, 330);
    const Micros seconds = chance.between(0, 86399);
    return newYear.toSecsSinceEpoch() * second + days * day + seconds * second +
           chance.between(1, second - 1);
}

QDate dateOf(Micros wall, const QTimeZone &zone) {
    return QDateTime::fromMSecsSinceEpoch(wall / 1000, zone).date();
}

} // namespace

RandomLife::RandomLife(std::uint64_t seed)
    : m_chance(seed),
      m_maker(m_chance),
      m_model{anyBeginning(m_chance), anyZone(m_chance)},
      m_desk(m_model.wall(), m_model.zone),
      m_madeUpTo(dateOf(m_model.wall(), m_model.zone)) {
    m_model.calendars = CalendarMaker::calendars();
    m_desk.setCalendars(m_model.calendars);
    m_model.settings.selectedCalendars = {QStringLiteral("work"), QStringLiteral("home")};
    m_desk.preferences().setSelectedCalendarIDs(m_model.settings.selectedCalendars);
}

std::optional<QString> RandomLife::live() {
    const Micros end = m_model.wall() + 30 * day;
    makeDaysAhead();
    m_desk.start();
    m_model.start();
    settle();
    while (m_model.wall() < end && !m_difference) {
        makeDaysAhead();
        if (m_chance.oneIn(3)) {
            happenAtAMeeting();
        } else {
            runTo(m_model.uptime() + anyGap());
            happen();
        }
        settle();
    }
    return m_difference;
}

// Time

Micros RandomLife::anyGap() {
    switch (m_chance.between(0, 9)) {
    case 0:
    case 1:
        return m_chance.between(1, 5 * minute);
    case 2:
        return m_chance.between(0, 120) * second;
    case 3:
        return m_chance.between(3 * hour, 8 * hour);
    default:
        return m_chance.between(5 * minute, 3 * hour);
    }
}

void RandomLife::runTo(Micros uptime) {
    while (!m_difference && m_model.uptime() < uptime)
        step(nextStop(uptime));
}

Micros RandomLife::nextStop(Micros limit) const {
    Micros stop = std::min(limit, m_model.nextMoment().value_or(limit));
    if (!m_answers.empty())
        stop = std::min(stop, m_answers.begin()->first);
    return stop;
}

void RandomLife::step(Micros uptime) {
    m_desk.advanceTo(uptime);
    m_model.advanceTo(uptime);
    compare();
    while (!m_answers.empty() && m_answers.begin()->first <= uptime && !m_difference) {
        const Answer given = m_answers.begin()->second;
        m_answers.erase(m_answers.begin());
        giveAnswer(given);
        settle();
    }
}

/// Lets all that is due at this very moment happen.
void RandomLife::settle() {
    m_desk.queue.runDue();
    m_model.advanceTo(m_model.uptime());
    compare();
}

void RandomLife::compare() {
    if (m_difference)
        return;
    const std::size_t longer = std::max(m_model.log.size(), m_desk.log.size());
    for (; m_compared < longer; ++m_compared) {
        const auto line = [&](const std::vector<QString> &log) {
            return m_compared < log.size() ? log[m_compared] : QStringLiteral("nothing");
        };
        const QString expected = line(m_model.log);
        const QString happened = line(m_desk.log);
        if (expected != happened) {
            m_difference =
                QStringLiteral("by the rules: %1; the program: %2").arg(expected, happened);
            return;
        }
        if (expected.contains(QLatin1String(" show ")))
            planAnswers();
    }
    if (m_model.isTakeoverUp() != m_desk.isTakeoverUp()) {
        m_difference = QStringLiteral("%1 a takeover is up by the rules: %2; in the program: %3")
                           .arg(m_model.uptime())
                           .arg(m_model.isTakeoverUp())
                           .arg(m_desk.isTakeoverUp());
    }
    m_desk.tidy();
}

// Answers

void RandomLife::planAnswers() {
    m_answers.clear();
    const bool staysForEver = m_model.settings.autoCloseSeconds == 0;
    if (m_chance.oneIn(6) && !staysForEver)
        return;
    const Micros wait = m_chance.oneOf<Micros>(
        {0, m_chance.between(1, 10 * second), m_chance.between(0, 90) * second,
         m_chance.between(1, 90 * second), m_chance.between(1, staysForEver ? hour : minute)});
    const Answer given = m_chance.oneOf({Answer::join, Answer::snooze, Answer::dismiss});
    m_answers.emplace(m_model.uptime() + wait, given);
    if (m_chance.oneIn(3)) { // A second press, before or after the panels are gone.
        const Micros later = wait + m_chance.between(0, 2 * second);
        m_answers.emplace(m_model.uptime() + later,
                          m_chance.oneOf({Answer::join, Answer::snooze, Answer::dismiss}));
    }
}

void RandomLife::giveAnswer(Answer given) {
    m_desk.answer(given);
    m_model.answer(given);
}

// What happens

void RandomLife::happen() {
    switch (m_chance.between(0, 9)) {
    case 0:
    case 1:
    case 2:
        changeASetting();
        break;
    case 3:
    case 4:
    case 5:
        changeTheCalendar();
        break;
    case 6:
        changeTheMachine();
        break;
    case 7:
        pauseInTheNickOfTime();
        break;
    case 8:
        if (m_chance.oneIn(5))
            restart();
        break;
    default:
        refreshBoth();
        break;
    }
    if (m_model.settings.isPaused && m_chance.oneIn(2))
        changePause();
}

/// Something at a moment that the rules draw a line at: a meeting's start, its end, the end of the
/// allowance for lateness, the fire, the edge of the horizon.
void RandomLife::happenAtAMeeting() {
    const Meeting *meeting = anyMeetingAhead(2 * day);
    if (!meeting)
        return;
    const Micros start = wallOf(meeting->start);
    const Micros end = wallOf(meeting->end);
    const Micros moment =
        m_chance.oneOf<Micros>({start, start, start - second, start + 300 * second, end,
                                start - m_model.settings.leadTimeSeconds * second, start - day});
    const Micros gap = moment - m_model.wall();
    if (gap < 0 || gap > 12 * hour)
        return;
    runTo(m_model.uptime() + gap);
    if (m_chance.oneIn(3)) {
        happen();
        return;
    }
    const Micros asleep = m_chance.oneOf<Micros>(
        {0, 0, start + 299 * second, start + 300 * second, start + 301 * second, end - second, end,
         end + second, m_model.wall() + m_chance.between(0, 10 * minute)});
    refreshBoth(asleep == 0 ? 0 : std::max<Micros>(asleep - m_model.wall(), 0));
}

void RandomLife::refreshBoth(Micros asleep) {
    m_desk.refresh(asleep);
    m_model.refresh(asleep);
}

/// A pause that begins at the moment of a fire, ahead of it.
void RandomLife::pauseInTheNickOfTime() {
    const Meeting *meeting = anyMeetingAhead(6 * hour);
    if (!meeting || m_model.settings.isPaused)
        return;
    const Micros delay =
        wallOf(meeting->start) - m_model.settings.leadTimeSeconds * second - m_model.wall();
    if (delay < 0)
        return;
    m_pause = m_desk.queue.after(std::chrono::microseconds{delay},
                                 [this] { m_desk.preferences().setIsPaused(true); });
    m_model.later(delay, [this] {
        m_model.settings.isPaused = true;
        m_model.settingChanged();
    });
    refreshBoth();
    runTo(m_model.uptime() + delay + m_chance.between(0, minute));
    changePause();
}

void RandomLife::changePause() {
    const bool isPaused = !m_model.settings.isPaused;
    m_desk.preferences().setIsPaused(isPaused);
    m_model.settings.isPaused = isPaused;
    m_model.settingChanged();
}

void RandomLife::changeASetting() {
    Settings &settings = m_model.settings;
    PreferencesStore &preferences = m_desk.preferences();
    switch (m_chance.between(0, 6)) {
    case 0:
        changePause();
        return;
    case 1: {
        const std::int64_t lead =
            m_chance.oneOf<std::int64_t>({0, 1, 60, 60, 120, 299, 300, m_chance.between(-50, 400)});
        preferences.setLeadTimeSeconds(lead);
        settings.leadTimeSeconds = std::clamp<std::int64_t>(lead, 0, 300);
        m_model.settingChanged();
        return;
    }
    case 2:
    case 3:
        changeWorkHours();
        return;
    case 4:
        changeSelection();
        return;
    case 5: {
        const std::int64_t minutes = m_chance.between(0, 17);
        preferences.setSnoozeDurationMinutes(minutes);
        settings.snoozeDurationMinutes = std::clamp<std::int64_t>(minutes, 1, 15);
        return;
    }
    default: {
        const std::int64_t seconds =
            m_chance.oneOf<std::int64_t>({0, 1, 30, 60, 120, 300, 900, m_chance.between(0, 4000)});
        preferences.setAutoCloseSeconds(seconds);
        settings.autoCloseSeconds = std::clamp<std::int64_t>(seconds, 0, 3600);
        return;
    }
    }
}

void RandomLife::changeWorkHours() {
    Settings &settings = m_model.settings;
    PreferencesStore &preferences = m_desk.preferences();
    const auto anyMinute = [&] {
        return m_chance.oneOf<std::int64_t>(
            {0, 480, 540, 1020, 1320, 1439, 5 * m_chance.between(0, 287)});
    };
    settings.workHoursEnabled = !m_chance.oneIn(3);
    settings.workHoursStartMinute = anyMinute();
    settings.workHoursEndMinute = anyMinute();
    settings.workHoursWeekdays.clear();
    for (std::int64_t weekday = 1; weekday <= 7; ++weekday) {
        if (!m_chance.oneIn(4))
            settings.workHoursWeekdays.insert(weekday);
    }
    preferences.setWorkHoursEnabled(settings.workHoursEnabled);
    preferences.setWorkHoursStartMinute(settings.workHoursStartMinute);
    preferences.setWorkHoursEndMinute(settings.workHoursEndMinute);
    preferences.setWorkHoursWeekdays(settings.workHoursWeekdays);
    m_model.settingChanged();
}

void RandomLife::changeSelection() {
    std::set<QString> selected;
    for (const QString &calendar : CalendarMaker::calendars()) {
        if (!m_chance.oneIn(4))
            selected.insert(calendar);
    }
    if (m_chance.oneIn(3))
        selected.insert(QStringLiteral("gone"));
    m_desk.preferences().setSelectedCalendarIDs(selected);
    m_model.settings.selectedCalendars = selected;
    m_model.settingChanged();
}

void RandomLife::changeTheCalendar() {
    std::vector<Meeting> &meetings = m_model.meetings;
    const std::int64_t soon = m_model.wall() / second + m_chance.between(0, 2 * 3600);
    const std::int64_t kind = meetings.empty() ? 0 : m_chance.between(0, 6);
    if (kind <= 1) {
        meetings.push_back(m_maker.single(soon - (m_chance.oneIn(2) ? soon % 300 : 0)));
    } else {
        Meeting &meeting = m_chance.oneOf(meetings);
        const QString identifier = meeting.identifier;
        const std::int64_t length = meeting.end - meeting.start;
        if (kind == 2) {
            std::erase_if(meetings,
                          [&](const Meeting &other) { return other.identifier == identifier; });
        } else if (kind == 3) {
            meeting.start = soon;
            meeting.end = soon + length;
        } else if (kind == 4) {
            meeting.end = meeting.start + length / 2;
        } else if (kind == 5) {
            meeting.isCancelled = !meeting.isCancelled;
        } else {
            meeting.way = m_chance.oneOf({Way::video, Way::phone, Way::place, Way::nothing});
        }
    }
    storeMeetings(!m_chance.oneIn(5));
}

void RandomLife::changeTheMachine() {
    switch (m_chance.between(0, 3)) {
    case 0:
    case 1: {
        const Micros length = m_chance.between(minute, m_chance.oneIn(3) ? 10 * hour : hour);
        m_desk.queue.suspend(std::chrono::microseconds{length});
        m_model.moveWall(length);
        break;
    }
    case 2: {
        const Micros farthest = m_chance.oneIn(2) ? 2 * hour : minute;
        const Micros by = m_chance.between(-farthest, farthest);
        m_model.moveWall(by);
        m_desk.queue.jumpWallTo(Instant{std::chrono::microseconds{m_model.wall()}});
        break;
    }
    default:
        m_model.zone = anyZone(m_chance);
        m_desk.setZone(m_model.zone);
        break;
    }
    m_desk.storeChanged();
    m_model.storeChanged();
}

void RandomLife::restart() {
    m_desk.stop();
    m_model.stop();
    m_desk.start();
    m_model.start();
}

// The calendar

void RandomLife::makeDaysAhead() {
    const QDate lastNeeded = dateOf(m_model.wall(), m_model.zone).addDays(2);
    if (m_madeUpTo > lastNeeded)
        return;
    while (m_madeUpTo <= lastNeeded) {
        const auto made = m_maker.day(m_madeUpTo, m_model.zone);
        m_model.meetings.insert(m_model.meetings.end(), made.begin(), made.end());
        m_madeUpTo = m_madeUpTo.addDays(1);
    }
    std::erase_if(m_model.meetings, [&](const Meeting &meeting) {
        return wallOf(meeting.end) < m_model.wall() - day;
    });
    storeMeetings(true);
}

void RandomLife::storeMeetings(bool isAnnounced) {
    m_desk.setMeetings(m_model.meetings);
    if (!isAnnounced)
        return;
    m_desk.storeChanged();
    m_model.storeChanged();
}

const Meeting *RandomLife::anyMeetingAhead(Micros within) {
    std::vector<const Meeting *> ahead;
    for (const Meeting &meeting : m_model.meetings) {
        const Micros start = wallOf(meeting.start);
        if (start > m_model.wall() && start < m_model.wall() + within)
            ahead.push_back(&meeting);
    }
    return ahead.empty() ? nullptr : m_chance.oneOf(ahead);
}

} // namespace vantrel::simulation
