#include "PublicSuffixes.h"

#include <QByteArray>
#include <QString>

#include <libpsl.h>

namespace vantrel {

namespace {

/// Without the rule "*", by which any last label at all would be a suffix.
constexpr int listedByIcann = PSL_TYPE_ICANN | PSL_TYPE_NO_STAR_RULE;

bool isPublicSuffix(const char *domain) {
    return psl_is_public_suffix2(psl_builtin(), domain, listedByIcann) == 1;
}

} // namespace

bool isBelowPublicSuffix(QStringView host) {
    const QByteArray name = host.toString().toLower().toUtf8();
    const auto dot = name.lastIndexOf('.');
    return dot > 0 && isPublicSuffix(name.constData() + dot + 1) &&
           !isPublicSuffix(name.constData());
}

} // namespace vantrel
