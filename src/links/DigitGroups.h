#pragma once

#include <QStringView>

namespace vantrel {

/// Reads the digits of a text in the groups in which they are written, and knows the forms that
/// are dates, times and addresses of the internet.
class DigitGroups {
public:
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
        bool isTooLong = false; ///< To be anything that is dialled; only `end` counts then.
        qsizetype end = 0;
    };

    enum class Year { fourDigits, twoOrFourDigits };

    /// The text must outlive this object.
    explicit DigitGroups(QStringView text) : m_text(text) {}

    static bool isBlank(char16_t c);
    static bool isHyphen(char16_t c);

    /// Zero outside the text.
    [[nodiscard]] char16_t at(qsizetype position) const;

    /// The value of the digit that stands there.
    [[nodiscard]] int digitAt(qsizetype position) const;

    [[nodiscard]] Group groupAt(qsizetype start, qsizetype to) const;
    [[nodiscard]] Run runAt(qsizetype start, qsizetype to) const;

    /// What may stand between two groups of one number; zero when no digit follows.
    [[nodiscard]] qsizetype separatorLength(qsizetype position, qsizetype to) const;

    /// Two blanks, or a sign with blanks on both sides.
    [[nodiscard]] bool isSpaced(qsizetype from, qsizetype to) const;

    /// The length of a date or a time of day that starts here; zero if there is none.
    [[nodiscard]] qsizetype dateOrTimeLength(qsizetype start, Year year) const;

    [[nodiscard]] bool isInternetAddress(const Run &run) const;

    /// Dates with the year first or third, and spans of years.
    [[nodiscard]] bool isDateOrYears(const Run &run) const;

private:
    /// No number is longer.
    static constexpr qsizetype longestGroup = 18;

    [[nodiscard]] int valueOf(const Group &group) const;

    QStringView m_text;
};

} // namespace vantrel
