#include "AnswerTable.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

bool isAlike(const SourceCalendar &left, const SourceCalendar &right) {
    const StoreCalendar &one = left.calendar;
    const StoreCalendar &other = right.calendar;
    return one.title == other.title && one.color == other.color && one.type == other.type &&
           one.source.sourceIdentifier == other.source.sourceIdentifier &&
           one.source.title == other.source.title && left.addresses == right.addresses;
}

} // namespace

AnswerTable::Calendar *AnswerTable::find(const QString &calendar) {
    const auto found = m_calendars.find(calendar);
    return found == m_calendars.end() ? nullptr : &found->second;
}

bool AnswerTable::list(std::vector<SourceCalendar> calendars, const Extent &extent) {
    std::map<QString, Calendar> gone; // Freed after the lock.
    const std::lock_guard lock(m_mutex);
    gone = std::exchange(m_calendars, {});
    const std::size_t countBefore = gone.size();
    bool isDifferent = extent != m_extent;
    m_extent = extent;
    for (SourceCalendar &listed : calendars) {
        const QString identifier = listed.calendar.calendarIdentifier;
        Calendar &calendar = m_calendars[identifier];
        if (const auto known = gone.find(identifier); known != gone.end())
            calendar = std::move(known->second);
        else
            isDifferent = true;
        isDifferent = isDifferent || !isAlike(calendar.listed, listed);
        calendar.listed = std::move(listed);
    }
    return isDifferent || m_calendars.size() != countBefore;
}

bool AnswerTable::setWritable(const QString &calendar, bool isWritable) {
    const std::lock_guard lock(m_mutex);
    Calendar *const known = find(calendar);
    if (!known || known->isWritable == isWritable)
        return false;
    known->isWritable = isWritable;
    return true;
}

bool AnswerTable::setAddresses(const QString &calendar, const QStringList &addresses) {
    const std::lock_guard lock(m_mutex);
    Calendar *const known = find(calendar);
    if (!known || known->addresses == addresses)
        return false;
    known->addresses = addresses;
    return true;
}

bool AnswerTable::replace(const QString &calendar, CalendarItems items) {
    CalendarItems gone; // Freed after the lock.
    const std::lock_guard lock(m_mutex);
    Calendar *const known = find(calendar);
    if (!known)
        return false;
    bool isDifferent = items.size() != known->items.size();
    for (auto &[uid, item] : items) {
        const auto old = known->items.find(uid);
        const bool isSame = old != known->items.end() && old->second.isAlike(item);
        item.serial = isSame ? old->second.serial : ++m_serial;
        isDifferent = isDifferent || !isSame;
    }
    known->isTouched = known->isTouched || isDifferent;
    gone = std::exchange(known->items, std::move(items));
    return isDifferent;
}

bool AnswerTable::set(const QString &calendar, const QByteArray &uid, CalendarItem item) {
    const std::lock_guard lock(m_mutex);
    Calendar *const known = find(calendar);
    if (!known)
        return false;
    CalendarItem &old = known->items[uid];
    if (old.serial != 0 && old.isAlike(item))
        return false;
    item.serial = ++m_serial;
    old = std::move(item);
    known->isTouched = true;
    return true;
}

bool AnswerTable::remove(const QString &calendar, const QByteArray &uid) {
    const std::lock_guard lock(m_mutex);
    Calendar *const known = find(calendar);
    if (!known || known->items.erase(uid) == 0)
        return false;
    known->isTouched = true;
    return true;
}

bool AnswerTable::settle(const QString &calendar) {
    const std::lock_guard lock(m_mutex);
    Calendar *const known = find(calendar);
    if (!known || known->isSettled)
        return false;
    known->isSettled = true;
    m_settled.notify_all();
    return isSettled(); // Which is when the knowledge grows.
}

bool AnswerTable::settleRegistry(bool isHeard) {
    const std::lock_guard lock(m_mutex);
    const bool wasComplete = isComplete();
    m_isRegistryHeard = m_isRegistryHeard || isHeard;
    m_isRegistrySettled = true;
    m_settled.notify_all();
    return isComplete() != wasComplete;
}

bool AnswerTable::setTrouble(const QString &trouble) {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_trouble, trouble) != trouble;
}

bool AnswerTable::isComplete() const {
    return m_isRegistryHeard && !m_extent.isAwaitingMore && isSettled();
}

bool AnswerTable::isSettled() const {
    return m_isRegistrySettled && std::all_of(m_calendars.begin(), m_calendars.end(),
                                              [](const auto &one) { return one.second.isSettled; });
}

void AnswerTable::waitUntilSettled(Seconds limit) {
    std::unique_lock lock(m_mutex);
    m_settled.wait_for(lock, limit, [this] { return isSettled(); });
}

std::vector<SourceCalendar> AnswerTable::calendars() {
    const std::lock_guard lock(m_mutex);
    std::vector<SourceCalendar> answer;
    answer.reserve(m_calendars.size());
    for (auto &[identifier, calendar] : m_calendars) {
        SourceCalendar one = calendar.listed;
        one.hasChanges = std::exchange(calendar.isTouched, false);
        one.addresses += calendar.addresses;
        one.addresses.removeDuplicates();
        if (calendar.isWritable)
            one.calendar.allowsContentModifications = *calendar.isWritable;
        answer.push_back(std::move(one));
    }
    return answer;
}

SourceKnowledge AnswerTable::knowledge() const {
    const std::lock_guard lock(m_mutex);
    if (!isComplete())
        return {};
    return {true, m_extent.exhaustedPrefix};
}

QString AnswerTable::trouble() const {
    const std::lock_guard lock(m_mutex);
    return m_trouble;
}

std::optional<std::vector<SourceItem>> AnswerTable::items(const QString &calendar) const {
    const std::lock_guard lock(m_mutex);
    const auto known = m_calendars.find(calendar);
    if (known == m_calendars.end())
        return std::nullopt;
    std::vector<SourceItem> answer;
    answer.reserve(known->second.items.size());
    for (const auto &[uid, item] : known->second.items)
        answer.push_back({uid, {0, item.events.size(), item.serial}});
    return answer;
}

std::optional<QByteArray> AnswerTable::text(const QString &calendar, const QByteArray &uid) const {
    CalendarItem item;
    {
        const std::lock_guard lock(m_mutex);
        const auto known = m_calendars.find(calendar);
        if (known == m_calendars.end())
            return std::nullopt;
        const auto found = known->second.items.find(uid);
        if (found == known->second.items.end())
            return std::nullopt;
        item = found->second;
    }
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + item.zones + item.events + "END:VCALENDAR\r\n";
}

QString AnswerTable::title(const QString &calendar) const {
    const std::lock_guard lock(m_mutex);
    const auto known = m_calendars.find(calendar);
    return known == m_calendars.end() ? QString() : known->second.listed.calendar.title;
}

} // namespace vantrel
