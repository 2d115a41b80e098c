#include "Absences.h"

#include <QMetaObject>

#include <utility>

namespace vantrel {

namespace {

constexpr Seconds longestSwap{60.0};

} // namespace

Absences::Absences(MainQueue &queue, std::function<void()> announce)
    : m_queue(queue), m_announce(std::move(announce)) {}

std::set<QString> Absences::lasting(const std::set<QString> &missing) {
    const bool wasEmpty = m_begun.empty();
    std::erase_if(m_begun, [&missing](const auto &one) { return !missing.contains(one.first); });
    bool hasMore = false;
    for (const QString &one : missing)
        hasMore = m_begun.emplace(one, m_lastNumber + 1).second || hasMore;
    if (hasMore)
        QMetaObject::invokeMethod(
            &m_receiver, [this, number = ++m_lastNumber] { wait(number); }, Qt::QueuedConnection);
    else if (m_begun.empty() && !wasEmpty)
        QMetaObject::invokeMethod(
            &m_receiver, [this] { m_waits.clear(); }, Qt::QueuedConnection);

    std::set<QString> lasting;
    const std::uint64_t over = m_over;
    for (const auto &[one, number] : m_begun) {
        if (number <= over)
            lasting.insert(one);
    }
    return lasting;
}

void Absences::wait(std::uint64_t number) {
    m_waits[number] = m_queue.after(longestSwap, [this, number] {
        m_over = number;
        m_waits.erase(number);
        m_announce();
    });
}

} // namespace vantrel
