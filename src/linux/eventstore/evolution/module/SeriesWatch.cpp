#include "SeriesWatch.h"

#include "GObjects.h"

#include <libecal/libecal.h>

#include <utility>

namespace vantrel {

SeriesWatch::SeriesWatch(std::shared_ptr<RemoteCalendar> calendar, const Listener &listener) {
    RemoteView::Listener own;
    own.begun = listener.begun;
    own.failed = listener.failed;
    own.told = [changed = listener.changed](const QByteArrayList &components) {
        for (const QByteArray &text : components) {
            const Reference<ICalComponent> component(
                i_cal_component_new_from_string(text.constData()));
            if (component)
                changed(QByteArray(i_cal_component_get_uid(component.get())));
        }
    };
    own.removed = [changed = listener.changed](const auto &names) {
        for (const RemoteView::ComponentName &name : names)
            changed(name.uid);
    };
    m_view = std::make_shared<RemoteView>(std::move(calendar), std::move(own));
    m_view->open("(has-recurrences?)", RemoteView::Telling::laterChanges);
}

} // namespace vantrel
