#pragma once

#include "DigitLanguages.h"

#include <memory>
#include <string_view>
#include <vector>

namespace vantrel::plan {

/// Reads one pattern and gives the strings that it matches, each followed by a string of a given
/// language. What follows is known while reading backwards through the pattern, so no automaton
/// with empty steps is ever needed.
class PatternReader {
public:
    PatternReader(DigitLanguages &languages, std::string_view pattern);

    DigitLanguages::State read(DigitLanguages::State rest);

private:
    struct Piece;
    using Sequence = std::vector<Piece>;

    /// One set of digits, or a group of alternatives, and how often it is repeated.
    struct Piece {
        std::array<bool, 10> digits{};
        std::vector<Sequence> alternatives; ///< Empty for a set of digits.
        int least = 1;
        int most = 1;
    };

    std::vector<Sequence> readAlternatives();
    Sequence readSequence();
    Piece readPiece();
    void readSet(Piece &piece);
    void readRepetition(Piece &piece);
    int readNumber();
    char take();
    [[nodiscard]] bool isAt(char character) const;
    [[noreturn]] void refuse() const;

    DigitLanguages::State follow(const std::vector<Sequence> &alternatives,
                                 DigitLanguages::State rest);
    DigitLanguages::State follow(const Piece &piece, DigitLanguages::State rest);
    DigitLanguages::State followOnce(const Piece &piece, DigitLanguages::State rest);

    DigitLanguages &m_languages;
    std::string_view m_pattern;
    std::size_t m_position = 0;
};

} // namespace vantrel::plan
