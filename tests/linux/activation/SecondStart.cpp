// Claims the name for a request and tells with its exit code what came of it; with --ask asks the
// one that runs, without a claim; with --status prints the report of that one.
// Usage: SecondStart REQUEST [PROFILE], SecondStart --ask REQUEST

#include <linux/activation/BusActivation.h>
#include <linux/mainqueue/QtMainQueue.h>

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    vantrel::QtMainQueue queue;
    if (arguments.value(1) == QLatin1String("--status")) {
        const auto report = vantrel::BusActivation(queue, std::nullopt).askStatus();
        std::fputs(report.value_or("none").constData(), stdout);
        return 0;
    }
    if (arguments.value(1) == QLatin1String("--ask"))
        return static_cast<int>(
            vantrel::BusActivation(queue, std::nullopt)
                .askRunning(vantrel::activationRequest(arguments.value(2)).value()));
    vantrel::BusActivation activation(queue, arguments.size() > 2 ? std::optional(arguments[2])
                                                                  : std::nullopt);
    return static_cast<int>(
        activation.claim(vantrel::activationRequest(arguments.value(1)).value()));
}
