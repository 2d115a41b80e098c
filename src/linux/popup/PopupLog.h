#pragma once

#include <platform/Log.h>

namespace vantrel {

const QLoggingCategory &popupLog();

} // namespace vantrel
