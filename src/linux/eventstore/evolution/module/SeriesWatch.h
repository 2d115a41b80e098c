#pragma once

#include "RemoteView.h"

#include <QByteArray>

#include <functional>
#include <memory>

namespace vantrel {

/// Tells of every change to a series or an override, wherever in time it lies: a view that is
/// limited to a window hears nothing of an override that moves one of its occurrences out of it.
class SeriesWatch {
public:
    struct Listener {
        std::function<void()> begun; ///< It watches.
        std::function<void(const QByteArray &uid)> changed;
        std::function<void(const QByteArray &message)> failed;
    };

    SeriesWatch(std::shared_ptr<RemoteCalendar> calendar, const Listener &listener);

private:
    std::shared_ptr<RemoteView> m_view;
};

} // namespace vantrel
