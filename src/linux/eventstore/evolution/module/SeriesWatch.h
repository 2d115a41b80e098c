#pragma once

#include "GObjects.h"

#include <QByteArray>

#include <libecal/libecal.h>

#include <functional>
#include <memory>

namespace vantrel {

/// Tells of every change to a series or an override, wherever in time it lies: a view that is
/// limited to a window hears nothing of an override that moves one of its occurrences out of it.
class SeriesWatch : public std::enable_shared_from_this<SeriesWatch> {
public:
    using Changed = std::function<void(const QByteArray &uid)>;

    SeriesWatch(ECalClient *client, Changed changed);
    SeriesWatch(const SeriesWatch &) = delete;
    SeriesWatch &operator=(const SeriesWatch &) = delete;
    ~SeriesWatch();

    /// `opened` is called once it watches, or with a message when that cannot be.
    void open(std::function<void(const QByteArray &message)> opened);

private:
    static void touched(ECalClientView *view, const GSList *objects, gpointer self);
    static void removed(ECalClientView *view, const GSList *ids, gpointer self);

    void follow(ECalClientView *view, const std::function<void(const QByteArray &)> &opened);

    const Reference<ECalClient> m_client;
    const Changed m_changed;
    const Reference<GCancellable> m_cancellable;
    Reference<ECalClientView> m_view;
};

} // namespace vantrel
