#pragma once

#include "CopyProvider.h"

#include <functional>
#include <vector>

namespace vantrel {

/// Takes the line from a fixed list of rules: the first one that matches supplies the variants of
/// which one is picked. Immutable; safe on any thread with the default `pick`.
class TemplateCopyProvider : public CopyProvider {
public:
    struct Rule {
        QString name; ///< Stable; tells the rules apart, never shown.
        std::function<bool(const MeetingMoment &)> matches;
        std::vector<QString> variants;
    };

    using Pick = std::function<std::optional<QString>(const std::vector<QString> &)>;

    explicit TemplateCopyProvider(std::vector<Rule> rules = defaultLibrary(),
                                  Pick pick = randomElement);

    /// The program's own twelve rules, built at first use.
    [[nodiscard]] static const std::vector<Rule> &defaultLibrary();

    /// Each element with equal chance; empty for an empty list.
    [[nodiscard]] static std::optional<QString> randomElement(const std::vector<QString> &variants);

    /// Null when no rule matches; else good as long as the provider.
    [[nodiscard]] const Rule *matchingRule(const MeetingMoment &moment) const;

    [[nodiscard]] std::optional<QString> line(const MeetingMoment &moment) const override;

private:
    std::vector<Rule> m_rules;
    Pick m_pick;
};

} // namespace vantrel
