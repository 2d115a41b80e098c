#include "CapturedLog.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/StoreCatalog.h>
#include <linux/eventstore/StoreLoader.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <semaphore>

namespace vantrel {
namespace {

using fakes::at;
using namespace tests;
using ::testing::ElementsAre;

constexpr int patience = 20'000; // milliseconds until a test gives up

/// One calendar of one event, whose source stands still when it is told to.
class OneCalendar : public ComponentSource {
public:
    /// The gate has to be open for the source to answer; it outlives the source.
    OneCalendar(QString name, std::counting_semaphore<> &gate)
        : m_name(std::move(name)), m_gate(gate) {}

    void start() override {}

    std::vector<SourceCalendar> calendars() override {
        m_gate.acquire();
        m_gate.release();
        SourceCalendar calendar;
        calendar.calendar.calendarIdentifier = m_name;
        calendar.calendar.title = m_name;
        return {calendar};
    }

    SourceKnowledge knowledge() const override { return {true, m_name}; }

    std::optional<std::vector<SourceItem>> items(const QString &) override {
        return std::vector{SourceItem{"a.ics", {++m_version, 1, 1}}};
    }

    std::optional<QByteArray> text(const QString &, const QByteArray &) override {
        return "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:a\r\nDTSTART:20260302T090000Z\r\nSUMMARY:" +
               QByteArray::number(static_cast<qlonglong>(m_version)) +
               "\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
    }

    QString description(const QString &, const QByteArray &) const override { return {}; }

private:
    const QString m_name;
    std::counting_semaphore<> &m_gate;
    std::int64_t m_version = 0;
};

class StoreLoaderTest : public testing::Test {
protected:
    ~StoreLoaderTest() override { slowGate.release(1000); }

    void begin() {
        StoreLoader::Sources sources;
        auto slow = std::make_unique<OneCalendar>(QStringLiteral("slow"), slowGate);
        auto quick = std::make_unique<OneCalendar>(QStringLiteral("quick"), quickGate);
        quickSource = quick.get();
        sources.push_back(std::move(slow));
        sources.push_back(std::move(quick));
        loader = std::make_unique<StoreLoader>(
            queue, StoreConfiguration(), [] { return fakes::calendarIn("UTC"); },
            [this](auto calendars) {
                ++takes;
                if (calendars)
                    latest = std::move(*calendars);
            },
            std::move(sources));
        loader->start();
    }

    template <typename Condition>
    void settle(Condition condition) {
        const QDeadlineTimer deadline(patience);
        while (!condition()) {
            ASSERT_FALSE(deadline.hasExpired());
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

    std::vector<std::string> shown() const {
        std::vector<std::string> titles;
        for (const auto &calendar : latest.list)
            titles.push_back(calendar->calendar().title.toStdString());
        return titles;
    }

    fakes::ManualMainQueue queue{at("2026-03-02T08:00:00")};
    CapturedLog log;
    std::counting_semaphore<> slowGate{0};
    std::counting_semaphore<> quickGate{1};
    OneCalendar *quickSource = nullptr;
    std::unique_ptr<StoreLoader> loader;
    EventIndex::Calendars latest;
    int takes = 0;
};

TEST_F(StoreLoaderTest, ASourceThatStandsStillKeepsNoOtherWaiting) {
    begin();
    settle([this] { return shown() == std::vector<std::string>{"quick"}; });
    EXPECT_FALSE(loader->isLoaded());
    // Changes of the others come through as well.
    const int before = takes;
    quickSource->changed.announce();
    settle([this, before] { return takes > before; });
    slowGate.release();
    settle([this] { return loader->isLoaded(); });
    EXPECT_THAT(shown(), ElementsAre("slow", "quick"));
}

TEST_F(StoreLoaderTest, KnowsLessAsLongAsASourceWasNotHeard) {
    begin();
    settle([this] { return !shown().empty(); });
    ASSERT_EQ(latest.knowledge.size(), 3U);
    EXPECT_FALSE(latest.knowledge[1].isComplete);
    EXPECT_TRUE(latest.knowledge[2].isComplete);
    slowGate.release();
    settle([this] { return loader->isLoaded(); });
    EXPECT_TRUE(latest.knowledge[1].isComplete);
}

TEST_F(StoreLoaderTest, GoesAwayWhileASourceStandsStill) {
    begin();
    settle([this] { return !shown().empty(); });
    loader.reset();
    EXPECT_TRUE(log.has("does not answer", "left behind")) << log.text();
    const int before = takes;
    slowGate.release();
    const QDeadlineTimer quiet(200);
    while (!quiet.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(takes, before);
}

} // namespace
} // namespace vantrel
