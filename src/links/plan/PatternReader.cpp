#include "PatternReader.h"

#include <stdexcept>
#include <string>

namespace vantrel::plan {

namespace {

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::size_t valueOf(char digit) {
    return static_cast<std::size_t>(digit - '0');
}

} // namespace

PatternReader::PatternReader(DigitLanguages &languages, std::string_view pattern)
    : m_languages(languages), m_pattern(pattern) {}

DigitLanguages::State PatternReader::read(DigitLanguages::State rest) {
    const auto alternatives = readAlternatives();
    if (m_position != m_pattern.size())
        refuse();
    return follow(alternatives, rest);
}

std::vector<PatternReader::Sequence> PatternReader::readAlternatives() {
    std::vector<Sequence> alternatives{readSequence()};
    while (isAt('|')) {
        take();
        alternatives.push_back(readSequence());
    }
    return alternatives;
}

PatternReader::Sequence PatternReader::readSequence() {
    Sequence sequence;
    while (m_position < m_pattern.size() && !isAt('|') && !isAt(')'))
        sequence.push_back(readPiece());
    return sequence;
}

PatternReader::Piece PatternReader::readPiece() {
    Piece piece;
    const char first = take();
    if (isDigit(first)) {
        piece.digits[valueOf(first)] = true;
    } else if (first == '\\' && take() == 'd') {
        piece.digits.fill(true);
    } else if (first == '[') {
        readSet(piece);
    } else if (first == '(') {
        if (isAt('?')) {
            take();
            if (take() != ':')
                refuse();
        }
        piece.alternatives = readAlternatives();
        if (take() != ')')
            refuse();
    } else {
        refuse();
    }
    readRepetition(piece);
    return piece;
}

void PatternReader::readSet(Piece &piece) {
    while (!isAt(']')) {
        const char from = take();
        char to = from;
        if (isAt('-')) {
            take();
            to = take();
        }
        if (!isDigit(from) || !isDigit(to))
            refuse();
        for (char digit = from; digit <= to; ++digit)
            piece.digits[valueOf(digit)] = true;
    }
    take();
}

void PatternReader::readRepetition(Piece &piece) {
    if (isAt('?')) {
        take();
        piece.least = 0;
    } else if (isAt('{')) {
        take();
        piece.least = piece.most = readNumber();
        if (isAt(',')) {
            take();
            piece.most = readNumber();
        }
        if (take() != '}')
            refuse();
    }
}

int PatternReader::readNumber() {
    int number = static_cast<int>(valueOf(take()));
    while (m_position < m_pattern.size() && isDigit(m_pattern[m_position]))
        number = number * 10 + static_cast<int>(valueOf(take()));
    return number;
}

char PatternReader::take() {
    if (m_position >= m_pattern.size())
        refuse();
    return m_pattern[m_position++];
}

bool PatternReader::isAt(char character) const {
    return m_position < m_pattern.size() && m_pattern[m_position] == character;
}

void PatternReader::refuse() const {
    throw std::invalid_argument("no pattern of digits: " + std::string(m_pattern));
}

DigitLanguages::State PatternReader::follow(const std::vector<Sequence> &alternatives,
                                            DigitLanguages::State rest) {
    auto all = DigitLanguages::nothing;
    for (const Sequence &sequence : alternatives) {
        auto state = rest;
        for (auto piece = sequence.rbegin(); piece != sequence.rend(); ++piece)
            state = follow(*piece, state);
        all = m_languages.unite(all, state);
    }
    return all;
}

DigitLanguages::State PatternReader::follow(const Piece &piece, DigitLanguages::State rest) {
    auto state = rest;
    for (int optional = piece.least; optional < piece.most; ++optional)
        state = m_languages.unite(rest, followOnce(piece, state));
    for (int needed = 0; needed < piece.least; ++needed)
        state = followOnce(piece, state);
    return state;
}

DigitLanguages::State PatternReader::followOnce(const Piece &piece, DigitLanguages::State rest) {
    if (!piece.alternatives.empty())
        return follow(piece.alternatives, rest);
    DigitLanguages::Node node;
    for (std::size_t digit = 0; digit < node.next.size(); ++digit) {
        if (piece.digits[digit])
            node.next[digit] = rest;
    }
    return m_languages.intern(node);
}

} // namespace vantrel::plan
