#include <fakes/Times.h>
#include <linux/eventstore/CalendarOccurrences.h>

#include <gtest/gtest.h>

#include <random>

namespace vantrel {
namespace {

using Slot = CalendarOccurrences::Slot;

Instant instant(double seconds) {
    return Instant{Seconds{seconds}};
}

std::shared_ptr<ShownSeries> series(const QString &identifier,
                                    const std::vector<std::pair<UtcSeconds, UtcSeconds>> &times) {
    auto shown = std::make_shared<ShownSeries>();
    shown->events.emplace_back();
    shown->events.back().eventIdentifier = identifier;
    for (const auto &[start, end] : times)
        shown->placements.push_back({start, end, 0});
    return shown;
}

CalendarOccurrences occurrences(std::vector<std::shared_ptr<const ShownSeries>> all) {
    auto calendar = std::make_shared<StoreCalendar>();
    calendar->calendarIdentifier = QStringLiteral("c");
    return {std::move(calendar), std::move(all)};
}

TEST(CalendarOccurrences, FindWhatOverlapsAsAPlainSearchDoes) {
    constexpr unsigned seed = 20260302;
    std::mt19937 random(seed);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::shared_ptr<const ShownSeries>> all;
        std::vector<std::pair<UtcSeconds, UtcSeconds>> times;
        const int size = static_cast<int>(random() % 60);
        for (int index = 0; index < size; ++index) {
            const auto start = static_cast<UtcSeconds>(random() % 100);
            const auto length =
                static_cast<UtcSeconds>(random() % 4 == 0 ? random() % 90 : random() % 5);
            times.emplace_back(start, start + length);
            all.push_back(series(QString::number(index), {times.back()}));
        }
        const CalendarOccurrences index = occurrences(std::move(all));
        for (int question = 0; question < 50; ++question) {
            const double from = static_cast<double>(random() % 220) / 2.0 - 5.0;
            const double to = from + static_cast<double>(random() % 60) / 2.0;
            std::vector<const Slot *> found;
            index.collect(instant(from), instant(to), found);
            std::multiset<std::pair<UtcSeconds, UtcSeconds>> expected;
            for (const auto &one : times) {
                const auto start = static_cast<double>(one.first);
                if (start < to && (static_cast<double>(one.second) > from || start == from))
                    expected.insert(one);
            }
            std::multiset<std::pair<UtcSeconds, UtcSeconds>> answers;
            for (const Slot *slot : found)
                answers.emplace(slot->start, slot->end);
            ASSERT_EQ(answers, expected)
                << "seed " << seed << ", round " << round << ", from " << from << " to " << to;
            ASSERT_TRUE(
                std::is_sorted(found.begin(), found.end(), [](const Slot *left, const Slot *right) {
                    return left->start < right->start;
                }));
        }
    }
}

TEST(CalendarOccurrences, OrderEqualStartsByIdentifier) {
    const CalendarOccurrences index = occurrences({series(QStringLiteral("b"), {{10, 20}}),
                                                   series(QStringLiteral("a"), {{10, 30}}),
                                                   series(QStringLiteral("c"), {{10, 10}})});
    std::vector<const Slot *> found;
    index.collect(instant(0), instant(100), found);
    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0]->event->eventIdentifier, QStringLiteral("a"));
    EXPECT_EQ(found[1]->event->eventIdentifier, QStringLiteral("b"));
    EXPECT_EQ(found[2]->event->eventIdentifier, QStringLiteral("c"));
}

TEST(CalendarOccurrences, FindTheNearestOfASeries) {
    const QString name = QStringLiteral("s");
    const CalendarOccurrences index =
        occurrences({series(QStringLiteral("r"), {{0, 1000}}),
                     series(name, {{100, 110}, {200, 210}, {300, 310}}),
                     series(QStringLiteral("t"), {{0, 1000}})});
    const auto startAt = [&](double now) { return index.nearest(name, instant(now))->start; };
    EXPECT_EQ(startAt(50), 100);    // Before all: the next.
    EXPECT_EQ(startAt(100), 100);   // Under way from its start
    EXPECT_EQ(startAt(109.5), 100); // to its end.
    EXPECT_EQ(startAt(110), 200);   // Between two: the next.
    EXPECT_EQ(startAt(310), 300);   // Behind all: the last.
    EXPECT_EQ(index.nearest(QStringLiteral("x"), instant(0)), nullptr);
    EXPECT_EQ(index.nearest(QString(), instant(0)), nullptr);
}

TEST(CalendarOccurrences, OfAnEmptyCalendarAnswerNothing) {
    const CalendarOccurrences index = occurrences({});
    std::vector<const Slot *> found;
    index.collect(instant(-1e12), instant(1e12), found);
    EXPECT_TRUE(found.empty());
}

} // namespace
} // namespace vantrel
