#include "CalendarFiles.h"
#include "CapturedLog.h"
#include "MemorySource.h"
#include "Seed.h"

#include <linux/eventstore/EventIndex.h>
#include <linux/eventstore/StoreCatalog.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>

namespace vantrel {
namespace {

using namespace tests;

constexpr UtcSeconds someDay = 1'772'409'600; // 2026-03-02

/// One whose items at times cannot be had, or are just being written.
class UnsteadySource : public MemorySource {
public:
    explicit UnsteadySource(std::mt19937 &random) : m_random(random) {}

    bool isUnsteady = false;

    std::optional<std::vector<SourceItem>> items(const QString &calendar) override {
        if (isUnsteady && m_random() % 10 == 0)
            return std::nullopt;
        return MemorySource::items(calendar);
    }

    std::optional<QByteArray> text(const QString &calendar, const QByteArray &name) override {
        auto text = MemorySource::text(calendar, name);
        const auto luck = isUnsteady ? m_random() % 6 : 5;
        if (luck > 1 || !text)
            return text;
        if (luck == 0)
            return std::nullopt;
        ++content[calendar][name].serial; // Once the writer is done it is another version.
        return text->left(static_cast<qsizetype>(m_random()) % text->indexOf("END:VCALENDAR"));
    }

private:
    std::mt19937 &m_random;
};

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
    items[name] = {calendarText(text), version, 0};
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

/// A catalog with a past, beside a source that changes.
class CatalogHistory : public testing::Test {
protected:
    void changeContent(int round) {
        for (int changes = static_cast<int>(random() % 3); changes > 0; --changes)
            change(source, random, round);
    }

    void moveWindow() {
        if (random() % 5 == 0) {
            window.from += (static_cast<int>(random() % 5) - 1) * secondsPerDay;
            window.to = window.from + 7 * secondsPerDay;
        }
        if (window.from > someDay + 40 * secondsPerDay)
            window = {someDay, someDay + 7 * secondsPerDay};
    }

    std::vector<std::string> shown() {
        if (auto calendars = catalog.bring(window, QTimeZone::utc()))
            (void)index.replace(std::move(*calendars));
        return answers(index, window);
    }

    void expectWhatAFreshLookShows() {
        const auto found = shown();
        StoreCatalog fresh({&source}, {});
        EventIndex freshIndex;
        if (auto calendars = fresh.bring(window, QTimeZone::utc()))
            (void)freshIndex.replace(std::move(*calendars));
        const auto expected = answers(freshIndex, window);
        const auto differing =
            std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
        ASSERT_TRUE(differing.first == found.end() && differing.second == expected.end())
            << (differing.first == found.end() ? "nothing" : *differing.first) << " instead of "
            << (differing.second == expected.end() ? "nothing" : *differing.second);
    }

    const CapturedLog log; // Shared UIDs are meant here.
    std::mt19937 random{seed()};
    UnsteadySource source{random};
    StoreCatalog catalog{{&source}, {}};
    EventIndex index;
    Window window{someDay, someDay + 7 * secondsPerDay};
};

TEST_F(CatalogHistory, LeadsToWhatAFreshLookShows) {
    for (int round = 0; round < 800; ++round) {
        SCOPED_TRACE("seed " + std::to_string(seed()) + ", round " + std::to_string(round));
        changeContent(round);
        moveWindow();
        ASSERT_NO_FATAL_FAILURE(expectWhatAFreshLookShows());
    }
}

TEST_F(CatalogHistory, LeadsThereAfterReadingFailed) {
    for (int round = 0; round < 800; ++round) {
        SCOPED_TRACE("seed " + std::to_string(seed()) + ", round " + std::to_string(round));
        source.isUnsteady = random() % 3 > 0;
        changeContent(round);
        moveWindow();
        if (source.isUnsteady)
            shown();
        else
            ASSERT_NO_FATAL_FAILURE(expectWhatAFreshLookShows());
    }
}

TEST_F(CatalogHistory, TakesNothingAwayThatMerelyCannotBeRead) {
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE("seed " + std::to_string(seed()) + ", round " + std::to_string(round));
        source.isUnsteady = false;
        changeContent(round);
        ASSERT_NO_FATAL_FAILURE(expectWhatAFreshLookShows());
        source.isUnsteady = true;
        for (int look = 0; look < 3; ++look) {
            moveWindow();
            auto before = answers(index, window);
            auto after = shown();
            std::sort(before.begin(), before.end());
            std::sort(after.begin(), after.end());
            std::vector<std::string> missing;
            std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                                std::back_inserter(missing));
            ASSERT_THAT(missing, testing::IsEmpty());
        }
    }
}

} // namespace
} // namespace vantrel
