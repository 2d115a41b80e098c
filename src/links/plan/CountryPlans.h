#pragma once

#include "DigitLanguages.h"

#include <phonenumbers/phonemetadata.pb.h>

#include <map>
#include <string>
#include <vector>

namespace vantrel::plan {

/// Turns libphonenumber's data about each country into the digit strings that are phone numbers
/// there.
class CountryPlans {
public:
    /// Reads the data that is built into libphonenumber; throws std::runtime_error if it cannot.
    explicit CountryPlans(DigitLanguages &languages);

    /// What may follow a plus sign: a calling code and a number of that country.
    [[nodiscard]] DigitLanguages::State international() const { return m_international; }

    struct Region {
        int callingCode;
        /// What somebody there dials: the number with the trunk prefix; without it where that is a
        /// usual way of writing it; or abroad, behind the prefix for that.
        DigitLanguages::State dialled;
    };

    /// By region code ("CH").
    [[nodiscard]] std::map<std::string, Region> regions();

private:
    using Metadata = i18n::phonenumbers::PhoneMetadata;
    using Description = i18n::phonenumbers::PhoneNumberDesc;

    DigitLanguages::State numbersOf(const Metadata &region);
    DigitLanguages::State described(const Description &description, const Description &general);
    DigitLanguages::State writtenWithTrunkPrefix(const Metadata &region);
    DigitLanguages::State writtenWithoutTrunkPrefix(const Metadata &region);

    DigitLanguages &m_languages;
    i18n::phonenumbers::PhoneMetadataCollection m_collection;
    std::map<int, DigitLanguages::State> m_byCallingCode;
    std::map<int, const Metadata *> m_mainRegions;
    DigitLanguages::State m_international = DigitLanguages::nothing;
};

} // namespace vantrel::plan
