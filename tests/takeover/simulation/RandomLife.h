#pragma once

#include "CalendarMaker.h"
#include "Chance.h"
#include "RulesModel.h"
#include "SimulatedDesk.h"

#include <QDate>

#include <map>
#include <optional>
#include <vector>

namespace vantrel::simulation {

/// Thirty days of somebody's meetings, settings, answers and machine, drawn from one seed, lived
/// by the program and by the model of the rules at once.
class RandomLife {
public:
    explicit RandomLife(std::uint64_t seed);

    /// Ends at the first difference; tells it, or nothing when there was none.
    std::optional<QString> live();

    /// What was seen and counted.
    [[nodiscard]] const std::vector<QString> &log() const { return m_model.log; }

private:
    // Time
    void runTo(Micros uptime);
    void step(Micros uptime);
    void compare();
    [[nodiscard]] Micros nextStop(Micros limit) const;
    [[nodiscard]] Micros anyGap();

    // What happens
    void happen();
    void happenAtAMeeting();
    void pauseInTheNickOfTime();
    void changeASetting();
    void changePause();
    void changeWorkHours();
    void changeSelection();
    void changeTheCalendar();
    void changeTheMachine();
    void restart();
    void refreshBoth(Micros asleep = 0);
    void settle();
    void planAnswers();
    void giveAnswer(Answer given);

    // The calendar
    void makeDaysAhead();
    void storeMeetings(bool isAnnounced);
    [[nodiscard]] const Meeting *anyMeetingAhead(Micros within);
    [[nodiscard]] Micros wallOf(std::int64_t second) const { return second * microsPerSecond; }

    Chance m_chance;
    CalendarMaker m_maker;
    RulesModel m_model;
    SimulatedDesk m_desk;
    QDate m_madeUpTo;
    std::multimap<Micros, Answer> m_answers; ///< To come, by uptime.
    ScheduledWork m_pause;
    std::size_t m_compared = 0;
    std::optional<QString> m_difference;
};

} // namespace vantrel::simulation
