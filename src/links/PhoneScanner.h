#pragma once

#include "DigitGroups.h"
#include "NumberContext.h"
#include "NumberingPlan.h"

#include <QLocale>
#include <QStringView>

#include <optional>

namespace vantrel {

/// Finds phone numbers in running text.
///
/// A number with a plus sign must be one of its country. One without must be one of the territory,
/// written as people there write it, and must not be something else by its form (a date, a price,
/// an address of the internet) or by the words before it (a meeting id, a passcode, an order).
/// Extensions and codes to be dialled after the connection (`,,123456#`, `ext. 12`) are left out:
/// whoever dials takes all digits for the number.
class PhoneScanner {
public:
    struct Number {
        qsizetype start;
        qsizetype end;
    };

    /// The text must outlive the scanner.
    PhoneScanner(QStringView text, QLocale::Territory territory);

    /// The first number that stands between the two positions. Characters outside count as its
    /// surroundings.
    [[nodiscard]] std::optional<Number> next(qsizetype from, qsizetype to) const;

private:
    using Group = DigitGroups::Group;
    using Run = DigitGroups::Run;
    using Year = DigitGroups::Year;

    [[nodiscard]] std::optional<Number> international(qsizetype plus, qsizetype to) const;
    [[nodiscard]] qsizetype behindPlus(qsizetype plus, qsizetype to) const;

    [[nodiscard]] std::optional<Number> national(const Run &run) const;
    [[nodiscard]] bool isDialled(const Run &run) const;
    [[nodiscard]] bool hasUsualGroups(const Run &run) const;
    [[nodiscard]] bool standsAlone(const Number &number) const;
    [[nodiscard]] bool isWordAt(qsizetype position) const;
    [[nodiscard]] bool startsExtension(qsizetype position) const;

    void add(const Group &group, DialledDigits &dialled) const;
    [[nodiscard]] Number withBrackets(qsizetype start, qsizetype end) const;

    QStringView m_text;
    DigitGroups m_groups;
    NumberingPlan m_plan;
    NumberContext m_context;
};

} // namespace vantrel
