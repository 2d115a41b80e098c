#include "PhoneScanner.h"

#include "Characters.h"

#include <algorithm>

namespace vantrel {

using namespace characters;

namespace {

/// Fewer digits are never dialled by somebody who joins a meeting; more are no number anywhere.
constexpr int fewestDigits = 7;
constexpr int mostDigits = 18;

} // namespace

PhoneScanner::PhoneScanner(QStringView text, QLocale::Territory territory)
    : m_text(text), m_groups(text), m_plan(territory), m_context(text) {}

std::optional<PhoneScanner::Number> PhoneScanner::next(qsizetype from, qsizetype to) const {
    for (qsizetype position = from; position < to;) {
        const char16_t c = m_groups.at(position);
        std::optional<Number> number;
        if (c == u'+') {
            number = international(position, to);
            position = number ? number->end : behindPlus(position, to);
        } else if (!isDigit(c)) {
            ++position;
        } else if (const qsizetype length =
                       m_groups.dateOrTimeLength(position, Year::twoOrFourDigits)) {
            position += length;
        } else {
            const Run run = m_groups.runAt(position, to);
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
    return start < to && isDigit(m_groups.at(start)) ? m_groups.runAt(start, to).end : start;
}

/// Takes as many groups as make a number; a gap wider than a single sign ends a whole one.
std::optional<PhoneScanner::Number> PhoneScanner::international(qsizetype plus,
                                                                qsizetype to) const {
    if (isDigit(m_groups.at(plus - 1)) || m_groups.at(plus - 1) == u'+')
        return std::nullopt;
    qsizetype start = plus + 1;
    if (DigitGroups::isBlank(m_groups.at(start)))
        ++start;
    if (m_groups.at(start) == u'(')
        ++start;

    DialledDigits dialled = DialledDigits::afterPlus();
    int digits = 0;
    qsizetype end = -1;
    while (start < to && isDigit(m_groups.at(start))) {
        if (digits > 0 && m_groups.dateOrTimeLength(start, Year::fourDigits) > 0)
            break;
        const Group group = m_groups.groupAt(start, to);
        digits += static_cast<int>(std::min<qsizetype>(group.size(), mostDigits));
        if (digits > mostDigits)
            break;
        // "+41 (0)44": the trunk prefix, not dialled from abroad.
        if (!(group.size() == 1 && m_groups.at(start) == u'0' && m_groups.at(start - 1) == u'('))
            add(group, dialled);
        if (dialled.isNumber() && digits >= fewestDigits)
            end = group.end;
        if (dialled.isDeadEnd())
            break;
        start = group.end + m_groups.separatorLength(group.end, to);
        if (start == group.end || (end == group.end && m_groups.isSpaced(group.end, start)))
            break;
    }
    if (end < 0 || m_groups.at(end) == u'@')
        return std::nullopt;
    return withBrackets(plus, end);
}

void PhoneScanner::add(const Group &group, DialledDigits &dialled) const {
    for (qsizetype position = group.start; position < group.end && !dialled.isDeadEnd(); ++position)
        dialled.add(m_groups.digitAt(position));
}

std::optional<PhoneScanner::Number> PhoneScanner::national(const Run &run) const {
    if (run.isTooLong || !isDialled(run) || !hasUsualGroups(run))
        return std::nullopt;
    const Number number = withBrackets(run.groups[0].start, run.end);
    if (!standsAlone(number) || m_groups.isInternetAddress(run) || m_groups.isDateOrYears(run) ||
        m_context.isAmount(number.start, number.end))
        return std::nullopt;
    const auto meaning = m_context.meaningBefore(number.start);
    const bool isBare = run.size == 1 && m_groups.at(run.groups[0].start) != u'0';
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
    const bool isAbroad = run.groups[0].size() > 1 && m_groups.at(run.groups[0].start) == u'0';
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
    const char16_t before = m_groups.at(number.start - 1);
    if (m_groups.at(number.start) != u'(' && has(before, letter))
        return false;
    if (isOneOf(before, u"_@=%/&#~\\?.'^") ||
        (DigitGroups::isHyphen(before) && isWordAt(number.start - 2)) ||
        (isOneOf(before, u":,") &&
         (isDigit(m_groups.at(number.start - 2)) || m_groups.at(number.start - 2) == u',')))
        return false;

    qsizetype end = number.end;
    while (QChar::category(m_groups.at(end)) == QChar::Other_Format)
        ++end;
    if (m_groups.at(end) == u' ' && m_groups.at(end + 1) == u'#')
        ++end;
    const char16_t behind = m_groups.at(end);
    if (has(behind, letter))
        return startsExtension(end);
    if (isOneOf(behind, u"_@=%#&\\°^") || (behind == u':' && isDigit(m_groups.at(end + 1))))
        return false;
    if ((behind == u'/' || DigitGroups::isHyphen(behind)) && isWordAt(end + 1))
        return false;
    const bool isDecimal = isOneOf(behind, u",'") && isDigit(m_groups.at(end + 1)) &&
                           !(isDigit(m_groups.at(end + 2)) && isDigit(m_groups.at(end + 3)));
    return !isDecimal;
}

bool PhoneScanner::isWordAt(qsizetype position) const {
    return isAsciiLetterOrDigit(m_groups.at(position));
}

bool PhoneScanner::startsExtension(qsizetype position) const {
    return (isOneOf(m_groups.at(position), u"xX") && isDigit(m_groups.at(position + 1))) ||
           m_text.mid(position, 3).compare(u"ext", Qt::CaseInsensitive) == 0;
}

/// A number is reported with the bracket around its first group, and with one that it closes in.
PhoneScanner::Number PhoneScanner::withBrackets(qsizetype start, qsizetype end) const {
    int depth = 0;
    int lowest = 0;
    for (const QChar c : m_text.mid(start, end - start)) {
        depth += (c == u'(') - (c == u')');
        lowest = std::min(lowest, depth);
    }
    if (lowest < 0 && m_groups.at(start - 1) == u'(')
        --start;
    if (depth > 0 && m_groups.at(end) == u')')
        ++end;
    return {start, end};
}

} // namespace vantrel
