#pragma once

#include <linux/eventstore/ical/Problems.h>
#include <platform/Log.h>

namespace vantrel {

Q_DECLARE_LOGGING_CATEGORY(eventStoreLog)

/// A line for each of the problems of a text that goes by that name.
void logProblems(const QString &name, const Problems &problems);

} // namespace vantrel
