// Prints what a loaded store costs in memory: `measure_eventstore_memory FOLDER` loads that folder
// and prints the process's PSS before and after, as the kernel counts it.

#include "SampleFolder.h"

#include <linux/eventstore/LocalEventStore.h>
#include <linux/eventstore/StoreAccess.h>

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {

using namespace vantrel;

class StillQueue : public MainQueue {
public:
    [[nodiscard]] Instant now() const override {
        return Instant{Seconds{static_cast<double>(bench::sampleNow)}};
    }
    [[nodiscard]] MonotonicInstant uptime() const override { return {}; }

protected:
    void schedule(std::shared_ptr<ScheduledWork::State>, MonotonicInstant, Seconds) override {}
};

/// Kilobytes; 0 where the kernel does not tell.
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

} // namespace

int main(int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    if (application.arguments().size() != 3) {
        out << "usage: measure_eventstore_memory write|load FOLDER\n";
        return 2;
    }
    const QString folder = application.arguments().at(2);
    if (application.arguments().at(1) == QLatin1String("write")) {
        bench::writeSampleFolder(folder, 10'000);
        return 0;
    }
    StillQueue queue;
    StoreConfiguration configuration;
    configuration.roots.push_back({folder, {}, true});
    const qint64 before = proportionalSetSize();
    LocalEventStore store(
        queue, configuration,
        [] { return LocalCalendar(QTimeZone("Europe/Zurich"), QLocale::c()); },
        StoreAccess::granted());
    QObject receiver;
    const auto subscription = store.changed.subscribe([] { QCoreApplication::quit(); });
    store.start();
    QCoreApplication::exec();
    out << "before " << before << " kB, loaded " << proportionalSetSize() << " kB, calendars "
        << store.calendars().size() << '\n';
    return 0;
}
