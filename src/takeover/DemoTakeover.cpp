#include "DemoTakeover.h"

#include <copy/MeetingMomentResolver.h>

namespace vantrel {

namespace {

constexpr Seconds timeToStart{60.0};
constexpr Seconds length{1800.0};

} // namespace

TakeoverContext demoTakeover(Instant now, const LocalCalendar &calendar,
                             const CopyProvider &copyProvider) {
    MeetingMomentInputs inputs;
    inputs.title = QStringLiteral("Vantrel demo meeting");
    inputs.startsAt = now + timeToStart;
    inputs.endsAt = inputs.startsAt + length;
    const MeetingMoment moment = MeetingMomentResolver::moment(inputs, {}, now, calendar);
    return {inputs.title, inputs.startsAt,           inputs.endsAt,
            moment,       copyProvider.line(moment), TakeoverContext::PrimaryAction::acknowledge()};
}

} // namespace vantrel
