#pragma once

#include <QString>

namespace vantrel {

/// A title from a calendar in the form in which it is drawn and read out. Invitations come from
/// strangers: characters that would turn other text around or break the line become spaces or go,
/// heaps of accents are thinned out, lone surrogates become U+FFFD, and what is far longer than any
/// screen ends in an ellipsis. Any other title stays as it is, markup included.
[[nodiscard]] QString displayTitle(const QString &title);

} // namespace vantrel
