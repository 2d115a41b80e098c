// Writes the numbering plans of all countries as tables to be compiled into the program:
//
//     vantrel_numbering_plan > NumberingPlanTables.cpp
//
// libphonenumber itself costs a running program about 7 MB (protobuf, and its data once parsed);
// the tables are read-only pages of which a text with a few numbers touches a handful.

#include "CountryPlans.h"
#include "DigitLanguages.h"

#include <exception>
#include <iostream>
#include <limits>
#include <stdexcept>
#include <unordered_map>
#include <vector>

namespace vantrel::plan {
namespace {

using State = DigitLanguages::State;

/// Numbers the states that are in use, each close to those that follow it, so that walking one
/// country's numbers stays on few pages.
class Numbering {
public:
    explicit Numbering(const DigitLanguages &languages) : m_languages(languages) {
        m_order.push_back(DigitLanguages::nothing);
        m_numbers[DigitLanguages::nothing] = 0;
    }

    std::size_t numberOf(State start) {
        if (const auto known = m_numbers.find(start); known != m_numbers.end())
            return known->second;
        const std::size_t number = m_order.size();
        m_numbers[start] = number;
        m_order.push_back(start);
        for (const State next : m_languages.node(start).next)
            numberOf(next);
        return number;
    }

    [[nodiscard]] const std::vector<State> &order() const { return m_order; }

private:
    const DigitLanguages &m_languages;
    std::unordered_map<State, std::size_t> m_numbers;
    std::vector<State> m_order;
};

void write(std::ostream &out) {
    DigitLanguages languages;
    CountryPlans plans(languages);
    Numbering numbering(languages);
    const std::size_t international = numbering.numberOf(plans.international());

    out << "#include \"NumberingPlanTables.h\"\n\nnamespace vantrel::numberingplan {\n\n";
    out << "const std::uint16_t international = " << international << ";\n\n";
    out << "const Region regions[] = {\n";
    const auto regions = plans.regions();
    for (const auto &[code, region] : regions)
        out << "    {{'" << code.at(0) << "', '" << code.at(1) << "'}, " << region.callingCode
            << ", " << numbering.numberOf(region.dialled) << "},\n";
    out << "};\nconst std::size_t regionCount = " << regions.size() << ";\n\n";

    constexpr std::size_t most = std::numeric_limits<std::uint16_t>::max() / 2;
    if (numbering.order().size() > most)
        throw std::runtime_error("more states than the tables have numbers for");
    out << "const std::uint16_t transitions[][10] = {\n";
    for (const State state : numbering.order()) {
        out << "    {";
        for (const State next : languages.node(state).next)
            out << numbering.numberOf(next) * 2 + (languages.node(next).isAccepting ? 1 : 0) << ',';
        out << "},\n";
    }
    out << "};\n\n} // namespace vantrel::numberingplan\n";
}

} // namespace
} // namespace vantrel::plan

int main() {
    try {
        vantrel::plan::write(std::cout);
    } catch (const std::exception &error) {
        std::cerr << "numbering plan: " << error.what() << '\n';
        return 1;
    }
    return std::cout.flush() ? 0 : 1;
}
