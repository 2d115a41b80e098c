#include "NumberingPlan.h"

#include "NumberingPlanTables.h"

#include <QString>

#include <algorithm>
#include <cstring>
#include <string>

namespace vantrel {

namespace {

const numberingplan::Region &regionOf(QLocale::Territory territory) {
    using numberingplan::Region;
    const std::string code = QLocale::territoryToCode(territory).toStdString();
    const auto *end = numberingplan::regions + numberingplan::regionCount;
    const auto *found = std::find_if(numberingplan::regions, end, [&](const Region &region) {
        return code.size() == 2 && std::memcmp(region.code, code.data(), 2) == 0;
    });
    return found == end ? regionOf(QLocale::UnitedStates) : *found;
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
