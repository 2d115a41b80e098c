#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace vantrel {

/// The recap's sentences. A count is written in decimal, without grouping.
struct RecapCopy {
    RecapCopy() = delete;

    struct Sentence {
        QString lead;
        QString tail; ///< Begins with the count.

        bool operator==(const Sentence &) const = default;
    };

    [[nodiscard]] static Sentence tobbleFetched(std::int64_t count);
    [[nodiscard]] static Sentence youFetched(std::int64_t count);

    /// The closing line for a week of so many rescues; none for a week without any.
    [[nodiscard]] static std::optional<QString> flourish(std::int64_t weeklyCount);

    // Each is absent for a count below 1.

    [[nodiscard]] static std::optional<QString> takeoverLine(std::int64_t count);
    [[nodiscard]] static std::optional<QString> popoverLine(std::int64_t count);
    [[nodiscard]] static std::optional<QString> snoozeLine(std::int64_t count);
    [[nodiscard]] static std::optional<QString> dismissLine(std::int64_t count);
};

} // namespace vantrel
