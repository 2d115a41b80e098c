#include "TypingGuard.h"

#include <algorithm>

namespace vantrel {

void TypingGuard::begin(MonotonicInstant now, Seconds idle) {
    if (idle >= m_lengths.busy)
        return;
    m_read = now + m_lengths.reading;
    m_keys = m_read;
    m_end = now + m_lengths.longest;
}

bool TypingGuard::takesKey(MonotonicInstant now) {
    if (now >= m_keys)
        return false;
    m_keys = std::min(std::max(m_keys, now + m_lengths.pause), m_end);
    return true;
}

} // namespace vantrel
