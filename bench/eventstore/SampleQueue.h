#pragma once

#include "SampleFolder.h"

#include <linux/mainqueue/QtMainQueue.h>

namespace vantrel::bench {

inline Instant sampleInstant() {
    return Instant{Seconds{static_cast<double>(sampleNow)}};
}

/// The real queue, on a wall clock that showed the sample's noon when the queue was made.
class SampleQueue : public QtMainQueue {
public:
    [[nodiscard]] Instant now() const override { return sampleInstant() + (uptime() - m_made); }

private:
    const MonotonicInstant m_made = uptime();
};

} // namespace vantrel::bench
