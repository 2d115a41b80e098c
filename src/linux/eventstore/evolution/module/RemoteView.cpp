#include "RemoteView.h"

#include <utility>

namespace vantrel {

namespace {

constexpr guint32 withoutWhatIsThere = 0;

QByteArrayList listIn(GVariant *arguments) {
    QByteArrayList list;
    if (!g_variant_is_of_type(arguments, G_VARIANT_TYPE("(as)")))
        return list;
    const OwnedVariant texts(g_variant_get_child_value(arguments, 0));
    const gsize count = g_variant_n_children(texts.get());
    list.reserve(static_cast<qsizetype>(count));
    for (gsize index = 0; index < count; ++index) {
        const char *text = nullptr;
        g_variant_get_child(texts.get(), index, "&s", &text);
        list.append(QByteArray(text));
    }
    return list;
}

/// They come as UID and recurrence id, with a line break between them.
std::vector<RemoteView::ComponentName> namesIn(GVariant *arguments) {
    std::vector<RemoteView::ComponentName> names;
    for (const QByteArray &text : listIn(arguments)) {
        const auto end = text.lastIndexOf('\n');
        names.push_back(end < 0 ? RemoteView::ComponentName{text, {}}
                                : RemoteView::ComponentName{text.left(end), text.mid(end + 1)});
    }
    return names;
}

} // namespace

RemoteView::RemoteView(std::shared_ptr<RemoteCalendar> calendar, Listener listener)
    : m_calendar(std::move(calendar)), m_listener(std::move(listener)) {}

RemoteView::~RemoteView() {
    if (m_view)
        m_view->tell("Dispose");
}

void RemoteView::open(const QByteArray &query, Telling telling) {
    m_calendar->makeView(
        query, [weak = weak_from_this(), telling](const QByteArray &path, const Failure &failure) {
            const auto self = weak.lock();
            if (!self)
                return;
            if (failure)
                self->m_listener.failed(failure.message());
            else
                self->follow(path, telling);
        });
}

void RemoteView::follow(const QByteArray &path, Telling telling) {
    m_view = m_calendar->view(path);
    m_view->listen("org.gnome.evolution.dataserver.CalendarView",
                   [weak = weak_from_this()](const char *signal, GVariant *arguments) {
                       if (const auto self = weak.lock())
                           self->hear(signal, arguments);
                   });
    if (telling == Telling::everything)
        return begin();
    // The factory takes calls on several threads: one after another keeps the order.
    m_view->call("SetFlags", g_variant_new("(u)", withoutWhatIsThere),
                 [weak = weak_from_this()](GVariant * /*answer*/, const Failure &failure) {
                     const auto self = weak.lock();
                     if (!self)
                         return;
                     if (failure)
                         self->m_listener.failed(failure.message());
                     else
                         self->begin();
                 });
}

void RemoteView::begin() {
    m_view->call("Start", nullptr,
                 [weak = weak_from_this()](GVariant * /*answer*/, const Failure &failure) {
                     const auto self = weak.lock();
                     if (!self)
                         return;
                     if (failure)
                         self->m_listener.failed(failure.message());
                     else if (self->m_listener.begun)
                         self->m_listener.begun();
                 });
}

void RemoteView::hear(const QByteArray &signal, GVariant *arguments) const {
    if (signal == "ObjectsAdded" || signal == "ObjectsModified") {
        m_listener.told(listIn(arguments));
    } else if (signal == "ObjectsRemoved") {
        m_listener.removed(namesIn(arguments));
    } else if (signal == "Complete" && m_listener.completed &&
               g_variant_is_of_type(arguments, G_VARIANT_TYPE("(ss)"))) {
        const char *error = nullptr;
        const char *message = nullptr;
        g_variant_get(arguments, "(&s&s)", &error, &message);
        if (QByteArray(error).isEmpty())
            m_listener.completed();
        else
            m_listener.failed(message);
    }
}

} // namespace vantrel
