#pragma once

#include <platform/ViewContent.h>

#include <QSize>

#include <memory>

class QWindow;

namespace vantrel {

class ViewEngine;

/// A window of that size, in device-independent pixels, that shows a panel's content; nothing is
/// laid out at another size. Never null: for content that cannot be made a plain window with the
/// title stands in, and the log says so. The window must not outlive the engine.
[[nodiscard]] std::unique_ptr<QWindow> makePanelWindow(ViewEngine &engine,
                                                       const ViewContent &content, QSize size);

} // namespace vantrel
