#pragma once

#include "Meeting.h"

#include <QTimeZone>

#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace vantrel::simulation {

/// What the user is to see and what is to be counted, worked out from the rules alone: a list of
/// moments in whole microseconds, with nothing of the program in it. A difference between its log
/// and the program's is a mistake in one of the two.
class RulesModel {
public:
    RulesModel(Micros wall, QTimeZone zone);

    // The world; whoever changes it calls what announces the change.
    std::vector<Meeting> meetings; ///< In the store's order.
    std::set<QString> calendars;
    Settings settings;
    QTimeZone zone;

    /// "uptime what", one line for each thing that is seen or counted.
    std::vector<QString> log;

    void start();
    void stop();
    /// One of the settings that the plan depends on was assigned.
    void settingChanged() { add(0, {Kind::settingSignal, {}, {}}); }
    /// The store told of a change.
    void storeChanged();
    /// The plan is made at this moment, and `asleep` goes by on the wall while the store is asked
    /// for meetings. It is not asked during a pause, nor when no calendar is watched.
    void refresh(Micros asleep = 0) { plan(asleep); }
    void answer(Answer given);
    /// Something outside the rules that happens at its turn, `delay` from here.
    void later(Micros delay, std::function<void()> happening) {
        add(delay, {Kind::happening, {}, std::move(happening)});
    }

    /// Sets the wall clock; everything that waits keeps waiting as long as before.
    void moveWall(Micros by) { m_wall += by; }
    void advanceTo(Micros uptime);

    [[nodiscard]] Micros wall() const { return m_wall; }
    [[nodiscard]] Micros uptime() const { return m_uptime; }
    [[nodiscard]] std::optional<Micros> nextMoment() const;
    [[nodiscard]] bool isTakeoverUp() const { return m_takeover.has_value(); }
    [[nodiscard]] bool isJoined() const { return m_takeover && m_takeover->isJoined; }

private:
    enum class Kind {
        hourlyTick,
        settingSignal,
        quietTimeOver,
        fire,
        autoClose,
        joinedViewOver,
        happening
    };

    struct Item {
        Kind kind;
        Meeting meeting;                 ///< Of `fire`.
        std::function<void()> happening; ///< Of `happening`.
    };

    struct Takeover {
        Meeting meeting;
        Way way;
        bool isJoined = false;
    };

    using Occurrence = std::pair<QString, std::int64_t>;
    static Occurrence occurrenceOf(const Meeting &meeting);

    void plan(Micros asleep);
    [[nodiscard]] std::vector<Meeting> upcoming() const;
    [[nodiscard]] bool isAnyCalendarWatched() const;
    [[nodiscard]] bool isInWorkHours(Micros moment) const;
    void arm(const Meeting &meeting, Micros delay);
    void fire(const Meeting &meeting);
    [[nodiscard]] std::optional<Meeting> storedEvent(const QString &identifier) const;
    void show(const Meeting &meeting, Way way);
    void close();

    void add(Micros delay, Item item);
    void drop(Kind kind);
    void happen(const Item &item);
    void write(const QString &what);

    Micros m_wall;
    Micros m_uptime = 0;
    /// In the order in which things happen: by moment, at one moment by when it was asked for.
    std::map<std::pair<Micros, std::uint64_t>, Item> m_agenda;
    std::uint64_t m_asked = 0;
    std::map<Occurrence, std::int64_t> m_shown; ///< With the meeting's end.
    std::optional<Takeover> m_takeover;
};

} // namespace vantrel::simulation
