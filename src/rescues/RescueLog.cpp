#include "RescueLog.h"

#include "RescueDateKey.h"

#include <utility>
#include <vector>

namespace vantrel {

namespace {

std::int64_t sum(std::int64_t left, std::int64_t right) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(left, right, &result))
        qFatal("A count of the rescue log exceeds 64 bits");
    return result;
}

std::vector<DayBucket> collect(const DayBuckets &byDay, const DateRange &range) {
    std::vector<DayBucket> buckets;
    if (const std::vector<QString> *days = range.asDays()) {
        for (const QString &key : *days) {
            const auto found = byDay.find(key);
            if (found != byDay.end())
                buckets.push_back(found->second);
        }
    } else {
        for (const auto &[key, bucket] : byDay)
            buckets.push_back(bucket);
    }
    return buckets;
}

} // namespace

RescueLog::RescueLog(RescueLogStore store, std::function<Instant()> clock, CurrentCalendar calendar)
    : m_byDay(store.load()),
      m_store(std::move(store)),
      m_clock(std::move(clock)),
      m_calendar(std::move(calendar)) {}

Subscription RescueLog::subscribe(std::function<void(const DayBuckets &)> subscriber) {
    return m_byDay.subscribe(std::move(subscriber));
}

void RescueLog::recordRescue(RescueSource source) {
    mutateToday(source == RescueSource::takeover ? &DayBucket::rescuesFromTakeover
                                                 : &DayBucket::rescuesFromPopover);
}

void RescueLog::recordSnooze() {
    mutateToday(&DayBucket::snoozes);
}

void RescueLog::recordDismiss() {
    mutateToday(&DayBucket::dismisses);
}

RescueStats RescueLog::stats(const DateRange &range) const {
    const std::vector<DayBucket> buckets = collect(byDay(), range);
    RescueStats stats;
    stats.dayCount =
        static_cast<std::int64_t>(range.asDays() ? range.asDays()->size() : buckets.size());
    for (const DayBucket &bucket : buckets) {
        const std::int64_t rescues = sum(bucket.rescuesFromTakeover, bucket.rescuesFromPopover);
        stats.totalRescues = sum(stats.totalRescues, rescues);
        stats.rescuesFromTakeover = sum(stats.rescuesFromTakeover, bucket.rescuesFromTakeover);
        stats.rescuesFromPopover = sum(stats.rescuesFromPopover, bucket.rescuesFromPopover);
        stats.snoozes = sum(stats.snoozes, bucket.snoozes);
        stats.dismisses = sum(stats.dismisses, bucket.dismisses);
        stats.pingsSent = sum(stats.pingsSent, bucket.pingsSent);
        if (rescues >= 1)
            ++stats.daysWithRescue;
    }
    return stats;
}

DateRange RescueLog::lastDays(int count) const {
    return DateRange::lastDays(count, m_clock(), m_calendar());
}

void RescueLog::mutateToday(std::int64_t DayBucket::*count) {
    const QString key = RescueDateKey::formatter(m_calendar()).string(m_clock());
    DayBuckets days = byDay();
    DayBucket &today = days.try_emplace(key, DayBucket::empty).first->second;
    today.*count = sum(today.*count, 1);
    m_byDay.set(std::move(days));
    m_store.save(byDay());
}

} // namespace vantrel
