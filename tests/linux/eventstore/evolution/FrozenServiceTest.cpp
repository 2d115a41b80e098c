#include "EvolutionFixture.h"

#include <QElapsedTimer>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;

/// A program of the service that is there and does nothing: no answer comes, and no error either.
class FrozenService : public EvolutionFixture {
protected:
    /// A folder is read beside the accounts.
    void beginWithFolder() {
        files.write(QStringLiteral("work/a.ics"), calendarText(folderEvent("20260302")));
        StoreConfiguration configuration;
        configuration.roots.push_back({files.path(QStringLiteral("work")), {}, false});
        configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
        store = storeOf(configuration);
        store->start();
        settle([this] { return store->hasAllCalendars(); }, "the calendars are there");
    }

    void moveFolderEvent() {
        files.write(QStringLiteral("work/a.ics"), calendarText(folderEvent("20260306")));
    }

    void addSource(const char *name) {
        write({QStringLiteral("add-source"), QLatin1String(name), QLatin1String(name)});
        settle([&] { return calendar(QLatin1String(name)).has_value(); }, "it is listed");
    }

    /// The folder's watch waits for quiet by the store's clock.
    void settleFolder(const ::testing::Matcher<const std::vector<std::string> &> &matcher) {
        settle(
            [&] {
                queue.advance(Seconds{0.01});
                return matcher.Matches(titles());
            },
            "the folder goes on");
    }

    /// Against the half minute of the bus and the minute of our own patience.
    void endAtOnce() {
        QElapsedTimer timer;
        timer.start();
        store.reset();
        EXPECT_LT(timer.elapsed(), 2'000) << "milliseconds";
    }

    static QByteArray folderEvent(const QByteArray &day) {
        return event("a", "DTSTART:" + day + "T120000Z\nSUMMARY:Folder\n");
    }

    const QString factory = QStringLiteral("evolution-calendar-factory");
    const QString registry = QStringLiteral("evolution-source-registry");
    CalendarFiles files;
};

TEST_F(FrozenService, HoldsUpNeitherFoldersNorTheListAndItsEventsFlowOnceItThaws) {
    put(event("one", "DTSTART:20260304T110000Z\nSUMMARY:One\n"));
    watchMainThread();
    beginWithFolder();
    settleTitles(ElementsAre("Folder", "One"), "what is there");
    signal(factory, SIGSTOP);
    addSource("team");
    addSource("other");
    moveFolderEvent();
    settleFolder(ElementsAre("One", "Folder"));
    signal(factory, SIGCONT);
    put(event("two", "DTSTART:20260305T110000Z\nSUMMARY:Two\n"));
    settleTitles(ElementsAre("One", "Two", "Folder"), "the calendar that was there");
    put(event("three", "DTSTART:20260307T110000Z\nSUMMARY:Three\n"), QStringLiteral("other"));
    settleTitles(ElementsAre("One", "Two", "Folder", "Three"), "the one that came meanwhile");
}

TEST_F(FrozenService, DoesNotHoldUpTheEndWhileViewsAreOpen) {
    beginWithFolder();
    signal(factory, SIGSTOP);
    addSource("team");
    endAtOnce();
}

TEST_F(FrozenService, DoesNotHoldUpTheEndWhileNothingHasBeenHeardYet) {
    write({QStringLiteral("list"), ownCalendar(), QStringLiteral("#t")});
    signal(registry, SIGSTOP);
    signal(factory, SIGSTOP);
    StoreConfiguration configuration;
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    store = storeOf(configuration);
    store->start();
    settle([this] { return store->calendars().empty(); }, "nothing is known");
    endAtOnce();
}

TEST_F(FrozenService, DoesNotHoldUpTheEndWhenItIsTheRegistry) {
    beginWithFolder();
    signal(registry, SIGSTOP);
    files.write(QStringLiteral("work/b.ics"),
                calendarText(event("b", "DTSTART:20260306T110000Z\nSUMMARY:Another\n")));
    settleFolder(ElementsAre("Folder", "Another"));
    endAtOnce();
}

} // namespace
} // namespace vantrel
