#include "Async.h"

#include <memory>
#include <utility>

namespace vantrel {

namespace {

thread_local int outstandingCalls = 0;

void runWork(GTask *task, gpointer /*object*/, gpointer data, GCancellable * /*cancellable*/) {
    (*static_cast<std::function<void()> *>(data))();
    g_task_return_boolean(task, TRUE);
}

void dropWork(gpointer data) {
    delete static_cast<std::function<void()> *>(data);
}

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

void Async::inThread(GObject *object, std::function<void()> work, std::function<void()> finish) {
    const Reference<GTask> task(
        g_task_new(object, nullptr, ready,
                   data([finish = std::move(finish)](GObject * /*object*/,
                                                     GAsyncResult * /*result*/) { finish(); })));
    g_task_set_task_data(
        task.get(), std::make_unique<std::function<void()>>(std::move(work)).release(), dropWork);
    g_task_run_in_thread(task.get(), runWork);
}

int Async::outstanding() {
    return outstandingCalls;
}

} // namespace vantrel
