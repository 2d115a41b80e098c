#include "CalendarFiles.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/LocalEventStore.h>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;
using namespace tests;

class LocalEventStoreTest : public ::testing::Test {
protected:
    std::unique_ptr<LocalEventStore> load(const QStringList &names) {
        StoreConfiguration configuration;
        for (const QString &name : names)
            configuration.roots.push_back({files.path(name), {}, false});
        auto store = std::make_unique<LocalEventStore>(queue, configuration,
                                                       [] { return calendarIn("Europe/Zurich"); });
        store->loadNow();
        return store;
    }

    static std::vector<QString> identifiers(const EventStore &store) {
        std::vector<QString> identifiers;
        for (const StoreCalendar &calendar : store.calendars())
            identifiers.push_back(calendar.calendarIdentifier);
        return identifiers;
    }

    CalendarFiles files;
    fakes::ManualMainQueue queue{at("2026-03-02T08:00:00", "Europe/Zurich")};
};

TEST_F(LocalEventStoreTest, AnswersTheEventOfASingleFile) {
    files.write(QStringLiteral("meeting.ics"),
                calendarText(event("one", "DTSTART;TZID=Europe/Zurich:20260302T090000\n"
                                          "DTEND;TZID=Europe/Zurich:20260302T093000\n"
                                          "SUMMARY:Stand-up\\, daily\n"
                                          "LOCATION:Room 4\n"
                                          "DESCRIPTION:https://meet.example/one\n")));
    const auto store = load({QStringLiteral("meeting.ics")});
    const auto events =
        store->events(at("2026-03-02T08:00:00", "Europe/Zurich"),
                      at("2026-03-03T08:00:00", "Europe/Zurich"), identifiers(*store));
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].title, QStringLiteral("Stand-up, daily"));
    EXPECT_EQ(events[0].startDate, at("2026-03-02T09:00:00", "Europe/Zurich"));
    EXPECT_EQ(events[0].endDate, at("2026-03-02T09:30:00", "Europe/Zurich"));
    EXPECT_EQ(events[0].calendar->title, QStringLiteral("meeting"));
    const auto again = store->eventWithIdentifier(*events[0].eventIdentifier);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->title, events[0].title);
}

} // namespace
} // namespace vantrel
