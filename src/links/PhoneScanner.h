#pragma once

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
    /// Digits in a row.
    struct Group {
        qsizetype start;
        qsizetype end;
        [[nodiscard]] qsizetype size() const { return end - start; }
    };

    /// Groups that are held together by single blanks, hyphens, dots, slashes and brackets.
    struct Run {
        static constexpr int mostGroups = 8;

        Group groups[mostGroups];
        int size = 0;
        bool isTooLong = false;
        qsizetype end = 0;
    };

    enum class Year { fourDigits, twoOrFourDigits };

    [[nodiscard]] std::optional<Number> international(qsizetype plus, qsizetype to) const;
    [[nodiscard]] qsizetype behindPlus(qsizetype plus, qsizetype to) const;
    [[nodiscard]] Group groupAt(qsizetype start, qsizetype to) const;
    [[nodiscard]] qsizetype separatorLength(qsizetype position, qsizetype to) const;
    [[nodiscard]] bool isSpaced(qsizetype from, qsizetype to) const;
    [[nodiscard]] Run runAt(qsizetype start, qsizetype to) const;

    [[nodiscard]] std::optional<Number> national(const Run &run) const;
    [[nodiscard]] bool isDialled(const Run &run) const;
    [[nodiscard]] bool hasUsualGroups(const Run &run) const;
    [[nodiscard]] bool standsAlone(const Number &number) const;
    [[nodiscard]] bool isWordAt(qsizetype position) const;
    [[nodiscard]] bool startsExtension(qsizetype position) const;
    [[nodiscard]] bool isInternetAddress(const Run &run) const;
    [[nodiscard]] bool isDateOrYears(const Run &run) const;

    void add(const Group &group, DialledDigits &dialled) const;
    [[nodiscard]] int valueOf(const Group &group) const;
    [[nodiscard]] qsizetype dateOrTimeLength(qsizetype start, Year year) const;
    [[nodiscard]] Number withBrackets(qsizetype start, qsizetype end) const;
    [[nodiscard]] char16_t at(qsizetype position) const;

    QStringView m_text;
    NumberingPlan m_plan;
    NumberContext m_context;
};

} // namespace vantrel
