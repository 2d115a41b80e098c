#include "DigitGroups.h"

#include "Characters.h"

#include <algorithm>

namespace vantrel {

using namespace characters;

namespace {

bool isSeparator(char16_t c) {
    return DigitGroups::isBlank(c) || DigitGroups::isHyphen(c) || isOneOf(c, u"./()");
}

bool isYearValue(int value) {
    return value >= 1900 && value < 2100;
}

} // namespace

bool DigitGroups::isBlank(char16_t c) {
    return c == u' ' || c == 0xA0 || c == 0x2009 || c == 0x202F;
}

bool DigitGroups::isHyphen(char16_t c) {
    return c == u'-' || (c >= 0x2010 && c <= 0x2015);
}

char16_t DigitGroups::at(qsizetype position) const {
    return position >= 0 && position < m_text.size() ? m_text[position].unicode() : u'\0';
}

int DigitGroups::digitAt(qsizetype position) const {
    return at(position) - u'0';
}

DigitGroups::Group DigitGroups::groupAt(qsizetype start, qsizetype to) const {
    qsizetype end = start;
    while (end < to && isDigit(at(end)))
        ++end;
    return {start, end};
}

qsizetype DigitGroups::separatorLength(qsizetype position, qsizetype to) const {
    constexpr qsizetype longest = 4;
    qsizetype end = position;
    while (end < to && end - position < longest && isSeparator(at(end)))
        ++end;
    return end < to && isDigit(at(end)) ? end - position : 0;
}

bool DigitGroups::isSpaced(qsizetype from, qsizetype to) const {
    const QStringView gap = m_text.mid(from, to - from);
    return std::count_if(gap.cbegin(), gap.cend(), [](QChar c) { return isBlank(c.unicode()); }) >
           1;
}

DigitGroups::Run DigitGroups::runAt(qsizetype start, qsizetype to) const {
    Run run;
    while (true) {
        const Group group = groupAt(start, to);
        run.end = group.end;
        if (run.size == Run::mostGroups || group.size() > longestGroup)
            run.isTooLong = true;
        else
            run.groups[run.size++] = group;
        const qsizetype next = group.end + separatorLength(group.end, to);
        // "030 / 1234567": behind an area code the gap may be wide.
        const bool isAreaCode = run.size == 1 && at(group.start) == u'0' && group.size() <= 6;
        if (next == group.end || (isSpaced(group.end, next) && !isAreaCode) ||
            dateOrTimeLength(next, Year::twoOrFourDigits) > 0)
            return run;
        start = next;
    }
}

bool DigitGroups::isInternetAddress(const Run &run) const {
    if (run.size != 4)
        return false;
    for (int index = 0; index < run.size; ++index) {
        const Group &group = run.groups[index];
        if (group.size() > 3 || valueOf(group) > 255 || (index > 0 && at(group.start - 1) != u'.'))
            return false;
    }
    return true;
}

bool DigitGroups::isDateOrYears(const Run &run) const {
    const auto isYear = [&](int index) {
        const Group &group = run.groups[index];
        return group.size() == 4 && isYearValue(valueOf(group));
    };
    const auto isUpTo = [&](int index, int most) {
        const Group &group = run.groups[index];
        return group.size() <= 2 && valueOf(group) >= 1 && valueOf(group) <= most;
    };
    if (run.size == 2)
        return isYear(0) && isYear(1);
    if (run.size < 3)
        return false;
    return (isYear(0) && isUpTo(1, 12) && isUpTo(2, 31)) ||
           (isYear(2) && isUpTo(0, 31) && isUpTo(1, 31));
}

int DigitGroups::valueOf(const Group &group) const {
    int value = 0;
    for (qsizetype position = group.start; position < group.end; ++position)
        value = value * 10 + digitAt(position);
    return value;
}

qsizetype DigitGroups::dateOrTimeLength(qsizetype start, Year year) const {
    constexpr qsizetype longestPart = 4;
    const auto partAt = [&](qsizetype position) {
        return groupAt(position, std::min(m_text.size(), position + longestPart + 1));
    };
    const Group first = partAt(start);
    const char16_t sign = at(first.end);
    if (first.size() > longestPart || !isOneOf(sign, u"-./:"))
        return 0;
    const Group second = partAt(first.end + 1);
    if (second.size() == 0 || second.size() > 2)
        return 0;
    if (sign == u':')
        return first.size() <= 2 && second.size() == 2 ? second.end - start : 0;
    const Group third = partAt(second.end + 1);
    if (at(second.end) != sign || third.size() == 0 || third.size() > longestPart ||
        (at(third.end) == sign && isDigit(at(third.end + 1))))
        return 0;

    const bool isYearFirst = first.size() == 4;
    const Group &yearPart = isYearFirst ? first : third;
    const Group &outer = isYearFirst ? third : first;
    const bool hasYear = yearPart.size() == 4
                             ? isYearValue(valueOf(yearPart))
                             : yearPart.size() == 2 && year == Year::twoOrFourDigits;
    const int day = outer.size() <= 2 ? valueOf(outer) : 0;
    const int month = valueOf(second);
    const bool isDay =
        day >= 1 && day <= 31 && month >= 1 && month <= 31 && std::min(day, month) <= 12;
    return hasYear && isDay ? third.end - start : 0;
}

} // namespace vantrel
