#pragma once

#include <QStringView>

namespace vantrel {

enum class Cue {
    none,
    phone,    ///< Announces a phone number.
    other,    ///< Announces digits that are not to be dialled.
    subject,  ///< Does so when a word for "number" follows: "customer number", "customer service".
    number,   ///< Such a word.
    currency, ///< A currency's code or short name.
};

[[nodiscard]] Cue cueOf(QStringView word);

} // namespace vantrel
