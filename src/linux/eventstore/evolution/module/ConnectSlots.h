#pragma once

#include <deque>
#include <functional>
#include <memory>

namespace vantrel {

/// Lets a few calendars of a place connect at a time: hundreds at once would keep the service from
/// serving anybody, and one that stalls holds up no more than a slot.
class ConnectSlots {
public:
    /// A place in the line, and later a slot. Dropping it gives up either.
    using Ticket = std::shared_ptr<void>;

    ConnectSlots();

    /// `begin` is called once a slot is free, possibly before this returns.
    [[nodiscard]] Ticket ask(std::function<void()> begin);

private:
    struct Line;
    struct Holder;

    std::shared_ptr<Line> m_line;
};

} // namespace vantrel
