#pragma once

#include <QString>

#include <vector>

namespace vantrel {

/// Notes as real invitations carry them, written for this benchmark: plain and HTML, with and
/// without anything to find. `number` makes each different from the others in a few places.
[[nodiscard]] QString invitation(int number);

/// That many invitations, one after the other.
[[nodiscard]] std::vector<QString> invitations(int count);

} // namespace vantrel
