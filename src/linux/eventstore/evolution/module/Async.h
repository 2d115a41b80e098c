#pragma once

#include "GObjects.h"

#include <gio/gio.h>

#include <functional>

namespace vantrel {

/// Brings the answer of an asynchronous call to a function object, which is called exactly once,
/// on the thread that asked, also when the call was cancelled. It may outlive whoever asked and
/// holds those weakly.
class Async {
public:
    using Finish = std::function<void(GObject *object, GAsyncResult *result)>;

    /// The two go together as last arguments of the call: `ready, data(...)`.
    static void ready(GObject *object, GAsyncResult *result, gpointer data);
    [[nodiscard]] static gpointer data(Finish finish);

    /// Calls of this thread that have not been answered yet.
    [[nodiscard]] static int outstanding();
};

} // namespace vantrel
