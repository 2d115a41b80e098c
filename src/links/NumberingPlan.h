#pragma once

#include <QLocale>

#include <cstdint>

namespace vantrel {

/// The digits of a number as they are dialled, one after the other, against the numbering plans of
/// the world. A plain value.
class DialledDigits {
public:
    /// Digits that stand behind a plus sign.
    static DialledDigits afterPlus();

    /// Adds the next digit, 0 to 9.
    void add(int digit);

    /// The digits so far are a whole phone number.
    [[nodiscard]] bool isNumber() const { return m_state & 1; }

    /// More digits cannot make a number of it.
    [[nodiscard]] bool isDeadEnd() const { return m_state < 2; }

private:
    friend class NumberingPlan;

    explicit DialledDigits(std::uint16_t start);

    std::uint16_t m_state; ///< Twice the state, plus one for a number.
};

/// How numbers are written inside one country. A plain value.
class NumberingPlan {
public:
    /// A territory without a plan, like that of the C locale, counts as the United States, whose
    /// conventions that locale follows.
    explicit NumberingPlan(QLocale::Territory territory);

    [[nodiscard]] DialledDigits dialled() const { return DialledDigits(m_start); }

    /// The countries of the North American plan share one way of writing: three, three, four.
    [[nodiscard]] bool isNorthAmerican() const { return m_callingCode == 1; }

private:
    std::uint16_t m_start;
    std::uint16_t m_callingCode;
};

} // namespace vantrel
