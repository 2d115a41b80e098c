// Measures what the accounts of a desktop cost, in the session that it is started in; the script
// evolution_bench.py makes one.
//
//   measure_evolution write FILE COUNT [NOW]   the sample as one calendar file, as the service
//   keeps
//                                              it, around that moment of the system's clock
//   measure_evolution list                     the store on the service: first complete list,
//   memory measure_evolution client                   a plain libecal client for the same fortnight
//   measure_evolution plans COUNT              from a change in the calendar to list and plan, each
//                                              made by `measure_evolution put SERIES NUMBER`
//   measure_evolution watch COUNT              from such a change to the notice that a plain client
//                                              with a view of the fortnight gets
//
// Times are in milliseconds, memory is PSS in kB.

#include "Changes.h"
#include "Measurement.h"
#include "PlanTimes.h"
#include "SampleFolder.h"

#include <QCoreApplication>
#include <QTextStream>

#include <vector>

#undef signals
#include <libecal/libecal.h>

namespace {

using namespace vantrel;

constexpr qint64 fortnight = 14 * 86'400;

StoreConfiguration accounts() {
    StoreConfiguration configuration;
    configuration.evolutionModule = QStringLiteral(EVOLUTION_MODULE);
    return configuration;
}

/// The calendar that holds the sample; null when there is none.
ECalClient *connect() {
    ESourceRegistry *registry = e_source_registry_new_sync(nullptr, nullptr);
    ESource *source = registry ? e_source_registry_ref_builtin_calendar(registry) : nullptr;
    EClient *client = source ? e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS,
                                                         static_cast<guint32>(-1), nullptr, nullptr)
                             : nullptr;
    return reinterpret_cast<ECalClient *>(client);
}

/// The range asked for once, its occurrences made by the library itself. It shifts the range by
/// the offset of an event's zone, so that its count is not quite that of the others.
int measureClient() {
    const auto start = bench::Clock::now();
    ECalClient *client = connect();
    if (!client)
        return 1;
    std::size_t count = 0;
    e_cal_client_generate_instances_sync(
        client, static_cast<time_t>(bench::sampleNow),
        static_cast<time_t>(bench::sampleNow + fortnight), nullptr,
        [](ICalComponent *, ICalTime *, ICalTime *, gpointer data, GCancellable *,
           GError **) -> gboolean {
            ++*static_cast<std::size_t *>(data);
            return TRUE;
        },
        &count);
    QTextStream(stdout) << "first complete list " << bench::millisecondsSince(start) << " ms, "
                        << count << " occurrences, memory " << bench::proportionalSetSize()
                        << " kB after\n";
    return 0;
}

int measureWatch(int count) {
    ECalClient *client = connect();
    ECalClientView *view = nullptr;
    if (!client ||
        !e_cal_client_get_view_sync(client,
                                    "(occur-in-time-range? (make-time \"20260302T120000Z\")"
                                    " (make-time \"20260316T120000Z\"))",
                                    &view, nullptr, nullptr))
        return 1;
    struct Heard {
        bool isComplete = false;
        bench::Clock::time_point at;
    } heard;
    const auto complete =
        +[](ECalClientView *, const GError *, Heard *of) { of->isComplete = true; };
    const auto added = +[](ECalClientView *, GSList *, Heard *of) { of->at = bench::Clock::now(); };
    g_signal_connect(view, "complete", G_CALLBACK(complete), &heard);
    g_signal_connect(view, "objects-added", G_CALLBACK(added), &heard);
    e_cal_client_view_start(view, nullptr);
    bench::waitFor([&] { return heard.isComplete; });

    bench::Changes changes({QStringLiteral("put"), QStringLiteral("watched")});
    std::vector<double> times;
    for (int number = 0; number < count; ++number) {
        heard.at = {};
        const auto taken = changes.make([&] { return heard.at != bench::Clock::time_point(); });
        times.push_back(bench::millisecondsBetween(taken, heard.at));
    }
    bench::printTimes("from change to notice", times);
    return 0;
}

/// Adds one event.
int putOne(const QString &series, const QString &number) {
    ECalClient *client = connect();
    const QByteArray text = bench::addedEvent((series + number).toLatin1());
    ICalComponent *event = i_cal_component_new_from_string(text.constData());
    if (!client || !e_cal_client_create_object_sync(client, event, E_CAL_OPERATION_FLAG_NONE,
                                                    nullptr, nullptr, nullptr))
        return 1;
    bench::Changes::printTaken();
    return 0;
}

} // namespace

int main(int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString verb = arguments.value(1);
    if (verb == u"write" && (argc == 4 || argc == 5))
        return bench::writeSampleFile(arguments[2], arguments[3].toInt(),
                                      argc == 5 ? arguments[4].toLongLong() : bench::sampleNow)
                   ? 0
                   : 1;
    if (verb == u"client")
        return measureClient();
    if (verb == u"watch" && argc == 3)
        return measureWatch(arguments[2].toInt());
    if (verb == u"put" && argc == 4)
        return putOne(arguments[2], arguments[3]);
    if (verb == u"list")
        bench::measureFirstList(accounts(), 1);
    else if (verb == u"plans" && argc == 3)
        bench::measurePlans(accounts(), {QStringLiteral("put"), QStringLiteral("planned")},
                            arguments[2].toInt());
    else
        return 2;
    return 0;
}
