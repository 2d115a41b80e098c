// Measures what the accounts of a desktop cost, in the session that it is started in; the script
// evolution_bench.py makes one.
//
//   measure_evolution write FILE COUNT   the sample as one calendar file, as the service keeps it
//   measure_evolution folder FOLDER      the store on a folder: first complete list, memory
//   measure_evolution store              the store on the service: first complete list, memory
//   measure_evolution client             a plain libecal client for the same fortnight
//   measure_evolution changes COUNT      from a change in the calendar to `changed` of the store,
//                                        each made by `measure_evolution put NUMBER`
//
// Times are in milliseconds, memory is PSS in kB.

#include "SampleFolder.h"

#include <linux/eventstore/LocalEventStore.h>
#include <linux/eventstore/StoreAccess.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QTextStream>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <vector>

#undef signals
#include <libecal/libecal.h>

namespace {

using namespace vantrel;
using Clock = std::chrono::steady_clock;

constexpr qint64 fortnight = 14 * 86'400;

class StillQueue : public MainQueue {
public:
    [[nodiscard]] Instant now() const override {
        return Instant{Seconds{static_cast<double>(bench::sampleNow)}};
    }
    [[nodiscard]] MonotonicInstant uptime() const override { return {}; }

protected:
    void schedule(std::shared_ptr<ScheduledWork::State>, MonotonicInstant, Seconds) override {}
};

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

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

std::size_t occurrences(const EventStore &store) {
    std::vector<QString> identifiers;
    for (const StoreCalendar &calendar : store.calendars())
        identifiers.push_back(calendar.calendarIdentifier);
    const Instant now{Seconds{static_cast<double>(bench::sampleNow)}};
    return store.events(now, now + Seconds{static_cast<double>(fortnight)}, identifiers).size();
}

std::unique_ptr<LocalEventStore> storeOf(MainQueue &queue,
                                         const StoreConfiguration &configuration) {
    return std::make_unique<LocalEventStore>(
        queue, configuration,
        [] { return LocalCalendar(QTimeZone("Europe/Zurich"), QLocale::c()); },
        StoreAccess::granted());
}

StoreConfiguration accounts() {
    StoreConfiguration configuration;
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    return configuration;
}

void waitFor(const std::function<bool()> &condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

int measureStore(const StoreConfiguration &configuration) {
    StillQueue queue;
    const qint64 before = proportionalSetSize();
    const auto start = Clock::now();
    const auto store = storeOf(queue, configuration);
    store->start();
    waitFor([&] { return store->isLoaded() && occurrences(*store) > 0; });
    const double time = millisecondsSince(start);
    QTextStream(stdout) << "first complete list " << time << " ms, " << occurrences(*store)
                        << " occurrences, memory " << before << " kB before, "
                        << proportionalSetSize() << " kB after\n";
    return 0;
}

/// The range asked for once, its occurrences made by the library itself.
int measureClient() {
    const auto start = Clock::now();
    ESourceRegistry *registry = e_source_registry_new_sync(nullptr, nullptr);
    ESource *source = registry ? e_source_registry_ref_builtin_calendar(registry) : nullptr;
    EClient *client = source ? e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS,
                                                         static_cast<guint32>(-1), nullptr, nullptr)
                             : nullptr;
    if (!client)
        return 1;
    std::size_t count = 0;
    e_cal_client_generate_instances_sync(
        reinterpret_cast<ECalClient *>(client), static_cast<time_t>(bench::sampleNow),
        static_cast<time_t>(bench::sampleNow + fortnight), nullptr,
        [](ICalComponent *, ICalTime *, ICalTime *, gpointer data, GCancellable *,
           GError **) -> gboolean {
            ++*static_cast<std::size_t *>(data);
            return TRUE;
        },
        &count);
    QTextStream(stdout) << "first complete list " << millisecondsSince(start) << " ms, " << count
                        << " occurrences, memory " << proportionalSetSize() << " kB after\n";
    return 0;
}

/// Adds one event and prints, as nanoseconds of the machine's steady clock, when the service had
/// taken it.
int putOne(const char *number) {
    ESourceRegistry *registry = e_source_registry_new_sync(nullptr, nullptr);
    ESource *source = e_source_registry_ref_builtin_calendar(registry);
    EClient *client = e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS,
                                                static_cast<guint32>(-1), nullptr, nullptr);
    const QByteArray text = "BEGIN:VEVENT\r\nUID:added-" + QByteArray(number) +
                            "\r\nDTSTART:20260302T150000Z\r\nDURATION:PT30M\r\nSUMMARY:Added\r\n"
                            "END:VEVENT\r\n";
    ICalComponent *event = i_cal_component_new_from_string(text.constData());
    if (!client ||
        !e_cal_client_create_object_sync(reinterpret_cast<ECalClient *>(client), event,
                                         E_CAL_OPERATION_FLAG_NONE, nullptr, nullptr, nullptr))
        return 1;
    QTextStream(stdout) << qint64(Clock::now().time_since_epoch().count()) << '\n';
    return 0;
}

int measureChanges(int count) {
    StillQueue queue;
    const auto store = storeOf(queue, accounts());
    store->start();
    waitFor([&] { return store->isLoaded() && occurrences(*store) > 0; });
    std::vector<double> times;
    for (int number = 0; number < count; ++number) {
        const std::size_t before = occurrences(*store);
        Clock::time_point arrived;
        const Subscription subscription = store->changed.subscribe([&] {
            if (arrived == Clock::time_point() && occurrences(*store) > before)
                arrived = Clock::now();
        });
        QProcess writer;
        writer.start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("put"), QString::number(number)});
        waitFor([&] {
            return arrived != Clock::time_point() && writer.state() == QProcess::NotRunning;
        });
        const Clock::time_point taken{Clock::duration(writer.readAll().trimmed().toLongLong())};
        times.push_back(std::chrono::duration<double, std::milli>(arrived - taken).count());
    }
    std::sort(times.begin(), times.end());
    QTextStream(stdout) << "from change to list: median " << times[times.size() / 2]
                        << " ms, least " << times.front() << " ms, most " << times.back() << " ms, "
                        << count << " changes\n";
    return 0;
}

/// The sample's events in one file, which is how the service keeps a local calendar.
int write(const QString &path, int count) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Sample//EN\r\n");
    for (int number = 0; number < count; ++number) {
        const QByteArray text = bench::sampleText(number);
        const auto begin = text.indexOf(number == 0 ? "BEGIN:VTIMEZONE" : "BEGIN:VEVENT");
        file.write(text.mid(begin, text.indexOf("END:VCALENDAR") - begin));
    }
    file.write("END:VCALENDAR\r\n");
    return 0;
}

} // namespace

int main(int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString verb = arguments.value(1);
    if (verb == u"write" && argc == 4)
        return write(arguments[2], arguments[3].toInt());
    if (verb == u"folder" && argc == 3) {
        StoreConfiguration configuration;
        configuration.roots.push_back({arguments[2], {}, false});
        return measureStore(configuration);
    }
    if (verb == u"store")
        return measureStore(accounts());
    if (verb == u"client")
        return measureClient();
    if (verb == u"put" && argc == 3)
        return putOne(argv[2]);
    if (verb == u"changes" && argc == 3)
        return measureChanges(arguments[2].toInt());
    return 2;
}
