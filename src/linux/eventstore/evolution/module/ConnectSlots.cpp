#include "ConnectSlots.h"

#include <utility>

namespace vantrel {

namespace {

constexpr int slotCount = 8;

} // namespace

struct ConnectSlots::Line {
    std::deque<std::weak_ptr<Holder>> waiting;
    int taken = 0;

    void fill();
};

struct ConnectSlots::Holder {
    std::shared_ptr<Line> line;
    std::function<void()> begin;
    bool hasSlot = false;

    Holder(std::shared_ptr<Line> itsLine, std::function<void()> itsBegin)
        : line(std::move(itsLine)), begin(std::move(itsBegin)) {}
    Holder(const Holder &) = delete;
    Holder &operator=(const Holder &) = delete;
    ~Holder() {
        if (!hasSlot)
            return;
        --line->taken;
        line->fill();
    }
};

void ConnectSlots::Line::fill() {
    while (taken < slotCount && !waiting.empty()) {
        const auto next = waiting.front().lock();
        waiting.pop_front();
        if (!next)
            continue;
        ++taken;
        next->hasSlot = true;
        std::exchange(next->begin, nullptr)();
    }
}

ConnectSlots::ConnectSlots() : m_line(std::make_shared<Line>()) {}

ConnectSlots::Ticket ConnectSlots::ask(std::function<void()> begin) {
    auto holder = std::make_shared<Holder>(m_line, std::move(begin));
    m_line->waiting.push_back(holder);
    m_line->fill();
    return holder;
}

} // namespace vantrel
