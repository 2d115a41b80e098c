#include "Changes.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTextStream>

#include <algorithm>

namespace vantrel::bench {

Clock::time_point Changes::make(const std::function<bool()> &isHeard) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  m_writer + QStringList{QString::number(m_number++)});
    waitFor([&] { return isHeard() && process.state() == QProcess::NotRunning; });
    return Clock::time_point(Clock::duration(process.readAll().trimmed().toLongLong()));
}

void Changes::printTaken() {
    QTextStream(stdout) << qint64(Clock::now().time_since_epoch().count()) << '\n';
}

double millisecondsBetween(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double, std::milli>(end - start).count();
}

void printTimes(const char *what, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    QTextStream(stdout) << what << ": median " << times[times.size() / 2] << " ms, least "
                        << times.front() << " ms, most " << times.back() << " ms, " << times.size()
                        << " changes\n";
}

} // namespace vantrel::bench
