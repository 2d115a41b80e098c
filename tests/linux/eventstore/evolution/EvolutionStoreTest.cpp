#include "EvolutionFixture.h"

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using EvolutionStore = EvolutionFixture;

TEST_F(EvolutionStore, ShowsWhatALocalCalendarHoldsAndWhatComesToIt) {
    put(event("one", "DTSTART:20260302T110000Z\nDTEND:20260302T120000Z\nSUMMARY:One\n"));
    begin();
    settleTitles(ElementsAre("One"), "what was there");
    put(event("two", "DTSTART:20260303T110000Z\nDTEND:20260303T120000Z\nSUMMARY:Two\n"));
    settleTitles(ElementsAre("One", "Two"), "what was added");
    put(event("one", "DTSTART:20260304T110000Z\nDTEND:20260304T120000Z\nSUMMARY:Moved\n"));
    settleTitles(ElementsAre("Two", "Moved"), "what was moved");
    session.write({QStringLiteral("remove"), ownCalendar(), QStringLiteral("two")});
    settleTitles(ElementsAre("Moved"), "what was deleted");
}

} // namespace
} // namespace vantrel
