#pragma once

#include <QStringView>

namespace vantrel {

/// The word announces a phone number.
[[nodiscard]] bool announcesPhone(QStringView word);

/// The word announces digits that are not to be dialled.
[[nodiscard]] bool announcesOther(QStringView word);

/// The word is a currency's code or short name.
[[nodiscard]] bool isCurrency(QStringView word);

} // namespace vantrel
