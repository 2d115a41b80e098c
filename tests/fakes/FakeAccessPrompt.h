#pragma once

#include <platform/AccessPrompt.h>

#include <memory>
#include <utility>
#include <vector>

namespace vantrel::fakes {

/// Keeps the questions until the test answers.
class FakeAccessPrompt : public AccessPrompt {
public:
    struct Question {
        std::vector<CalendarPlace> places;
        Answered answered;
        std::weak_ptr<void> handle;

        [[nodiscard]] bool stands() const { return !handle.expired(); }
    };

    std::vector<Question> questions;

    [[nodiscard]] Subscription ask(const std::vector<CalendarPlace> &places,
                                   Answered answered) override {
        auto handle = std::make_shared<int>();
        questions.push_back({places, std::move(answered), handle});
        return handle;
    }

    void answer(Answer answer) {
        const auto answered = questions.back().answered;
        answered(answer);
    }
};

} // namespace vantrel::fakes
