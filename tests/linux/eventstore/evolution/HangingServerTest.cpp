#include "EvolutionFixture.h"
#include "LoopbackServers.h"
#include "RemoteSources.h"
#include "Watchdog.h"

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;

class HangingServers : public EvolutionFixture {};

TEST_F(HangingServers, HoldUpNoOtherAccount) {
    const HangingServer server;
    // Ahead of the desktop's own in the line, and more than may connect at a time.
    constexpr int count = 12;
    for (int number = 0; number < count; ++number)
        session.writeSource(QStringLiteral("a%1").arg(number),
                            "[Data Source]\nDisplayName=Far\nEnabled=true\nParent=caldav-stub\n"
                            "[Calendar]\nBackendName=caldav\n" +
                                remoteSource(server.port(), "/me/work/"));
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"));
    const Watchdog watchdog;
    StoreConfiguration configuration;
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    store = storeOf(configuration);
    store->start();
    settleTitles(ElementsAre("One"), "what is on this computer");
    put(event("two", "DTSTART:20260303T110000Z\nSUMMARY:Two\n"));
    settleTitles(ElementsAre("One", "Two"), "it is live");
    EXPECT_FALSE(store->hasAllCalendars()) << "the others still hang";
    watchdog.expectNoBlock();
}

} // namespace
} // namespace vantrel
