#include "MainQueue.h"

#include <algorithm>
#include <utility>

namespace vantrel {

ScheduledWork::ScheduledWork(std::shared_ptr<State> state) : m_state(std::move(state)) {}

ScheduledWork &ScheduledWork::operator=(ScheduledWork &&other) noexcept {
    if (this != &other) {
        cancel();
        m_state = std::move(other.m_state);
    }
    return *this;
}

ScheduledWork::~ScheduledWork() {
    cancel();
}

void ScheduledWork::cancel() {
    if (m_state)
        m_state->isCancelled = true;
    m_state.reset();
}

ScheduledWork MainQueue::after(Seconds delay, std::function<void()> work) {
    auto state = std::make_shared<ScheduledWork::State>();
    state->work = std::move(work);
    schedule(state, uptime() + std::max(delay, Seconds::zero()), Seconds::zero());
    return ScheduledWork(std::move(state));
}

ScheduledWork MainQueue::every(Seconds interval, std::function<void()> work) {
    auto state = std::make_shared<ScheduledWork::State>();
    state->work = std::move(work);
    schedule(state, uptime() + interval, interval);
    return ScheduledWork(std::move(state));
}

void MainQueue::async(std::function<void()> work) {
    auto state = std::make_shared<ScheduledWork::State>();
    state->work = std::move(work);
    schedule(std::move(state), uptime(), Seconds::zero());
}

} // namespace vantrel
