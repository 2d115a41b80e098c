#include "Measurement.h"

#include "SampleQueue.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace vantrel::bench {

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

qint64 proportionalSetSize() {
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("Pss:"))
            return line.mid(4).trimmed().split(' ').first().toLongLong();
    }
    return 0;
}

StoreConfiguration folderConfiguration(const QString &folder) {
    StoreConfiguration configuration;
    configuration.roots.push_back({folder, {}, false});
    return configuration;
}

LocalCalendar sampleCalendar() {
    return LocalCalendar(QTimeZone("Europe/Zurich"), QLocale::c());
}

std::vector<QString> identifiersOf(const EventStore &store) {
    std::vector<QString> identifiers;
    for (const StoreCalendar &calendar : store.calendars())
        identifiers.push_back(calendar.calendarIdentifier);
    return identifiers;
}

std::size_t occurrences(const EventStore &store) {
    return store
        .events(sampleInstant(), sampleInstant() + std::chrono::days(14), identifiersOf(store))
        .size();
}

void waitFor(const std::function<bool()> &condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void measureFirstList(const StoreConfiguration &configuration, std::size_t atLeast) {
    SampleQueue queue;
    const qint64 before = proportionalSetSize();
    const auto start = Clock::now();
    const auto store = storeOf(queue, configuration);
    store->start();
    waitFor([&] { return store->isLoaded() && occurrences(*store) >= atLeast; });
    const double time = millisecondsSince(start);
    QTextStream(stdout) << "first complete list " << time << " ms, " << occurrences(*store)
                        << " occurrences, memory " << before << " kB before, "
                        << proportionalSetSize() << " kB after\n";
}

} // namespace vantrel::bench
