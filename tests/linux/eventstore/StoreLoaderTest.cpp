#include "CalendarFiles.h"
#include "CapturedLog.h"

#include <fakes/ManualMainQueue.h>
#include <fakes/Times.h>
#include <linux/eventstore/ReaderThreads.h>
#include <linux/eventstore/StoreLoader.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QEventLoop>

#include <gmock/gmock.h>

#include <atomic>
#include <map>
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
        m_isAtGate = true;
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

    [[nodiscard]] bool isAtGate() const { return m_isAtGate; }

private:
    const QString m_name;
    std::counting_semaphore<> &m_gate;
    std::atomic<bool> m_isAtGate = false; ///< Or was.
    std::int64_t m_version = 0;
};

class StoreLoaderTest : public testing::Test {
protected:
    ~StoreLoaderTest() override { slowGate.release(1000); }

    /// A source for each named place; those that are called "slow" stand still.
    void begin(const QStringList &names) {
        configuration.file = files.path(QStringLiteral("calendars.json"));
        for (const QString &name : names)
            configuration.roots.push_back({name, {}, false});
        loader = std::make_unique<StoreLoader>(
            queue, *threads, configuration, [] { return fakes::calendarIn("UTC"); },
            [this](auto calendars) {
                ++takes;
                if (calendars)
                    latest = std::move(*calendars);
            },
            [this](const FolderRoot &root) {
                const bool isSlow = root.path.startsWith(QLatin1String("slow"));
                auto source =
                    std::make_unique<OneCalendar>(root.path, isSlow ? slowGate : quickGate);
                sources[root.path] = source.get();
                return source;
            });
        loader->start();
    }

    void beginWithOneSlow() { begin({QStringLiteral("slow"), QStringLiteral("quick")}); }

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
    CalendarFiles files;
    StoreConfiguration configuration;
    std::map<QString, OneCalendar *> sources;
    std::unique_ptr<ReaderThreads> threads = std::make_unique<ReaderThreads>(queue);
    std::unique_ptr<StoreLoader> loader;
    EventIndex::Calendars latest;
    int takes = 0;
};

TEST_F(StoreLoaderTest, AFolderThatStandsStillKeepsNoOtherWaiting) {
    beginWithOneSlow();
    settle([this] { return shown() == std::vector<std::string>{"quick"}; });
    EXPECT_FALSE(loader->isLoaded());
    // Changes of the others come through as well.
    const int before = takes;
    sources[QStringLiteral("quick")]->changed.announce();
    settle([this, before] { return takes > before; });
    slowGate.release();
    settle([this] { return loader->isLoaded(); });
    EXPECT_THAT(shown(), ElementsAre("slow", "quick"));
}

TEST_F(StoreLoaderTest, KnowsLessAsLongAsAFolderWasNotHeard) {
    beginWithOneSlow();
    settle([this] { return !shown().empty(); });
    ASSERT_EQ(latest.knowledge.size(), 2U);
    EXPECT_FALSE(latest.knowledge[0].isComplete);
    EXPECT_TRUE(latest.knowledge[1].isComplete);
    slowGate.release();
    settle([this] { return loader->isLoaded(); });
    EXPECT_TRUE(latest.knowledge[0].isComplete);
}

TEST_F(StoreLoaderTest, GoesAwayAtOnceWhileAFolderStandsStillAndQuitsInTime) {
    beginWithOneSlow();
    // One that has not begun yet would not begin any more.
    settle([this] { return !shown().empty() && sources[QStringLiteral("slow")]->isAtGate(); });
    QElapsedTimer clock;
    clock.start();
    loader.reset();
    EXPECT_LT(clock.elapsed(), 500);
    threads.reset();
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_TRUE(log.has("does not answer", "left behind")) << log.text();
    const int before = takes;
    slowGate.release();
    const QDeadlineTimer quiet(200);
    while (!quiet.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(takes, before);
}

TEST_F(StoreLoaderTest, AFolderThatStandsStillCanBeTakenOutOfTheFile) {
    beginWithOneSlow();
    settle([this] { return !shown().empty(); });
    files.write(QStringLiteral("calendars.json"), R"({"folders": ["quick"]})");
    const auto known = [this] { return latest.knowledge.size(); };
    settle([&] {
        queue.advance(Seconds{0.2});
        return known() == 1U;
    });
    EXPECT_THAT(shown(), ElementsAre("quick"));
    EXPECT_TRUE(loader->isLoaded());
    slowGate.release(); // Its thread comes back to a source that is there, and nobody is told.
    threads.reset();
    EXPECT_FALSE(log.has("left behind", "")) << log.text();
    QCoreApplication::processEvents();
    EXPECT_THAT(shown(), ElementsAre("quick"));
}

TEST_F(StoreLoaderTest, FoldersThatStayInTheFileAreNotMadeAnew) {
    begin({QStringLiteral("one"), QStringLiteral("two")});
    settle([this] { return loader->isLoaded(); });
    files.write(QStringLiteral("calendars.json"), R"({"folders": ["two", "three", "two"]})");
    const OneCalendar *const two = sources[QStringLiteral("two")];
    settle([this] {
        queue.advance(Seconds{0.2});
        return shown() == std::vector<std::string>{"two", "three"};
    });
    EXPECT_EQ(sources[QStringLiteral("two")], two);
}

TEST_F(StoreLoaderTest, AHundredFoldersAreReadInTheirOrder) {
    QStringList names;
    for (int index = 0; index < 100; ++index)
        names.append(QStringLiteral("place %1").arg(index));
    begin(names);
    settle([this] { return loader->isLoaded(); });
    EXPECT_EQ(shown().size(), 100U);
    EXPECT_EQ(shown()[99], "place 99");
}

} // namespace
} // namespace vantrel
