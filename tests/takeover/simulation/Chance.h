#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <vector>

namespace vantrel::simulation {

/// Draws that are the same for one seed with every compiler and library.
class Chance {
public:
    explicit Chance(std::uint64_t seed) : m_engine(seed) {}

    /// From `low` to `high`, both included.
    std::int64_t between(std::int64_t low, std::int64_t high) {
        return low +
               static_cast<std::int64_t>(m_engine() % static_cast<std::uint64_t>(high - low + 1));
    }

    bool oneIn(std::int64_t count) { return between(1, count) == 1; }

    template <typename T>
    T oneOf(std::initializer_list<T> choices) {
        return *(choices.begin() + between(0, static_cast<std::int64_t>(choices.size()) - 1));
    }

    template <typename T>
    T &oneOf(std::vector<T> &choices) {
        return choices[static_cast<std::size_t>(
            between(0, static_cast<std::int64_t>(choices.size()) - 1))];
    }

private:
    std::mt19937_64 m_engine;
};

} // namespace vantrel::simulation
