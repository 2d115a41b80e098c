#include "IcuLocale.h"

#include <unicode/uloc.h>

#include <array>

namespace vantrel {

QByteArray icuLocale(const QByteArray &tag) {
    std::array<char, ULOC_FULLNAME_CAPACITY> identifier{};
    UErrorCode error = U_ZERO_ERROR;
    uloc_forLanguageTag(tag.constData(), identifier.data(), ULOC_FULLNAME_CAPACITY, nullptr,
                        &error);
    return U_SUCCESS(error) ? QByteArray(identifier.data()) : QByteArray();
}

} // namespace vantrel
