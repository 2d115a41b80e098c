#include "EventRowList.h"

#include <theme/DisplayTitle.h>

#include <QColor>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

QString sectionTitle(const DayLabel &label) {
    switch (label.kind()) {
    case DayLabel::Kind::today:
        return QStringLiteral("Today");
    case DayLabel::Kind::tomorrow:
        return QStringLiteral("Tomorrow");
    case DayLabel::Kind::weekday:
    case DayLabel::Kind::date:
        return label.text();
    }
    Q_UNREACHABLE();
}

QColor drawn(const Color &color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

bool hasVideo(const UpcomingEvent &event) {
    return event.videoLink && event.videoLink->asVideo();
}

} // namespace

EventRowList::EventRowList(LocalCalendar calendar) : m_calendar(std::move(calendar)) {}

void EventRowList::show(const std::vector<DayGroup> &groups, const LocalCalendar &calendar) {
    std::vector<Row> rows = rowsOf(groups);
    if (calendar.locale() != m_calendar.locale() || calendar.clock() != m_calendar.clock() ||
        calendar.timeZone() != m_calendar.timeZone()) {
        beginResetModel();
        m_calendar = calendar;
        m_rows = std::move(rows);
        endResetModel();
        return;
    }
    // What differs is one piece, mostly the first rows, whose meetings have begun.
    const auto [oldBegin, newBegin] =
        std::mismatch(m_rows.begin(), m_rows.end(), rows.begin(), rows.end(), isSame);
    const auto [oldEnd, newEnd] =
        std::mismatch(m_rows.rbegin(), std::reverse_iterator(oldBegin), rows.rbegin(),
                      std::reverse_iterator(newBegin), isSame);
    const auto first = static_cast<int>(oldBegin - m_rows.begin());
    const auto removed = static_cast<int>(oldEnd.base() - oldBegin);
    const auto added = static_cast<int>(newEnd.base() - newBegin);
    if (removed > 0) {
        beginRemoveRows({}, first, first + removed - 1);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + first + removed);
        endRemoveRows();
    }
    if (added > 0) {
        beginInsertRows({}, first, first + added - 1);
        m_rows.insert(m_rows.begin() + first, newBegin, newBegin + added);
        endInsertRows();
    }
}

std::vector<EventRowList::Row> EventRowList::rowsOf(const std::vector<DayGroup> &groups) {
    std::vector<Row> rows;
    for (const DayGroup &group : groups) {
        const QString section = sectionTitle(group.label);
        for (const UpcomingEvent &event : group.events)
            rows.push_back({section, event});
    }
    return rows;
}

/// Events are equal by their `id` alone; here all that is seen of them counts.
bool EventRowList::isSame(const Row &one, const Row &other) {
    const UpcomingEvent &a = one.event;
    const UpcomingEvent &b = other.event;
    return one.section == other.section && a.id == b.id && a.title == b.title &&
           a.startDate == b.startDate && a.endDate == b.endDate &&
           a.calendarColor == b.calendarColor && a.isRecurring == b.isRecurring &&
           a.location == b.location && a.videoLink == b.videoLink && a.phoneLink == b.phoneLink;
}

const UpcomingEvent *EventRowList::event(int row) const {
    const bool isThere = row >= 0 && row < rowCount();
    return isThere ? &m_rows[static_cast<std::size_t>(row)].event : nullptr;
}

int EventRowList::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant EventRowList::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row &row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case SectionRole:
        return row.section;
    case Qt::DisplayRole:
    case TitleRole:
        return displayTitle(row.event.title);
    case TimeRangeRole:
        return timeRange(row.event);
    case IsRecurringRole:
        return row.event.isRecurring;
    case DetailRole:
        return displayTitle(row.event.detailPreview().value_or(QString()));
    case IsDetailLinkRole:
    case IsJoinableRole:
        return hasVideo(row.event);
    case CalendarColorRole:
        return drawn(row.event.calendarColor);
    case SpokenRole:
        return spoken(row.event);
    default:
        return {};
    }
}

QHash<int, QByteArray> EventRowList::roleNames() const {
    return {{SectionRole, "section"},
            {TitleRole, "title"},
            {TimeRangeRole, "timeRange"},
            {IsRecurringRole, "isRecurring"},
            {DetailRole, "detail"},
            {IsDetailLinkRole, "isDetailLink"},
            {CalendarColorRole, "calendarColor"},
            {IsJoinableRole, "isJoinable"},
            {SpokenRole, "spoken"}};
}

QString EventRowList::timeRange(const UpcomingEvent &event) const {
    return m_calendar.shortTime(event.startDate) + QStringLiteral(" – ") +
           m_calendar.shortTime(event.endDate);
}

QString EventRowList::spoken(const UpcomingEvent &event) const {
    QStringList parts{displayTitle(event.title), timeRange(event)};
    if (event.isRecurring)
        parts += QStringLiteral("repeats");
    if (const auto detail = event.detailPreview())
        parts += displayTitle(*detail);
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace vantrel
