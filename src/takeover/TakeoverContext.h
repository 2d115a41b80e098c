#pragma once

#include <copy/MeetingMoment.h>
#include <links/MeetingLink.h>
#include <platform/Time.h>

#include <QString>

#include <optional>
#include <variant>

namespace vantrel {

/// What one takeover shows and offers. A plain value, not changed once it is built.
struct TakeoverContext {
    /// What the main button does: exactly one of four things.
    class PrimaryAction {
    public:
        /// In the order of preference: what comes first wins for an event that allows several.
        enum class Kind { join, call, headingOver, acknowledge };

        /// Opens a video meeting. `link` is a video link.
        static PrimaryAction join(MeetingLink link);

        /// Dials in; the number is as it was found, not yet reduced to its digits.
        static PrimaryAction call(QString rawNumber);

        /// Confirms that the user is on the way to a meeting at some place.
        static PrimaryAction headingOver();

        /// Just confirms: there is nothing to open.
        static PrimaryAction acknowledge();

        [[nodiscard]] Kind kind() const { return static_cast<Kind>(m_action.index()); }

        /// Null unless this is `join`. Lives as long as this action.
        [[nodiscard]] const MeetingLink *asJoin() const;

        /// The raw number; null unless this is `call`. Lives as long as this action.
        [[nodiscard]] const QString *asCall() const;

        bool operator==(const PrimaryAction &) const = default;

    private:
        struct Join {
            MeetingLink link;

            bool operator==(const Join &) const = default;
        };

        struct Call {
            QString rawNumber;

            bool operator==(const Call &) const = default;
        };

        struct HeadingOver {
            bool operator==(const HeadingOver &) const = default;
        };

        struct Acknowledge {
            bool operator==(const Acknowledge &) const = default;
        };

        /// Alternatives in the order of `Kind`.
        using Action = std::variant<Join, Call, HeadingOver, Acknowledge>;

        explicit PrimaryAction(Action action);

        Action m_action;
    };

    QString title;
    Instant startsAt;
    Instant endsAt;
    MeetingMoment moment;
    std::optional<QString> copyLine; ///< Empty when no line fits the moment.
    PrimaryAction primaryAction = PrimaryAction::acknowledge();

    bool operator==(const TakeoverContext &) const = default;
};

} // namespace vantrel
