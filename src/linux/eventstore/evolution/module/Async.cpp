#include "Async.h"

#include <memory>
#include <utility>

namespace vantrel {

namespace {

thread_local int outstandingCalls = 0;

} // namespace

void Async::ready(GObject *object, GAsyncResult *result, gpointer data) {
    const std::unique_ptr<Finish> finish(static_cast<Finish *>(data));
    --outstandingCalls;
    (*finish)(object, result);
}

gpointer Async::data(Finish finish) {
    ++outstandingCalls;
    return std::make_unique<Finish>(std::move(finish)).release();
}

int Async::outstanding() {
    return outstandingCalls;
}

} // namespace vantrel
