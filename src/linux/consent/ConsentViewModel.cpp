#include "ConsentViewModel.h"

#include <utility>

namespace vantrel {

ConsentViewModel::ConsentViewModel(std::vector<CalendarPlace> places,
                                   AccessPrompt::Answered answered)
    : m_places(std::move(places)), m_answered(std::move(answered)) {}

void ConsentViewModel::answer(AccessPrompt::Answer answer) {
    if (const auto answered = std::exchange(m_answered, nullptr))
        answered(answer);
}

} // namespace vantrel
