#pragma once

#include <cstddef>
#include <cstdint>

/// The numbering plans of all countries, written at build time from libphonenumber's data by the
/// program in plan/. A state of the automaton is a row of `transitions`; its ten entries are twice
/// the next state, plus one where the digits up to there are a phone number. State 0 is the end.
namespace vantrel::numberingplan {

struct Region {
    char code[2]; ///< ISO 3166-1.
    std::uint16_t callingCode;
    std::uint16_t start; ///< The state before the first digit dialled there.
};

extern const std::uint16_t international; ///< The state behind a plus sign.
extern const Region regions[];            ///< In ascending order of code.
extern const std::size_t regionCount;
extern const std::uint16_t transitions[][10];

} // namespace vantrel::numberingplan
