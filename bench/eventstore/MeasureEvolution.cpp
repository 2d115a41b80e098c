// Measures what the accounts of a desktop cost, in the session that it is started in; the script
// evolution_bench.py makes one.
//
//   measure_evolution write FILE COUNT [NOW]   the sample as one calendar file, as the service
//   keeps
//                                              it, around that moment of the system's clock
//   measure_evolution list                     the store on the service: first complete list,
//   memory measure_evolution client                   a plain libecal client for the same fortnight
//   measure_evolution plans COUNT              from a change in the calendar to list and plan, each
//                                              made by `measure_evolution put NUMBER`
//
// Times are in milliseconds, memory is PSS in kB.

#include "Measurement.h"
#include "PlanTimes.h"
#include "SampleFolder.h"

#include <QCoreApplication>
#include <QTextStream>

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

/// The range asked for once, its occurrences made by the library itself.
int measureClient() {
    const auto start = bench::Clock::now();
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
    QTextStream(stdout) << "first complete list " << bench::millisecondsSince(start) << " ms, "
                        << count << " occurrences, memory " << bench::proportionalSetSize()
                        << " kB after\n";
    return 0;
}

/// Adds one event.
int putOne(const char *number) {
    ESourceRegistry *registry = e_source_registry_new_sync(nullptr, nullptr);
    ESource *source = e_source_registry_ref_builtin_calendar(registry);
    EClient *client = e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS,
                                                static_cast<guint32>(-1), nullptr, nullptr);
    const QByteArray text = bench::addedEvent(number);
    ICalComponent *event = i_cal_component_new_from_string(text.constData());
    if (!client ||
        !e_cal_client_create_object_sync(reinterpret_cast<ECalClient *>(client), event,
                                         E_CAL_OPERATION_FLAG_NONE, nullptr, nullptr, nullptr))
        return 1;
    bench::printTaken();
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
    if (verb == u"put" && argc == 3)
        return putOne(argv[2]);
    if (verb == u"list")
        bench::measureFirstList(accounts(), 1);
    else if (verb == u"plans" && argc == 3)
        bench::measurePlans(accounts(), {QStringLiteral("put")}, arguments[2].toInt());
    else
        return 2;
    return 0;
}
