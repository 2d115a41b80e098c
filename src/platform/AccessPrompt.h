#pragma once

#include "Published.h"

#include <QString>

#include <functional>
#include <vector>

namespace vantrel {

/// A folder or an account whose calendars would be read.
struct CalendarPlace {
    QString name;   ///< As the user knows it.
    QString detail; ///< Where it is, a path for instance; may be empty.

    bool operator==(const CalendarPlace &) const = default;
};

/// Asks the user whether their calendars may be read. Main thread only.
class AccessPrompt {
public:
    enum class Answer {
        allowed,
        refused,
        none ///< The question was put aside without an answer.
    };
    using Answered = std::function<void(Answer)>;

    virtual ~AccessPrompt() = default;

    /// Asks, naming the places. `answered` is called once, not before this returns. Dropping the
    /// handle takes the question back, also from within `answered`; the prompt outlives it.
    [[nodiscard]] virtual Subscription ask(const std::vector<CalendarPlace> &places,
                                           Answered answered) = 0;
};

} // namespace vantrel
