#include "CountryPlans.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace i18n::phonenumbers {

// Exported by the library, declared in none of its installed headers: the serialised
// PhoneMetadataCollection that it is built with.
int metadata_size();
const void *metadata_get();

} // namespace i18n::phonenumbers

namespace vantrel::plan {

namespace {

using State = DigitLanguages::State;

/// The longest number behind a calling code (libphonenumber's bound; E.164 itself allows 15 digits
/// with the code).
constexpr int longestNationalNumber = 17;

bool isDigits(const std::string &text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return character >= '0' && character <= '9';
    });
}

/// How one dials abroad, where there is one way: "00", "011". Empty where it depends on the
/// carrier.
std::string prefixAbroad(const i18n::phonenumbers::PhoneMetadata &region) {
    if (isDigits(region.preferred_international_prefix()))
        return region.preferred_international_prefix();
    return isDigits(region.international_prefix()) ? region.international_prefix() : std::string();
}

} // namespace

CountryPlans::CountryPlans(DigitLanguages &languages) : m_languages(languages) {
    using namespace i18n::phonenumbers;
    if (!m_collection.ParseFromArray(metadata_get(), metadata_size()))
        throw std::runtime_error("libphonenumber's data cannot be read");

    for (const Metadata &region : m_collection.metadata()) {
        State &numbers = m_byCallingCode[region.country_code()];
        numbers = m_languages.unite(numbers, numbersOf(region));
        auto &mainRegion = m_mainRegions[region.country_code()];
        if (!mainRegion || region.main_country_for_code())
            mainRegion = &region;
    }
    for (const auto &[callingCode, numbers] : m_byCallingCode)
        m_international = m_languages.unite(
            m_international, m_languages.prefixed(std::to_string(callingCode), numbers));
}

State CountryPlans::numbersOf(const Metadata &region) {
    const Description &general = region.general_desc();
    State kinds = DigitLanguages::nothing;
    for (const Description *kind :
         {&region.fixed_line(), &region.mobile(), &region.toll_free(), &region.premium_rate(),
          &region.shared_cost(), &region.personal_number(), &region.voip(), &region.pager(),
          &region.uan(), &region.voicemail()})
        kinds = m_languages.unite(kinds, described(*kind, general));
    return m_languages.intersect(described(general, general), kinds);
}

State CountryPlans::described(const Description &description, const Description &general) {
    if (!description.has_national_number_pattern())
        return DigitLanguages::nothing;
    const Description &lengths = description.possible_length_size() > 0 ? description : general;
    return m_languages.intersect(
        m_languages.matching(description.national_number_pattern()),
        m_languages.ofLengths(
            std::set<int>(lengths.possible_length().begin(), lengths.possible_length().end())));
}

/// The first format that fits a number says whether it is written with the trunk prefix; a number
/// that fits none has no usual form, so it may lack it.
State CountryPlans::writtenWithoutTrunkPrefix(const Metadata &region) {
    const Metadata &formats =
        region.number_format_size() > 0 ? region : *m_mainRegions.at(region.country_code());
    State rest = m_byCallingCode.at(region.country_code());
    State without = DigitLanguages::nothing;
    const State anyFurtherDigits = m_languages.upToLength(longestNationalNumber);
    for (const auto &format : formats.number_format()) {
        State fitting = m_languages.intersect(rest, m_languages.matching(format.pattern()));
        if (const int patterns = format.leading_digits_pattern_size(); patterns > 0)
            fitting = m_languages.intersect(
                fitting, m_languages.matching(format.leading_digits_pattern(patterns - 1),
                                              anyFurtherDigits));
        const std::string &rule = format.national_prefix_formatting_rule();
        const bool hasPrefix = rule.find(region.national_prefix()) < rule.find('$');
        if (!hasPrefix || format.national_prefix_optional_when_formatting())
            without = m_languages.unite(without, fitting);
        rest = m_languages.subtract(rest, fitting);
    }
    return m_languages.unite(without, rest);
}

/// The pattern knows all trunk prefixes of a region, unless it is a rule for rewriting numbers.
State CountryPlans::writtenWithTrunkPrefix(const Metadata &region) {
    const State numbers = m_byCallingCode.at(region.country_code());
    if (region.has_national_prefix_transform_rule())
        return m_languages.prefixed(region.national_prefix(), numbers);
    return m_languages.matching(region.national_prefix_for_parsing(), numbers);
}

std::map<std::string, CountryPlans::Region> CountryPlans::regions() {
    std::map<std::string, Region> plans;
    for (const Metadata &region : m_collection.metadata()) {
        if (isDigits(region.id())) // "001": a calling code without a country, for satellites say
            continue;
        State dialled = m_byCallingCode.at(region.country_code());
        if (!region.national_prefix().empty())
            dialled = m_languages.unite(writtenWithTrunkPrefix(region),
                                        writtenWithoutTrunkPrefix(region));
        if (const std::string abroad = prefixAbroad(region); !abroad.empty())
            dialled = m_languages.unite(dialled, m_languages.prefixed(abroad, m_international));
        plans[region.id()] = {region.country_code(), dialled};
    }
    return plans;
}

} // namespace vantrel::plan
