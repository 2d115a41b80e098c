#include "RecurrenceRule.h"

#include <libical/ical.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel {

namespace {

constexpr qsizetype maximumRuleLength = 4096;

icaltimetype icalTime(CivilSeconds civil, bool isDate) {
    const std::chrono::year_month_day date{
        std::chrono::sys_days{std::chrono::days{civilDay(civil)}}};
    const auto time = static_cast<int>(civil - startOfCivilDay(civil));
    icaltimetype result = icaltime_null_time();
    result.year = static_cast<int>(date.year());
    result.month = static_cast<int>(static_cast<unsigned>(date.month()));
    result.day = static_cast<int>(static_cast<unsigned>(date.day()));
    result.is_date = isDate ? 1 : 0;
    if (!isDate) {
        result.hour = time / 3600;
        result.minute = time / 60 % 60;
        result.second = time % 60;
    }
    return result;
}

CivilSeconds civilTime(const icaltimetype &time) {
    const std::chrono::sys_days day = std::chrono::year(time.year) /
                                      static_cast<unsigned>(time.month) /
                                      static_cast<unsigned>(time.day);
    return day.time_since_epoch().count() * secondsPerDay + time.hour * 3600 + time.minute * 60 +
           time.second;
}

std::int64_t secondsPerPeriod(const icalrecurrencetype &rule) {
    static constexpr std::int64_t lengths[] = {1,         60,         3600,       86400,
                                               86400 * 7, 86400 * 28, 86400 * 365};
    return lengths[rule.freq] * std::max<std::int64_t>(rule.interval, 1);
}

bool isSet(const short *list) {
    return list[0] != ICAL_RECURRENCE_ARRAY_MAX;
}

/// Whether the rule leaves out some of its periods, so that it may walk far for one reading.
bool hasFilters(const icalrecurrencetype &rule) {
    return isSet(rule.by_month) || isSet(rule.by_month_day) || isSet(rule.by_year_day) ||
           isSet(rule.by_week_no) || isSet(rule.by_day) || isSet(rule.by_hour) ||
           isSet(rule.by_minute) || isSet(rule.by_second) || isSet(rule.by_set_pos);
}

/// Whether libical may be sent ahead. It then forgets the positions and the week numbers.
bool canStartLater(const icalrecurrencetype &rule) {
    return !isSet(rule.by_set_pos) && !isSet(rule.by_week_no);
}

/// UNTIL as it was written: libical's own form no longer tells a time in UTC from others.
std::optional<DateTimeText> untilOf(QByteArrayView text) {
    static constexpr char key[] = "UNTIL=";
    for (qsizetype at = 0; at < text.size();) {
        auto end = text.indexOf(';', at);
        end = end < 0 ? text.size() : end;
        const QByteArrayView part = text.sliced(at, end - at).trimmed();
        if (part.size() > 6 &&
            part.first(6).compare(QByteArrayView(key, 6), Qt::CaseInsensitive) == 0)
            return parseDateTime(part.sliced(6));
        at = end + 1;
    }
    return std::nullopt;
}

using Iterator = std::unique_ptr<icalrecur_iterator, decltype(&icalrecur_iterator_free)>;

} // namespace

RecurrenceRule::RecurrenceRule(std::unique_ptr<icalrecurrencetype> rule)
    : m_rule(std::move(rule)) {}

RecurrenceRule::RecurrenceRule(RecurrenceRule &&) noexcept = default;
RecurrenceRule &RecurrenceRule::operator=(RecurrenceRule &&) noexcept = default;
RecurrenceRule::~RecurrenceRule() = default;

std::optional<RecurrenceRule> RecurrenceRule::parse(QByteArrayView text, QString &problem) {
    if (text.size() > maximumRuleLength) {
        problem = QStringLiteral("recurrence rule longer than %1 bytes").arg(maximumRuleLength);
        return std::nullopt;
    }
    const QByteArray terminated = text.trimmed().toByteArray();
    auto parsed = std::make_unique<icalrecurrencetype>(
        icalrecurrencetype_from_string(terminated.constData()));
    if (parsed->freq == ICAL_NO_RECURRENCE || terminated.contains('\0')) {
        problem = QStringLiteral("unreadable recurrence rule");
        return std::nullopt;
    }
    RecurrenceRule rule(std::move(parsed));
    const bool hasUntil = !icaltime_is_null_time(rule.m_rule->until);
    rule.m_until = untilOf(terminated);
    if (hasUntil && !rule.m_until) {
        problem = QStringLiteral("recurrence rule with an impossible UNTIL");
        return std::nullopt;
    }
    rule.m_count = std::exchange(rule.m_rule->count, 0);
    return rule;
}

bool RecurrenceRule::isYearly() const {
    return m_rule->freq == ICAL_YEARLY_RECURRENCE;
}

/// How many of the rule's periods lie in between: what libical walks through, one by one, within a
/// call that nobody can stop.
std::int64_t RecurrenceRule::periodsBetween(CivilSeconds from, CivilSeconds to) const {
    return std::max<std::int64_t>(to - from, 0) / secondsPerPeriod(*m_rule);
}

RecurrenceRule::End RecurrenceRule::readings(CivilSeconds start, bool isDate,
                                             std::optional<CivilSeconds> until, CivilSeconds from,
                                             CivilSeconds to, int &steps,
                                             const std::function<void(CivilSeconds)> &take) const {
    if (start >= from && start < to)
        take(start);
    if (until && *until < std::max(from, start))
        return End::ofRule;
    if (start >= to)
        return End::ofInterval;

    const bool isSentAhead = from > start && m_count == 0 && canStartLater(*m_rule);
    const CivilSeconds begin = isSentAhead ? from : start;
    const CivilSeconds limit = until ? std::min(*until, to - 1) : to - 1;
    const std::int64_t periods = periodsBetween(begin, limit);
    const bool isShort = m_count > 0 && m_count <= steps && !hasFilters(*m_rule);
    if (periods > steps && !isShort)
        return End::ofPatience;

    icalrecurrencetype rule = *m_rule;
    rule.until = icalTime(limit, isDate);
    const Iterator iterator(icalrecur_iterator_new(rule, icalTime(start, isDate)),
                            &icalrecur_iterator_free);
    if (!iterator)
        return End::ofRule;
    if (isSentAhead)
        icalrecur_iterator_set_start(iterator.get(), icalTime(from, isDate));

    CivilSeconds reached = begin;
    End end = End::ofRule;
    int taken = 0;
    for (int count = 1; m_count == 0 || count < m_count; ++taken) {
        if (taken >= steps) {
            end = End::ofPatience;
            break;
        }
        const icaltimetype next = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(next)) {
            reached = limit;
            end = until && *until < to ? End::ofRule : End::ofInterval;
            break;
        }
        reached = civilTime(next);
        if (reached <= start)
            continue;
        if (reached >= from && reached < to)
            take(reached);
        ++count;
    }
    const std::int64_t walked = hasFilters(*m_rule) ? periodsBetween(begin, reached) : 0;
    steps -= std::max(taken, static_cast<int>(std::min<std::int64_t>(walked, steps)));
    return end;
}

} // namespace vantrel
