#include "CalendarFiles.h"
#include "CapturedLog.h"
#include "MemorySource.h"
#include "Seed.h"

#include <linux/eventstore/EventIndex.h>
#include <linux/eventstore/StoreCatalog.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace vantrel {
namespace {

using namespace tests;

constexpr UtcSeconds someDay = 1'772'409'600; // 2026-03-02

/// Does one thing at random to the content.
void change(MemorySource &source, std::mt19937 &random, std::int64_t version) {
    const auto below = [&random](unsigned limit) { return static_cast<int>(random() % limit); };
    const QString calendar = QStringLiteral("c%1").arg(below(3));
    if (below(40) == 0) {
        source.content.erase(calendar);
        return;
    }
    auto &items = source.content[calendar];
    const QByteArray name = "i" + QByteArray::number(below(12));
    if (below(4) == 0) {
        items.erase(name);
        return;
    }
    QByteArray text;
    for (int count = 1 + below(3); count > 0; --count) {
        const auto time = [&] {
            return civilText(someDay + below(40) * secondsPerDay + below(24) * 3600, false) + "Z";
        };
        QByteArray properties = "DTSTART:" + time() + "\nDURATION:PT" +
                                QByteArray::number(1 + below(50)) +
                                "H\nSUMMARY:" + QByteArray::number(below(1000)) +
                                "\nSEQUENCE:" + QByteArray::number(below(3)) + "\n";
        if (below(3) == 0)
            properties += "RRULE:FREQ=DAILY;INTERVAL=" + QByteArray::number(1 + below(9)) +
                          (below(2) == 0 ? ";COUNT=" + QByteArray::number(1 + below(9)) : "") +
                          "\n";
        else if (below(3) == 0)
            properties += "RECURRENCE-ID:" + time() + "\n";
        text += event("u" + QByteArray::number(below(10)), properties);
    }
    items[name] = {calendarText(text), version};
}

std::vector<std::string> answers(const EventIndex &index, const Window &window) {
    std::vector<QString> identifiers;
    for (const StoreCalendar &calendar : index.calendars())
        identifiers.push_back(calendar.calendarIdentifier);
    const auto instant = [](UtcSeconds seconds) {
        return Instant{Seconds{static_cast<double>(seconds)}};
    };
    std::vector<std::string> lines;
    for (const StoreEvent &event :
         index.events(instant(window.from), instant(window.to), identifiers))
        lines.push_back(event.eventIdentifier->toStdString() + " " +
                        std::to_string(event.startDate.time_since_epoch().count()) + " " +
                        std::to_string(event.endDate.time_since_epoch().count()) + " " +
                        event.title->toStdString());
    return lines;
}

TEST(CatalogHistory, LeadsToWhatAFreshLookShows) {
    const CapturedLog log; // Shared UIDs are meant here.
    std::mt19937 random(seed());
    MemorySource source;
    StoreCatalog catalog({&source}, {});
    EventIndex index;
    Window window{someDay, someDay + 7 * secondsPerDay};
    for (int round = 0; round < 800; ++round) {
        for (int changes = static_cast<int>(random() % 3); changes > 0; --changes)
            change(source, random, round);
        if (random() % 5 == 0) {
            window.from += (static_cast<int>(random() % 5) - 1) * secondsPerDay;
            window.to = window.from + 7 * secondsPerDay;
        }
        if (window.from > someDay + 40 * secondsPerDay)
            window = {someDay, someDay + 7 * secondsPerDay};
        if (auto calendars = catalog.bring(window, QTimeZone::utc()))
            index.replace(std::move(*calendars));

        StoreCatalog fresh({&source}, {});
        EventIndex freshIndex;
        if (auto calendars = fresh.bring(window, QTimeZone::utc()))
            freshIndex.replace(std::move(*calendars));
        const auto found = answers(index, window);
        const auto expected = answers(freshIndex, window);
        const auto differing =
            std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
        ASSERT_TRUE(differing.first == found.end() && differing.second == expected.end())
            << "seed " << seed() << ", round " << round << ": "
            << (differing.first == found.end() ? "nothing" : *differing.first) << " instead of "
            << (differing.second == expected.end() ? "nothing" : *differing.second);
    }
}

} // namespace
} // namespace vantrel
