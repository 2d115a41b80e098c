#include "EvolutionFixture.h"
#include "LoopbackServers.h"
#include "RemoteSources.h"

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;

class RemoteFaults : public EvolutionFixture {
protected:
    /// Does not wait until all calendars are there.
    void beginAtOnce() {
        StoreConfiguration configuration;
        configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
        store = storeOf(configuration);
        store->start();
    }
};

TEST_F(RemoteFaults, HoldUpNoOtherAccountWhenAServerNeverAnswers) {
    const HangingServer server;
    // Ahead of the desktop's own in the line, and more than may connect at a time.
    constexpr int count = 12;
    for (int number = 0; number < count; ++number)
        session.writeSource(QStringLiteral("a%1").arg(number),
                            "[Data Source]\nDisplayName=Far\nEnabled=true\nParent=caldav-stub\n"
                            "[Calendar]\nBackendName=caldav\n" +
                                remoteSource(server.port(), "/me/work/"));
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"));
    watchMainThread();
    beginAtOnce();
    settleTitles(ElementsAre("One"), "what is on this computer");
    put(event("two", "DTSTART:20260303T110000Z\nSUMMARY:Two\n"));
    settleTitles(ElementsAre("One", "Two"), "it is live");
    EXPECT_FALSE(store->hasAllCalendars()) << "the others still hang";
}

TEST_F(RemoteFaults, SayOnceThatAPasswordIsWrongAndAskNobodyForIt) {
    const RefusingServer server(session.path(QStringLiteral("refusing")));
    QByteArray source = accountSource(server.port());
    source.replace("Method=none\nProxyUid", "Method=plain/password\nUser=me\nProxyUid");
    session.writeSource(QStringLiteral("account"), source);
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"));
    watchMainThread();
    beginAtOnce();
    settleTitles(ElementsAre("One"), "what is on this computer");
    settle([this] { return linesWith("Office: ") > 0; }, "the log says so");
    write({QStringLiteral("refresh"), QStringLiteral("account")});
    put(event("two", "DTSTART:20260303T110000Z\nSUMMARY:Two\n"));
    settleTitles(ElementsAre("One", "Two"), "it is live");
    EXPECT_EQ(linesWith("Office: "), 1U) << log.text();
    EXPECT_EQ(session.processOf(QStringLiteral("evolution-user-prompter")), 0);
}

} // namespace
} // namespace vantrel
