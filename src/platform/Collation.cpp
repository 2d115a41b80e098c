#include "Collation.h"

#include "IcuLocale.h"

#include <unicode/ucol.h>

namespace vantrel {

namespace {

/// Null when ICU's data are missing or damaged.
UCollator *openRules(const QLocale &locale) {
    UErrorCode error = U_ZERO_ERROR;
    UCollator *rules = ucol_open(icuLocale(locale.bcp47Name().toLatin1()).constData(), &error);
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
