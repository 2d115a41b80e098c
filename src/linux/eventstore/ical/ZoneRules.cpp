#include "ZoneRules.h"

#include "RuleReadings.h"
#include "ValueList.h"

#include <algorithm>
#include <chrono>
#include <optional>

namespace vantrel {

namespace {

constexpr CivilSeconds firstRuleTime = 0; // 1970
constexpr CivilSeconds lastRuleTime =
    std::chrono::sys_days{std::chrono::year{2100} / 1 / 1}.time_since_epoch().count() *
    secondsPerDay;
constexpr std::size_t maximumOnsets = 1000;
/// A rule from 1970 to 2100 takes some 50'000.
constexpr int maximumSteps = 500'000;

/// One STANDARD or DAYLIGHT block.
struct Observance {
    std::optional<CivilSeconds> start;
    std::optional<int> offsetFrom;
    std::optional<int> offsetTo;
    std::vector<QByteArrayView> rules;
    std::vector<CivilSeconds> dates;
};

/// "+0100", "-043000"; empty for anything else.
std::optional<int> parseOffset(QByteArrayView text) {
    text = text.trimmed();
    const bool isNegative = text.startsWith('-');
    if (isNegative || text.startsWith('+'))
        text = text.sliced(1);
    bool isNumber = false;
    const int digits = text.toByteArray().toInt(&isNumber);
    if (!isNumber || digits < 0 || (text.size() != 4 && text.size() != 6))
        return std::nullopt;
    const int full = text.size() == 4 ? digits * 100 : digits;
    const int seconds = full / 10000 * 3600 + full / 100 % 100 * 60 + full % 100;
    return seconds >= secondsPerDay ? std::nullopt : std::optional(isNegative ? -seconds : seconds);
}

void addDates(Observance &observance, QByteArrayView list) {
    forEachValue(list, [&](QByteArrayView value) {
        if (const auto date = parseDateTime(value); date && observance.dates.size() < maximumOnsets)
            observance.dates.push_back(date->civil);
    });
}

void readLine(Observance &observance, const ContentLine &line) {
    if (line.isNamed("DTSTART")) {
        if (const auto start = parseDateTime(line.value))
            observance.start = start->civil;
    } else if (line.isNamed("TZOFFSETFROM")) {
        observance.offsetFrom = parseOffset(line.value);
    } else if (line.isNamed("TZOFFSETTO")) {
        observance.offsetTo = parseOffset(line.value);
    } else if (line.isNamed("RRULE") && observance.rules.size() < 4) {
        observance.rules.push_back(line.value);
    } else if (line.isNamed("RDATE")) {
        addDates(observance, line.value);
    }
}

std::vector<Observance> readObservances(const std::vector<ContentLine> &lines) {
    std::vector<Observance> observances;
    std::optional<Observance> open;
    for (const ContentLine &line : lines) {
        if (line.isNamed("BEGIN"))
            open = Observance();
        else if (line.isNamed("END") && open) {
            if (open->start && open->offsetFrom && open->offsetTo)
                observances.push_back(std::move(*open));
            open.reset();
        } else if (open)
            readLine(*open, line);
    }
    return observances;
}

/// The wall-clock readings at which the observance begins, by the offset that held before.
std::vector<CivilSeconds> onsetsOf(const Observance &observance, int &steps) {
    std::vector<CivilSeconds> onsets = observance.dates;
    onsets.push_back(*observance.start);
    for (const QByteArrayView text : observance.rules) {
        QString problem;
        const auto rule = RecurrenceRule::parse(text, problem);
        if (!rule || rule->frequency != RecurrenceRule::Frequency::yearly)
            continue;
        std::optional<CivilSeconds> until;
        if (rule->until)
            until = rule->until->civil + (rule->until->isUtc ? *observance.offsetFrom : 0);
        RuleReadings(*rule, *observance.start, until)
            .collect(firstRuleTime, lastRuleTime, steps, onsets);
    }
    return onsets;
}

} // namespace

std::shared_ptr<const Zone> zoneFromRules(const std::vector<ContentLine> &lines) {
    std::vector<Zone::Transition> transitions;
    std::optional<CivilSeconds> earliest;
    int offset = 0;
    int steps = maximumSteps;
    for (const Observance &observance : readObservances(lines)) {
        for (const CivilSeconds onset : onsetsOf(observance, steps)) {
            transitions.push_back({onset - *observance.offsetFrom, *observance.offsetTo});
            if (!earliest || onset < *earliest) {
                earliest = onset;
                offset = *observance.offsetFrom;
            }
        }
    }
    if (transitions.empty())
        return nullptr;
    std::stable_sort(transitions.begin(), transitions.end(),
                     [](const auto &left, const auto &right) { return left.at < right.at; });
    return std::make_shared<const Zone>(offset, std::move(transitions));
}

} // namespace vantrel
