#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace vantrel::plan {

/// Finite sets of digit strings, kept as one automaton without cycles in which equal states exist
/// once only: two languages are the same exactly when their states are. A set of languages over
/// all countries shares most of its tails ("seven more digits") that way.
class DigitLanguages {
public:
    using State = std::uint32_t;

    struct Node {
        bool isAccepting = false;
        std::array<State, 10> next{}; ///< Zero leads nowhere.

        bool operator<(const Node &other) const {
            return std::tie(isAccepting, next) < std::tie(other.isAccepting, other.next);
        }
    };

    static constexpr State nothing = 0;     ///< Holds no string at all.
    static constexpr State emptyString = 1; ///< Holds the empty string alone.

    DigitLanguages();

    /// The strings that a pattern matches from end to end: digits, \d, [..], groups, |, ?, {n}
    /// and {n,m}, which is all that numbering plans are written in. Throws std::invalid_argument
    /// for anything else.
    State matching(std::string_view pattern);

    /// The same, each followed by a string of `rest`.
    State matching(std::string_view pattern, State rest);

    State ofLengths(const std::set<int> &lengths);
    State upToLength(int most);
    State unite(State left, State right);
    State intersect(State left, State right);
    State subtract(State left, State right);
    State prefixed(std::string_view digits, State rest);

    [[nodiscard]] const Node &node(State state) const { return m_nodes[state]; }

private:
    friend class PatternReader;

    enum class Operation { unite, intersect, subtract };

    State intern(const Node &node);
    State combine(Operation operation, State left, State right);

    std::vector<Node> m_nodes;
    std::map<Node, State> m_states;
    std::map<std::pair<Operation, std::pair<State, State>>, State> m_combined;
};

} // namespace vantrel::plan
