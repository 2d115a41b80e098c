#include "Waiting.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace vantrel::tests {

bool waitUntil(const std::function<bool()> &condition, Looking looking) {
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(std::chrono::seconds{30});
    QTimer again;
    if (looking == Looking::often)
        again.start(std::chrono::milliseconds{10});
    while (!condition()) {
        if (!limit.isActive())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace vantrel::tests
