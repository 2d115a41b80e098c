#pragma once

#include <platform/Log.h>

#include <QLoggingCategory>

namespace vantrel {

Q_DECLARE_LOGGING_CATEGORY(eventStoreLog)

} // namespace vantrel
