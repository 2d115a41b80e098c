#include "StoreLog.h"

#include <platform/LogText.h>

namespace vantrel {

VANTREL_LOG(eventStoreLog, "EventStore")

void logProblems(const QString &name, const Problems &problems) {
    for (const Problem &problem : problems.kept()) {
        const QString place =
            problem.line > 0 ? QStringLiteral("%1, line %2").arg(name).arg(problem.line) : name;
        qCWarning(eventStoreLog).noquote().nospace()
            << logText(place) << ": " << logText(problem.reason);
    }
    if (problems.leftOut() > 0)
        qCWarning(eventStoreLog).noquote().nospace()
            << logText(name) << ": " << problems.leftOut() << " more problems";
}

} // namespace vantrel
