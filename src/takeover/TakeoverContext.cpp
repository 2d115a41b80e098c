#include "TakeoverContext.h"

#include <utility>

namespace vantrel {

using PrimaryAction = TakeoverContext::PrimaryAction;

PrimaryAction::PrimaryAction(Action action) : m_action(std::move(action)) {}

PrimaryAction PrimaryAction::join(MeetingLink link) {
    return PrimaryAction(Join{std::move(link)});
}

PrimaryAction PrimaryAction::call(QString rawNumber) {
    return PrimaryAction(Call{std::move(rawNumber)});
}

PrimaryAction PrimaryAction::headingOver() {
    return PrimaryAction(HeadingOver{});
}

PrimaryAction PrimaryAction::acknowledge() {
    return PrimaryAction(Acknowledge{});
}

const MeetingLink *PrimaryAction::asJoin() const {
    const auto *join = std::get_if<Join>(&m_action);
    return join ? &join->link : nullptr;
}

const QString *PrimaryAction::asCall() const {
    const auto *call = std::get_if<Call>(&m_action);
    return call ? &call->rawNumber : nullptr;
}

} // namespace vantrel
