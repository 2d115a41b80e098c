#include "StoreLog.h"

namespace vantrel {

VANTREL_LOG(eventStoreLog, "EventStore")

} // namespace vantrel
