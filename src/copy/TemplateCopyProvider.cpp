#include "TemplateCopyProvider.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cstddef>
#include <random>
#include <utility>

namespace vantrel {

namespace {

using Moment = MeetingMoment;
using Rule = TemplateCopyProvider::Rule;

bool endsTheDay(const Moment &moment) {
    return moment.dayPosition == Moment::DayPosition::lastOfDay ||
           moment.dayPosition == Moment::DayPosition::onlyOfDay;
}

bool opensTheDay(const Moment &moment) {
    return moment.dayPosition == Moment::DayPosition::firstOfDay ||
           moment.dayPosition == Moment::DayPosition::onlyOfDay;
}

/// The order is the precedence: lateness first, then what is special about the day, then the
/// meeting's place in it, then the meeting itself.
std::vector<Rule> makeDefaultLibrary() {
    return {
        {QStringLiteral("joinedLate"),
         [](const Moment &moment) { return moment.urgency == Moment::Urgency::joinedLate; },
         {QStringLiteral("Already rolling — hop in."), QStringLiteral("Slide in quietly.")}},
        {QStringLiteral("friday-lastOfDay"),
         [](const Moment &moment) {
             return moment.dayType == Moment::DayType::friday && endsTheDay(moment);
         },
         {QStringLiteral("Last one, then the weekend."), QStringLiteral("Friday's home stretch.")}},
        {QStringLiteral("monday-firstOfDay"),
         [](const Moment &moment) {
             return moment.dayType == Moment::DayType::monday && opensTheDay(moment);
         },
         {QStringLiteral("Monday's first one. Tobble's got you."),
          QStringLiteral("Here we go — first of the week.")}},
        {QStringLiteral("backToBack"),
         [](const Moment &moment) { return moment.gapBefore == Moment::GapBefore::backToBack; },
         {QStringLiteral("Straight into the next one."),
          QStringLiteral("No gap — Tobble walked you over.")}},
        {QStringLiteral("onlyOfDay"),
         [](const Moment &moment) { return moment.dayPosition == Moment::DayPosition::onlyOfDay; },
         {QStringLiteral("Just the one today. Don't let it slip."),
          QStringLiteral("Only one on the books.")}},
        {QStringLiteral("firstOfDay"),
         [](const Moment &moment) { return moment.dayPosition == Moment::DayPosition::firstOfDay; },
         {QStringLiteral("First one's up."), QStringLiteral("Day's first meeting.")}},
        {QStringLiteral("lastOfDay"),
         [](const Moment &moment) { return moment.dayPosition == Moment::DayPosition::lastOfDay; },
         {QStringLiteral("Last one of the day."), QStringLiteral("Day's final meeting.")}},
        {QStringLiteral("longGap"),
         [](const Moment &moment) { return moment.gapBefore == Moment::GapBefore::longGap; },
         {QStringLiteral("Welcome back. This one's starting."), QStringLiteral("Back to it.")}},
        {QStringLiteral("inPersonOnly"),
         [](const Moment &moment) { return moment.linkState == Moment::LinkState::inPersonOnly; },
         {QStringLiteral("Time to head over."), QStringLiteral("Heading-over time.")}},
        {QStringLiteral("oneOff"),
         [](const Moment &moment) { return moment.recurrence == Moment::Recurrence::oneOff; },
         {QStringLiteral("A one-off — easy to forget. Not on Tobble's watch."),
          QStringLiteral("One-off — Tobble's tracking it.")}},
        {QStringLiteral("earlyMorning"),
         [](const Moment &moment) { return moment.timeOfDay == Moment::TimeOfDay::earlyMorning; },
         {QStringLiteral("Early one."), QStringLiteral("Up early — meeting incoming.")}},
        {QStringLiteral("evening"),
         [](const Moment &moment) { return moment.timeOfDay == Moment::TimeOfDay::evening; },
         {QStringLiteral("After-hours one."), QStringLiteral("Evening meeting up.")}},
    };
}

} // namespace

TemplateCopyProvider::TemplateCopyProvider(std::vector<Rule> rules, Pick pick)
    : m_rules(std::move(rules)), m_pick(std::move(pick)) {}

const std::vector<Rule> &TemplateCopyProvider::defaultLibrary() {
    static const std::vector<Rule> library = makeDefaultLibrary();
    return library;
}

std::optional<QString> TemplateCopyProvider::randomElement(const std::vector<QString> &variants) {
    if (variants.empty())
        return std::nullopt;
    // The system's generator may be drawn from on any thread, without a state of our own.
    std::uniform_int_distribution<std::size_t> index(0, variants.size() - 1);
    return variants[index(*QRandomGenerator::system())];
}

const Rule *TemplateCopyProvider::matchingRule(const MeetingMoment &moment) const {
    const auto found = std::find_if(m_rules.begin(), m_rules.end(),
                                    [&](const Rule &rule) { return rule.matches(moment); });
    return found == m_rules.end() ? nullptr : &*found;
}

std::optional<QString> TemplateCopyProvider::line(const MeetingMoment &moment) const {
    const Rule *rule = matchingRule(moment);
    return rule ? m_pick(rule->variants) : std::nullopt;
}

} // namespace vantrel
