#pragma once

#include "CivilTime.h"

#include <QByteArrayView>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

struct icalrecurrencetype;

namespace vantrel {

/// One RRULE: the wall-clock readings at which a series stands, computed by libical within bounds
/// on work that no rule from a stranger can exceed.
class RecurrenceRule {
public:
    /// Why the readings ended.
    enum class End {
        ofRule,     ///< COUNT or UNTIL is reached: there are none behind the interval.
        ofInterval, ///< There may be more behind the interval.
        ofPatience, ///< The work would have exceeded the bounds.
    };

    /// Empty, with a `problem` to log, when the text is no rule.
    static std::optional<RecurrenceRule> parse(QByteArrayView text, QString &problem);

    RecurrenceRule(RecurrenceRule &&) noexcept;
    RecurrenceRule &operator=(RecurrenceRule &&) noexcept;
    ~RecurrenceRule();

    [[nodiscard]] bool isYearly() const;

    /// UNTIL, when the rule has one.
    [[nodiscard]] const std::optional<DateTimeText> &until() const { return m_until; }

    /// Calls `take` with the readings from `from` to `to`, in ascending order, of a series that
    /// starts at `start` and ends with `until` (inclusive). `start` itself counts as the first
    /// reading, whether or not the rule yields it. Takes from `steps` what the work came to; what
    /// would come to more is not done.
    End readings(CivilSeconds start, bool isDate, std::optional<CivilSeconds> until,
                 CivilSeconds from, CivilSeconds to, int &steps,
                 const std::function<void(CivilSeconds)> &take) const;

private:
    explicit RecurrenceRule(std::unique_ptr<icalrecurrencetype> rule);

    [[nodiscard]] std::int64_t periodsBetween(CivilSeconds from, CivilSeconds to) const;

    std::unique_ptr<icalrecurrencetype> m_rule;
    std::optional<DateTimeText> m_until;
    int m_count = 0; ///< 0 without COUNT.
};

} // namespace vantrel
