#include "SeriesWatch.h"

#include "Async.h"

#include <utility>

namespace vantrel {

SeriesWatch::SeriesWatch(ECalClient *client, Changed changed)
    : m_client(anotherReference(client)),
      m_changed(std::move(changed)),
      m_cancellable(g_cancellable_new()) {}

SeriesWatch::~SeriesWatch() {
    g_cancellable_cancel(m_cancellable.get());
    if (m_view)
        g_signal_handlers_disconnect_by_data(m_view.get(), this);
}

void SeriesWatch::open(std::function<void(const QByteArray &)> opened) {
    e_cal_client_get_view(m_client.get(), "(has-recurrences?)", m_cancellable.get(), Async::ready,
                          Async::data([weak = weak_from_this(), opened = std::move(opened)](
                                          GObject *object, GAsyncResult *result) {
                              Failure failure;
                              ECalClientView *view = nullptr;
                              e_cal_client_get_view_finish(reinterpret_cast<ECalClient *>(object),
                                                           result, &view, failure.out());
                              const Reference<ECalClientView> owned(view);
                              const auto self = weak.lock();
                              if (!self)
                                  return;
                              if (view)
                                  self->follow(view, opened);
                              else
                                  opened(failure.message());
                          }));
}

void SeriesWatch::follow(ECalClientView *view,
                         const std::function<void(const QByteArray &)> &opened) {
    m_view = anotherReference(view);
    g_signal_connect(view, "objects-added", G_CALLBACK(touched), this);
    g_signal_connect(view, "objects-modified", G_CALLBACK(touched), this);
    g_signal_connect(view, "objects-removed", G_CALLBACK(removed), this);
    // Its signals come to the thread that starts it.
    Failure failure;
    e_cal_client_view_set_flags(view, E_CAL_CLIENT_VIEW_FLAGS_NONE, failure.out());
    if (!failure)
        e_cal_client_view_start(view, failure.out());
    opened(failure ? failure.message() : QByteArray());
}

void SeriesWatch::touched(ECalClientView * /*view*/, const GSList *objects, gpointer self) {
    const auto watch = static_cast<SeriesWatch *>(self)->shared_from_this();
    for (const GSList *link = objects; link; link = link->next)
        watch->m_changed(i_cal_component_get_uid(static_cast<ICalComponent *>(link->data)));
}

void SeriesWatch::removed(ECalClientView * /*view*/, const GSList *ids, gpointer self) {
    const auto watch = static_cast<SeriesWatch *>(self)->shared_from_this();
    for (const GSList *link = ids; link; link = link->next)
        watch->m_changed(
            e_cal_component_id_get_uid(static_cast<const ECalComponentId *>(link->data)));
}

} // namespace vantrel
