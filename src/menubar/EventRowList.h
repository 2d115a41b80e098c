#pragma once

#include <calendar/EventGrouper.h>
#include <platform/LocalCalendar.h>

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace vantrel {

/// The meetings of all days, one row each, in order. Texts are made when they are asked for, so
/// that the list costs what is seen of it; none of them is markup. Roles:
///
///   section       the day's title; the same for all rows of a day and for no others
///   title         in a form that is safe to draw
///   timeRange     start and end by the user's clock
///   isRecurring
///   detail        where it is, one line; may be empty
///   isDetailLink  whether the detail is a link
///   calendarColor
///   isJoinable    whether there is a video call to join
///   spoken        all of it in one line
class EventRowList : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The meetings come from the calendars.")

public:
    enum Role {
        SectionRole = Qt::UserRole,
        TitleRole,
        TimeRangeRole,
        IsRecurringRole,
        DetailRole,
        IsDetailLinkRole,
        CalendarColorRole,
        IsJoinableRole,
        SpokenRole
    };

    explicit EventRowList(LocalCalendar calendar);

    /// Replaces what is there. Rows that are the same as before stay, and with them the place to
    /// which a view has been scrolled.
    void show(const std::vector<DayGroup> &groups, const LocalCalendar &calendar);

    /// Null for a row that there is none of.
    [[nodiscard]] const UpcomingEvent *event(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    struct Row {
        QString section;
        UpcomingEvent event;
    };

    [[nodiscard]] static std::vector<Row> rowsOf(const std::vector<DayGroup> &groups);
    [[nodiscard]] static bool isSame(const Row &one, const Row &other);
    [[nodiscard]] QString timeRange(const UpcomingEvent &event) const;
    [[nodiscard]] QString spoken(const UpcomingEvent &event) const;

    std::vector<Row> m_rows;
    LocalCalendar m_calendar;
};

} // namespace vantrel
