#include "EvolutionFixture.h"

#include <csignal>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;

class EvolutionFaults : public EvolutionFixture {
protected:
    using EvolutionFixture::EvolutionFixture;

    /// Ends one of the services of this session, as a crash would.
    void kill(const QString &program) {
        qint64 process = 0;
        settle([&] { return (process = session.processOf(program)) > 1; }, "the service runs");
        ASSERT_GT(process, 1);
        ASSERT_EQ(::kill(static_cast<pid_t>(process), SIGKILL), 0);
    }

    void putOne() { put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n")); }
    void putTwo() { put(event("two", "DTSTART:20260303T110000Z\nSUMMARY:Two\n")); }

    [[nodiscard]] std::size_t linesWith(const std::string &part) const {
        std::size_t count = 0;
        for (const std::string &line : log.lines())
            count += line.find(part) != std::string::npos ? 1 : 0;
        return count;
    }
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
    session.write(
        {QStringLiteral("add-source"), QStringLiteral("team"), QStringLiteral("Te\u001b[31mam")});
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
    session.write({QStringLiteral("add-source"), QStringLiteral("team"), QStringLiteral("Team")});
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
    settle([this] { return linesWith("the session bus has gone") > 0; }, "the log says so");
    EXPECT_THAT(titles(), ElementsAre("One"));
    settle(
        [this] { return store->troubles().join(u' ').contains(QLatin1String("does not answer")); },
        "people are told");
    session.startBus();
    settle([this] { return linesWith("is back") > 0; }, "accounts are back");
    settle([this] { return store->troubles().empty(); }, "the trouble has gone");
    putTwo();
    settleTitles(ElementsAre("One", "Two"), "changes arrive again");
}

TEST_F(EvolutionFaults, ShowsFoldersWhileTheRegistryDoesNotAnswer) {
    const CalendarFiles files;
    files.write(QStringLiteral("work/a.ics"),
                calendarText(event("a", "DTSTART:20260302T110000Z\nSUMMARY:Folder\n")));
    session.write({QStringLiteral("list"), ownCalendar(), QStringLiteral("#t")});
    const auto registry =
        static_cast<pid_t>(session.processOf(QStringLiteral("evolution-source-registry")));
    ASSERT_GT(registry, 1);
    ASSERT_EQ(::kill(registry, SIGSTOP), 0);
    StoreConfiguration configuration;
    configuration.roots.push_back({files.path(QStringLiteral("work")), {}, false});
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    store = storeOf(configuration);
    store->start();
    settleTitles(ElementsAre("Folder"), "the folder is there at once");
    EXPECT_FALSE(store->hasAllCalendars());
    ASSERT_EQ(::kill(registry, SIGCONT), 0);
    settle([this] { return store->hasAllCalendars(); }, "the registry answered after all");
    EXPECT_TRUE(calendar(QStringLiteral("Personal")));
}

TEST_F(EvolutionFaults, DropsACalendarThatIsRemovedWhileItIsRead) {
    begin();
    for (const char *const name : {"first", "second"}) {
        const QString uid = QLatin1String(name);
        session.write({QStringLiteral("add-source"), uid, uid});
        session.write({QStringLiteral("remove-source"), uid});
    }
    session.write({QStringLiteral("add-source"), QStringLiteral("last"), QStringLiteral("last")});
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
    begin();
    kill(QStringLiteral("evolution-calendar-factory"));
    store.reset();
}

TEST_F(EvolutionFaults, ReadsHundredsOfCalendars) {
    constexpr int count = 200;
    for (int number = 0; number < count; ++number)
        session.writeSource(QStringLiteral("many-%1").arg(number),
                            "[Data Source]\nDisplayName=Many\nEnabled=true\nParent=local-stub\n"
                            "[Calendar]\nBackendName=local\n");
    begin();
    EXPECT_GE(store->calendars().size(), std::size_t{count});
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"), QStringLiteral("many-199"));
    settleTitles(ElementsAre("One"), "each of them is live");
}

} // namespace
} // namespace vantrel
