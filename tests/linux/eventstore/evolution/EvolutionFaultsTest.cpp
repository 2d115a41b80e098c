#include "EvolutionFixture.h"

#include <csignal>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;

class EvolutionFaults : public EvolutionFixture {
protected:
    using EvolutionFixture::EvolutionFixture;

    void SetUp() override { watchMainThread(); }

    void kill(const QString &program) { signal(program, SIGKILL); }

    void putOne() { put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n")); }
    void putTwo() { put(event("two", "DTSTART:20260303T110000Z\nSUMMARY:Two\n")); }
};

TEST_F(EvolutionFaults, KeepsWhatIsThereWhileTheFactoryIsGoneAndFollowsWhenItIsBack) {
    putOne();
    begin();
    settleTitles(ElementsAre("One"), "the event");
    kill(QStringLiteral("evolution-calendar-factory"));
    settle([this] { return linesWith("what was read last stays") > 0; }, "the log says so");
    EXPECT_THAT(titles(), ElementsAre("One"));
    settle([this] { return linesWith("is back") > 0; }, "it is back");
    EXPECT_THAT(titles(), ElementsAre("One"));
    putTwo();
    settleTitles(ElementsAre("One", "Two"), "changes arrive again");
    EXPECT_EQ(linesWith("Personal: "), 2U) << "one line for each state\n" << log.text();
}

TEST_F(EvolutionFaults, WritesACalendarsNameSoThatItCannotDriveATerminal) {
    write({QStringLiteral("add-source"), QStringLiteral("team"), QStringLiteral("Te\u001b[31mam")});
    begin();
    settle([this] { return store->calendars().size() > 1; }, "the calendar");
    kill(QStringLiteral("evolution-calendar-factory"));
    settle([this] { return linesWith("Te\\x1b[31mam: ") > 0; }, "the log names it");
    EXPECT_EQ(linesWith("\x1b"), 0U);
}

TEST_F(EvolutionFaults, KeepsTheCalendarsWhileTheRegistryIsGoneAndHearsOfOthersAfterwards) {
    putOne();
    begin();
    settleTitles(ElementsAre("One"), "the event");
    kill(QStringLiteral("evolution-source-registry"));
    settle([this] { return linesWith("the registry of accounts has ended") > 0; },
           "the log says so");
    EXPECT_TRUE(calendar(QStringLiteral("Personal")));
    settle([this] { return linesWith("the registry of accounts is back") > 0; }, "it is back");
    EXPECT_THAT(titles(), ElementsAre("One"));
    write({QStringLiteral("add-source"), QStringLiteral("team"), QStringLiteral("Team")});
    settle([this] { return calendar(QStringLiteral("Team")).has_value(); }, "a calendar came");
    EXPECT_TRUE(calendar(QStringLiteral("Personal")));
}

/// GLib keeps a dead bus as long as anything on it waits in the main thread's context. A main loop
/// that never looks there keeps it for good.
class EvolutionFaultsOnGLib : public EvolutionFaults {
protected:
    EvolutionFaultsOnGLib() : EvolutionFaults(MainLoop::glib) {}
};

TEST_F(EvolutionFaultsOnGLib, SurvivesTheSessionBusAndUsesTheNextOne) {
    putOne();
    begin();
    settleTitles(ElementsAre("One"), "the event");
    session.endBus();
    forgiveBlock();
    settle([this] { return linesWith("the session bus has gone") > 0; }, "the log says so");
    EXPECT_THAT(titles(), ElementsAre("One"));
    settle(
        [this] { return store->troubles().join(u' ').contains(QLatin1String("does not answer")); },
        "people are told");
    session.startBus();
    forgiveBlock();
    settle([this] { return linesWith("is back") > 0; }, "accounts are back");
    settle([this] { return store->troubles().empty(); }, "the trouble has gone");
    putTwo();
    settleTitles(ElementsAre("One", "Two"), "changes arrive again");
}

TEST_F(EvolutionFaults, ShowsFoldersWhileTheRegistryDoesNotAnswer) {
    const CalendarFiles files;
    files.write(QStringLiteral("work/a.ics"),
                calendarText(event("a", "DTSTART:20260302T110000Z\nSUMMARY:Folder\n")));
    write({QStringLiteral("list"), ownCalendar(), QStringLiteral("#t")});
    signal(QStringLiteral("evolution-source-registry"), SIGSTOP);
    StoreConfiguration configuration;
    configuration.roots.push_back({files.path(QStringLiteral("work")), {}, false});
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    store = storeOf(configuration);
    store->start();
    settleTitles(ElementsAre("Folder"), "the folder is there at once");
    EXPECT_FALSE(store->hasAllCalendars());
    signal(QStringLiteral("evolution-source-registry"), SIGCONT);
    settle([this] { return store->hasAllCalendars(); }, "the registry answered after all");
    EXPECT_TRUE(calendar(QStringLiteral("Personal")));
}

TEST_F(EvolutionFaults, DropsACalendarThatIsRemovedWhileItIsRead) {
    begin();
    for (const char *const name : {"first", "second"}) {
        const QString uid = QLatin1String(name);
        write({QStringLiteral("add-source"), uid, uid});
        write({QStringLiteral("remove-source"), uid});
    }
    write({QStringLiteral("add-source"), QStringLiteral("last"), QStringLiteral("last")});
    settle([this] { return calendar(QStringLiteral("last")).has_value(); }, "the last one came");
    settle([this] { return !calendar(QStringLiteral("second")); }, "the others went");
    EXPECT_FALSE(calendar(QStringLiteral("first")));
    putOne();
    settleTitles(ElementsAre("One"), "the rest is alive");
}

TEST_F(EvolutionFaults, EndsAtOnceWhileEverythingIsUnderWay) {
    StoreConfiguration configuration;
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    store = storeOf(configuration);
    store->start();
    store.reset();
    forgiveBlock();
    begin();
    kill(QStringLiteral("evolution-calendar-factory"));
    store.reset();
    forgiveBlock();
}

TEST_F(EvolutionFaults, ReadsHundredsOfCalendars) {
    constexpr int count = 500;
    for (int number = 0; number < count; ++number)
        session.writeSource(QStringLiteral("many-%1").arg(number),
                            "[Data Source]\nDisplayName=Many\nEnabled=true\nParent=local-stub\n"
                            "[Calendar]\nBackendName=local\n");
    forgiveBlock();
    begin();
    EXPECT_GE(store->calendars().size(), std::size_t{count});
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"), QStringLiteral("many-499"));
    settleTitles(ElementsAre("One"), "each of them is live");
}

} // namespace
} // namespace vantrel
