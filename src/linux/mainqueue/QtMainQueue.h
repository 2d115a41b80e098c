#pragma once

#include <platform/MainQueue.h>

#include <QTimer>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace vantrel {

/// The main queue on Qt's event loop: the one place that reads the clocks and owns a timer.
///
/// A single precise timer stands at the earliest deadline, so a program at rest wakes for nothing
/// else. Construct it after the application object.
class QtMainQueue : public MainQueue {
public:
    QtMainQueue();
    QtMainQueue(const QtMainQueue &) = delete;
    QtMainQueue &operator=(const QtMainQueue &) = delete;
    ~QtMainQueue() override;

    [[nodiscard]] Instant now() const override;
    [[nodiscard]] MonotonicInstant uptime() const override;

protected:
    void schedule(std::shared_ptr<ScheduledWork::State> state, MonotonicInstant deadline,
                  Seconds interval) override;

private:
    struct Entry {
        std::shared_ptr<ScheduledWork::State> state;
        Seconds interval;
    };
    using Place = std::pair<MonotonicInstant, std::uint64_t>;

    void insert(Entry entry, MonotonicInstant deadline);
    void sweep();
    void arm();
    void runDue();
    void run(Entry entry, MonotonicInstant deadline);

    QTimer m_timer;
    std::map<Place, Entry> m_entries;
    std::uint64_t m_sequence = 0;
    std::size_t m_sweepAt;
};

} // namespace vantrel
