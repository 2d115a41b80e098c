// Measures what folders of calendar files cost.
//
//   measure_folder write FOLDER COUNT [NOW]   the sample, around that moment of the system's clock
//   measure_folder list FOLDER                the store: first complete list, memory
//   measure_folder libical FOLDER             a plain libical loop for the same fortnight
//   measure_folder plans FOLDER COUNT         from a change in the folder to list and plan, each
//                                             made by `measure_folder put FOLDER NUMBER`
//
// Times are in milliseconds, memory is PSS in kB.

#include "Changes.h"
#include "Measurement.h"
#include "PlainLoop.h"
#include "PlanTimes.h"
#include "SampleFolder.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {

using namespace vantrel;

void measureLibical(const QString &folder) {
    const auto start = bench::Clock::now();
    const std::size_t count =
        bench::plainLoop(folder, bench::sampleNow, bench::sampleNow + 14 * 86'400);
    QTextStream(stdout) << "first complete list " << bench::millisecondsSince(start) << " ms, "
                        << count << " occurrences, memory " << bench::proportionalSetSize()
                        << " kB after\n";
}

/// As calendar programs do: a temporary file that is renamed.
bool put(const QString &folder, const QString &number) {
    const QString name = folder + QStringLiteral("/added-") + number;
    QFile file(name + QStringLiteral(".tmp"));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Sample//EN\r\n" +
               bench::addedEvent(number.toLatin1()) + "END:VCALENDAR\r\n");
    file.close();
    if (!file.rename(name + QStringLiteral(".ics")))
        return false;
    bench::Changes::printTaken();
    return true;
}

} // namespace

int main(int argc, char *argv[]) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const QString verb = arguments.value(1);
    const QString folder = arguments.value(2);
    if (verb == u"write" && (argc == 4 || argc == 5))
        bench::writeSampleFolder(folder, arguments[3].toInt(),
                                 argc == 5 ? arguments[4].toLongLong() : bench::sampleNow);
    else if (verb == u"list" && argc == 3)
        bench::measureFirstList(bench::folderConfiguration(folder), 0);
    else if (verb == u"libical" && argc == 3)
        measureLibical(folder);
    else if (verb == u"plans" && argc == 4)
        bench::measurePlans(bench::folderConfiguration(folder), {QStringLiteral("put"), folder},
                            arguments[3].toInt());
    else if (verb == u"put" && argc == 4)
        return put(folder, arguments[3]) ? 0 : 1;
    else
        return 2;
    return 0;
}
