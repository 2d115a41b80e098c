#include <linux/eventstore/ical/ComponentReader.h>
#include <linux/eventstore/ical/ComponentsByUid.h>
#include <linux/eventstore/ical/SeriesExpander.h>
#include <linux/eventstore/ical/ZoneRegistry.h>

#include <QTimeZone>

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace vantrel;

/// A window, the user's zone, and a calendar text of that many bytes.
struct Question {
    Window window;
    std::string userZone;
    std::size_t length = 0;
};

void answer(const Question &question, const QByteArray &text, ZoneRegistry &registry) {
    CalendarText calendar = readCalendarText(text, registry);
    const Zone zone{QTimeZone(QByteArray::fromStdString(question.userZone))};
    const SeriesExpander expander(UserClock(zone), question.window);
    StepBudget budget;
    std::vector<Occurrence> occurrences;
    ComponentsByUid(calendar.events).forEach([&](UidHash, const auto &components) {
        const Expansion expansion = expander.expand(components, budget, calendar.problems);
        occurrences.insert(occurrences.end(), expansion.occurrences.begin(),
                           expansion.occurrences.end());
    });
    std::sort(occurrences.begin(), occurrences.end(), [](const auto &left, const auto &right) {
        return std::pair(left.start, left.end) < std::pair(right.start, right.end);
    });
    for (const Occurrence &occurrence : occurrences)
        std::cout << occurrence.start << ' ' << occurrence.end << '\n';
    for (const Problem &problem : calendar.problems.kept())
        std::cout << "! " << problem.reason.toStdString() << '\n';
    std::cout << ".\n";
}

} // namespace

/// Reads questions from standard input, "FROM TO ZONE LENGTH" on a line and then the text, and
/// answers each with a line for every occurrence, "START END", one for every problem, "! REASON",
/// and a line with a full stop. Times are seconds since 1970.
int main() {
    std::ios::sync_with_stdio(false);
    ZoneRegistry registry;
    Question question;
    while (std::cin >> question.window.from >> question.window.to >> question.userZone >>
           question.length) {
        std::cin.ignore(1);
        std::string text(question.length, '\0');
        if (!std::cin.read(text.data(), static_cast<std::streamsize>(text.size())))
            return 1;
        answer(question, QByteArray::fromStdString(text), registry);
    }
    return 0;
}
