#include "DigitLanguages.h"

#include "PatternReader.h"

namespace vantrel::plan {

DigitLanguages::DigitLanguages() {
    intern(Node{});
    intern(Node{.isAccepting = true});
}

DigitLanguages::State DigitLanguages::intern(const Node &node) {
    const auto [found, isNew] = m_states.try_emplace(node, static_cast<State>(m_nodes.size()));
    if (isNew)
        m_nodes.push_back(node);
    return found->second;
}

DigitLanguages::State DigitLanguages::matching(std::string_view pattern) {
    return matching(pattern, emptyString);
}

DigitLanguages::State DigitLanguages::matching(std::string_view pattern, State rest) {
    return PatternReader(*this, pattern).read(rest);
}

DigitLanguages::State DigitLanguages::upToLength(int most) {
    std::set<int> lengths;
    for (int length = 0; length <= most; ++length)
        lengths.insert(length);
    return ofLengths(lengths);
}

DigitLanguages::State DigitLanguages::ofLengths(const std::set<int> &lengths) {
    State rest = nothing;
    for (int length = lengths.empty() ? -1 : *lengths.rbegin(); length >= 0; --length) {
        Node node{.isAccepting = lengths.contains(length)};
        node.next.fill(rest);
        rest = intern(node);
    }
    return rest;
}

DigitLanguages::State DigitLanguages::prefixed(std::string_view digits, State rest) {
    for (auto digit = digits.rbegin(); digit != digits.rend() && rest != nothing; ++digit) {
        Node node;
        node.next[static_cast<std::size_t>(*digit - '0')] = rest;
        rest = intern(node);
    }
    return rest;
}

DigitLanguages::State DigitLanguages::unite(State left, State right) {
    return combine(Operation::unite, left, right);
}

DigitLanguages::State DigitLanguages::intersect(State left, State right) {
    return combine(Operation::intersect, left, right);
}

DigitLanguages::State DigitLanguages::subtract(State left, State right) {
    return combine(Operation::subtract, left, right);
}

DigitLanguages::State DigitLanguages::combine(Operation operation, State left, State right) {
    if (left == right)
        return operation == Operation::subtract ? nothing : left;
    if (right == nothing)
        return operation == Operation::intersect ? nothing : left;
    if (left == nothing)
        return operation == Operation::unite ? right : nothing;
    const std::pair key(operation, std::pair(left, right));
    if (const auto known = m_combined.find(key); known != m_combined.end())
        return known->second;

    const Node a = m_nodes[left];
    const Node b = m_nodes[right];
    Node node;
    switch (operation) {
    case Operation::unite:
        node.isAccepting = a.isAccepting || b.isAccepting;
        break;
    case Operation::intersect:
        node.isAccepting = a.isAccepting && b.isAccepting;
        break;
    case Operation::subtract:
        node.isAccepting = a.isAccepting && !b.isAccepting;
        break;
    }
    for (std::size_t digit = 0; digit < node.next.size(); ++digit)
        node.next[digit] = combine(operation, a.next[digit], b.next[digit]);
    return m_combined[key] = intern(node);
}

} // namespace vantrel::plan
