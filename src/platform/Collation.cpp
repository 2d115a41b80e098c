#include "Collation.h"

#include <QByteArray>

#include <unicode/ucol.h>
#include <unicode/uloc.h>

#include <array>

namespace vantrel {

namespace {

/// Null when ICU's data are missing or damaged.
UCollator *openRules(const QLocale &locale) {
    const QByteArray tag = locale.bcp47Name().toLatin1();
    std::array<char, ULOC_FULLNAME_CAPACITY> identifier{};
    UErrorCode error = U_ZERO_ERROR;
    uloc_forLanguageTag(tag.constData(), identifier.data(), ULOC_FULLNAME_CAPACITY, nullptr,
                        &error);
    UCollator *rules = ucol_open(U_SUCCESS(error) ? identifier.data() : "", &error);
    return U_SUCCESS(error) ? rules : nullptr;
}

const UChar *unitsOf(const QString &text) {
    return reinterpret_cast<const UChar *>(text.utf16());
}

} // namespace

int Collation::localizedCompare(const QString &left, const QString &right) const {
    if (!m_rules) {
        if (UCollator *rules = openRules(m_locale))
            m_rules = {rules, [](void *opened) { ucol_close(static_cast<UCollator *>(opened)); }};
        else
            return QString::compare(left, right, Qt::CaseInsensitive);
    }
    return ucol_strcoll(static_cast<const UCollator *>(m_rules.get()), unitsOf(left),
                        static_cast<int32_t>(left.size()), unitsOf(right),
                        static_cast<int32_t>(right.size()));
}

} // namespace vantrel
