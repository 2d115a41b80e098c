#pragma once

#include <fakes/Times.h>
#include <platform/EventStore.h>

#include <memory>
#include <vector>

namespace vantrel::samples {

inline constexpr char16_t zoomLink[] = u"https://us02web.zoom.us/j/81234567890?pwd=abc";
inline constexpr char16_t phoneNumber[] = u"+41 44 668 18 00";

inline StoreCalendar calendar(const QString &identifier) {
    StoreCalendar calendar;
    calendar.calendarIdentifier = identifier;
    calendar.title = identifier;
    calendar.color = Color{0.1, 0.2, 0.3, 1.0};
    return calendar;
}

/// An ordinary meeting of half an hour on the calendar "work".
inline StoreEvent event(const char *start = "2026-03-02T09:00:00") {
    StoreEvent event;
    event.eventIdentifier = QStringLiteral("work/planning");
    event.title = QStringLiteral("Planning");
    event.startDate = fakes::at(start);
    event.endDate = event.startDate + Seconds{1800.0};
    event.calendar = std::make_shared<StoreCalendar>(calendar(QStringLiteral("work")));
    return event;
}

inline std::shared_ptr<const std::vector<StoreParticipant>>
attendees(std::vector<StoreParticipant> list) {
    return std::make_shared<const std::vector<StoreParticipant>>(std::move(list));
}

inline StoreParticipant user(StoreParticipantStatus status) {
    return {true, status};
}

inline StoreParticipant guest(StoreParticipantStatus status) {
    return {false, status};
}

} // namespace vantrel::samples
