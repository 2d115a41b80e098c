#pragma once

#include <platform/Log.h>

namespace vantrel {

const QLoggingCategory &shieldLog();

} // namespace vantrel
