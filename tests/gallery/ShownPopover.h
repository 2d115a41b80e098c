#pragma once

#include <calendar/UpcomingEventsQuery.h>
#include <fakes/FakeEventStore.h>
#include <fakes/InMemoryUserDefaults.h>
#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <menubar/PopoverModel.h>
#include <menubar/UpcomingEventsViewModel.h>
#include <preferences/PreferencesStore.h>

#include <QLocale>
#include <QTimeZone>

#include <memory>
#include <vector>

namespace vantrel::gallery {

/// What the popover shows, on a Monday at nine in Zurich, and what its user asked for.
struct ShownPopover {
    struct Meeting {
        QString title;
        Instant start;
        int minutes = 30;
        Color color{0.2, 0.4, 0.8};
        bool isRecurring = false;
        QString link{};     ///< Of a video call.
        QString location{}; ///< Empty for none.
    };

    explicit ShownPopover(const QLocale &locale = QLocale(QLocale::English, QLocale::UnitedStates))
        : calendar(QTimeZone("UTC"), locale) {
        preferences.setSelectedCalendarIDs({QStringLiteral("shown")});
    }

    void add(const Meeting &meeting) {
        auto itsCalendar = std::make_shared<StoreCalendar>();
        itsCalendar->calendarIdentifier = QStringLiteral("shown");
        itsCalendar->color = meeting.color;
        StoreEvent event;
        event.eventIdentifier = QString::number(store.storedEvents.size());
        event.title = meeting.title;
        event.startDate = meeting.start;
        event.endDate = meeting.start + Seconds{60.0 * meeting.minutes};
        event.hasRecurrenceRules = meeting.isRecurring;
        event.notes = meeting.link;
        if (!meeting.location.isEmpty())
            event.location = meeting.location;
        event.calendar = itsCalendar;
        store.storedCalendars = {*itsCalendar};
        store.storedEvents.push_back(event);
    }

    LocalCalendar calendar;
    fakes::ManualMainQueue queue{fakes::at("2026-03-02T09:00:00")};
    fakes::FakeEventStore store{[this] { return queue.now(); }};
    fakes::InMemoryUserDefaults defaults;
    PreferencesStore preferences{defaults};
    UpcomingEventsQuery query{store};
    std::vector<UpcomingEvent> joined;
    std::vector<QPoint> menus;
    UpcomingEventsViewModel viewModel{query, preferences, queue, [this] { return calendar; }, 0};
    PopoverModel model{
        viewModel, preferences, [this] { return calendar; },
        PopoverModel::Actions{[this](const UpcomingEvent &event) { joined.push_back(event); },
                              [this](QPoint place) { menus.push_back(place); }}};
};

} // namespace vantrel::gallery
