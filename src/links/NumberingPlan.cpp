#include "NumberingPlan.h"

#include "NumberingPlanTables.h"

#include <QString>

#include <algorithm>

namespace vantrel {

namespace {

const numberingplan::Region &regionOf(QLocale::Territory territory) {
    using numberingplan::Region;
    const QString code = QLocale::territoryToCode(territory);
    const auto *end = numberingplan::regions + numberingplan::regionCount;
    const auto *found = std::lower_bound(
        numberingplan::regions, end, code,
        [](const Region &region, const QString &c) { return QLatin1String(region.code, 2) < c; });
    const bool isKnown = found != end && QLatin1String(found->code, 2) == code;
    return isKnown ? *found : regionOf(QLocale::UnitedStates);
}

} // namespace

DialledDigits::DialledDigits(std::uint16_t start)
    : m_state(static_cast<std::uint16_t>(start * 2)) {}

DialledDigits DialledDigits::afterPlus() {
    return DialledDigits(numberingplan::international);
}

void DialledDigits::add(int digit) {
    m_state = numberingplan::transitions[m_state / 2][digit];
}

NumberingPlan::NumberingPlan(QLocale::Territory territory) {
    const numberingplan::Region &region = regionOf(territory);
    m_start = region.start;
    m_callingCode = region.callingCode;
}

} // namespace vantrel
