#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace vantrel {

/// Something in a calendar text that could not be read, for the log. Holds no text from it.
struct Problem {
    int line = 0; ///< Counted from 1; 0 when the whole text is meant.
    QString reason;
};

/// The problems of one text; of a text that is all problems only the first are kept.
class Problems {
public:
    static constexpr std::size_t maximumKept = 8;

    void add(int line, QString reason) {
        if (m_kept.size() < maximumKept)
            m_kept.push_back({line, std::move(reason)});
        else
            ++m_leftOut;
    }
    [[nodiscard]] bool isEmpty() const { return m_kept.empty(); }
    [[nodiscard]] const std::vector<Problem> &kept() const { return m_kept; }
    [[nodiscard]] int leftOut() const { return m_leftOut; }

private:
    std::vector<Problem> m_kept;
    int m_leftOut = 0;
};

} // namespace vantrel
