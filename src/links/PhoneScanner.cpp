#include "PhoneScanner.h"

#include "Characters.h"

#include <algorithm>

namespace vantrel {

using namespace characters;

namespace {

/// Fewer digits are never dialled by somebody who joins a meeting; more are no number anywhere.
constexpr int fewestDigits = 7;
constexpr int mostDigits = 18;

bool isOneOf(char16_t c, QStringView set) {
    return set.contains(QChar(c));
}

bool isBlank(char16_t c) {
    return c == u' ' || c == 0xA0 || c == 0x2009 || c == 0x202F;
}

bool isHyphen(char16_t c) {
    return c == u'-' || (c >= 0x2010 && c <= 0x2015);
}

bool isSeparator(char16_t c) {
    return isBlank(c) || isHyphen(c) || isOneOf(c, u"./()");
}

int digitAt(char16_t c) {
    return c - u'0';
}

} // namespace

PhoneScanner::PhoneScanner(QStringView text, QLocale::Territory territory)
    : m_text(text), m_plan(territory), m_context(text) {}

char16_t PhoneScanner::at(qsizetype position) const {
    return position >= 0 && position < m_text.size() ? m_text[position].unicode() : u'\0';
}

std::optional<PhoneScanner::Number> PhoneScanner::next(qsizetype from, qsizetype to) const {
    for (qsizetype position = from; position < to;) {
        const char16_t c = at(position);
        std::optional<Number> number;
        if (c == u'+') {
            number = international(position, to);
            position = number ? number->end : behindPlus(position, to);
        } else if (!isDigit(c)) {
            ++position;
        } else if (const qsizetype length = dateOrTimeLength(position, Year::twoOrFourDigits)) {
            position += length;
        } else {
            const Run run = runAt(position, to);
            number = national(run);
            position = run.end;
        }
        if (number)
            return number;
    }
    return std::nullopt;
}

/// A plus sign with a blank behind it may be a bullet before a number; else its digits are spent.
qsizetype PhoneScanner::behindPlus(qsizetype plus, qsizetype to) const {
    const qsizetype start = plus + 1;
    return start < to && isDigit(at(start)) ? runAt(start, to).end : start;
}

/// Takes as many groups as make a number; a gap wider than a single sign ends a whole one.
std::optional<PhoneScanner::Number> PhoneScanner::international(qsizetype plus,
                                                                qsizetype to) const {
    if (isDigit(at(plus - 1)) || at(plus - 1) == u'+')
        return std::nullopt;
    qsizetype start = plus + 1;
    if (isBlank(at(start)))
        ++start;
    if (at(start) == u'(')
        ++start;

    DialledDigits dialled = DialledDigits::afterPlus();
    int digits = 0;
    qsizetype end = -1;
    while (start < to && isDigit(at(start))) {
        if (digits > 0 && dateOrTimeLength(start, Year::fourDigits) > 0)
            break;
        const Group group = groupAt(start, to);
        digits += static_cast<int>(std::min<qsizetype>(group.size(), mostDigits));
        if (digits > mostDigits)
            break;
        // "+41 (0)44": the trunk prefix, not dialled from abroad.
        if (!(group.size() == 1 && at(start) == u'0' && at(start - 1) == u'('))
            add(group, dialled);
        if (dialled.isNumber() && digits >= fewestDigits)
            end = group.end;
        if (dialled.isDeadEnd())
            break;
        start = group.end + separatorLength(group.end, to);
        if (start == group.end || (end == group.end && isSpaced(group.end, start)))
            break;
    }
    if (end < 0 || at(end) == u'@')
        return std::nullopt;
    return withBrackets(plus, end);
}

void PhoneScanner::add(const Group &group, DialledDigits &dialled) const {
    for (qsizetype position = group.start; position < group.end && !dialled.isDeadEnd(); ++position)
        dialled.add(digitAt(at(position)));
}

PhoneScanner::Group PhoneScanner::groupAt(qsizetype start, qsizetype to) const {
    qsizetype end = start;
    while (end < to && isDigit(at(end)))
        ++end;
    return {start, end};
}

/// What stands between two groups of one number; zero when no digit follows.
qsizetype PhoneScanner::separatorLength(qsizetype position, qsizetype to) const {
    constexpr qsizetype longest = 4;
    qsizetype end = position;
    while (end < to && end - position < longest && isSeparator(at(end)))
        ++end;
    return end < to && isDigit(at(end)) ? end - position : 0;
}

/// Two blanks, or a sign with blanks on both sides.
bool PhoneScanner::isSpaced(qsizetype from, qsizetype to) const {
    const QStringView gap = m_text.mid(from, to - from);
    return std::count_if(gap.cbegin(), gap.cend(), [](QChar c) { return isBlank(c.unicode()); }) >
           1;
}

PhoneScanner::Run PhoneScanner::runAt(qsizetype start, qsizetype to) const {
    Run run;
    while (true) {
        const Group group = groupAt(start, to);
        run.end = group.end;
        if (run.size == Run::mostGroups || group.size() > mostDigits)
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

std::optional<PhoneScanner::Number> PhoneScanner::national(const Run &run) const {
    if (run.isTooLong || !isDialled(run) || !hasUsualGroups(run))
        return std::nullopt;
    const Number number = withBrackets(run.groups[0].start, run.end);
    if (!standsAlone(number) || isInternetAddress(run) || isDateOrYears(run) ||
        m_context.isAmount(number.start, number.end))
        return std::nullopt;
    const auto meaning = m_context.meaningBefore(number.start);
    const bool isBare = run.size == 1 && at(run.groups[0].start) != u'0';
    if (meaning == NumberContext::Meaning::other ||
        (isBare && meaning != NumberContext::Meaning::phone &&
         !m_context.isWholeText(number.start, number.end)))
        return std::nullopt;
    return number;
}

bool PhoneScanner::isDialled(const Run &run) const {
    DialledDigits dialled = m_plan.dialled();
    qsizetype digits = 0;
    for (int index = 0; index < run.size && !dialled.isDeadEnd(); ++index) {
        add(run.groups[index], dialled);
        digits += run.groups[index].size();
    }
    return dialled.isNumber() && digits >= fewestDigits;
}

/// Groups of one digit stand at the start only. North America writes 3, 3, 4 or no groups at all.
bool PhoneScanner::hasUsualGroups(const Run &run) const {
    for (int index = 1; index < run.size; ++index) {
        if (run.groups[index].size() == 1)
            return false;
    }
    const bool isAbroad = run.groups[0].size() > 1 && at(run.groups[0].start) == u'0';
    if (!m_plan.isNorthAmerican() || isAbroad)
        return true;
    const int first = run.groups[0].size() == 1 ? 1 : 0;
    switch (run.size - first) {
    case 1:
        return true;
    case 2:
        return run.groups[first].size() == 3;
    case 3:
        return run.groups[first].size() == 3 && run.groups[first + 1].size() == 3;
    default:
        return false;
    }
}

/// Not a part of a longer word, code, path, decimal or time.
bool PhoneScanner::standsAlone(const Number &number) const {
    const char16_t before = at(number.start - 1);
    if (at(number.start) != u'(' && has(before, letter))
        return false;
    if (isOneOf(before, u"_@=%/&#~\\?.'^") || (isHyphen(before) && isWordAt(number.start - 2)) ||
        (isOneOf(before, u":,") && (isDigit(at(number.start - 2)) || at(number.start - 2) == u',')))
        return false;

    qsizetype end = number.end;
    while (QChar::category(at(end)) == QChar::Other_Format)
        ++end;
    if (at(end) == u' ' && at(end + 1) == u'#')
        ++end;
    const char16_t behind = at(end);
    if (has(behind, letter))
        return startsExtension(end);
    if (isOneOf(behind, u"_@=%#&\\°^") || (behind == u':' && isDigit(at(end + 1))))
        return false;
    if ((behind == u'/' || isHyphen(behind)) && isWordAt(end + 1))
        return false;
    const bool isDecimal = isOneOf(behind, u",'") && isDigit(at(end + 1)) &&
                           !(isDigit(at(end + 2)) && isDigit(at(end + 3)));
    return !isDecimal;
}

bool PhoneScanner::isWordAt(qsizetype position) const {
    return isAsciiLetterOrDigit(at(position));
}

bool PhoneScanner::startsExtension(qsizetype position) const {
    return (isOneOf(at(position), u"xX") && isDigit(at(position + 1))) ||
           m_text.mid(position, 3).compare(u"ext", Qt::CaseInsensitive) == 0;
}

bool PhoneScanner::isInternetAddress(const Run &run) const {
    if (run.size != 4)
        return false;
    for (int index = 0; index < run.size; ++index) {
        const Group &group = run.groups[index];
        if (group.size() > 3 || valueOf(group) > 255 || (index > 0 && at(group.start - 1) != u'.'))
            return false;
    }
    return true;
}

/// Dates with the year first or third, and spans of years.
bool PhoneScanner::isDateOrYears(const Run &run) const {
    const auto isYear = [&](int index) {
        const Group &group = run.groups[index];
        return group.size() == 4 && valueOf(group) >= 1900 && valueOf(group) < 2100;
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

int PhoneScanner::valueOf(const Group &group) const {
    int value = 0;
    for (qsizetype position = group.start; position < group.end; ++position)
        value = value * 10 + digitAt(at(position));
    return value;
}

/// The length of a date or a time of day that starts here, which is no group of a number; zero if
/// there is none.
qsizetype PhoneScanner::dateOrTimeLength(qsizetype start, Year year) const {
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
                             ? valueOf(yearPart) >= 1900 && valueOf(yearPart) < 2100
                             : yearPart.size() == 2 && year == Year::twoOrFourDigits;
    const int day = outer.size() <= 2 ? valueOf(outer) : 0;
    const int month = valueOf(second);
    const bool isDay =
        day >= 1 && day <= 31 && month >= 1 && month <= 31 && std::min(day, month) <= 12;
    return hasYear && isDay ? third.end - start : 0;
}

/// A number is reported with the bracket around its first group, and with one that it closes in.
PhoneScanner::Number PhoneScanner::withBrackets(qsizetype start, qsizetype end) const {
    int depth = 0;
    int lowest = 0;
    for (const QChar c : m_text.mid(start, end - start)) {
        depth += (c == u'(') - (c == u')');
        lowest = std::min(lowest, depth);
    }
    if (lowest < 0 && at(start - 1) == u'(')
        --start;
    if (depth > 0 && at(end) == u')')
        ++end;
    return {start, end};
}

} // namespace vantrel
