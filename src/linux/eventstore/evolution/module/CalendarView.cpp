#include "CalendarView.h"

#include "Async.h"
#include "ZoneTexts.h"

#include <QDateTime>

#include <utility>

namespace vantrel {

namespace {

constexpr int maximumFetches = 8;

/// The service counts whole days and floating times by a zone of its own.
constexpr UtcSeconds margin = 86'400;

QByteArray timeText(UtcSeconds time) {
    return QDateTime::fromSecsSinceEpoch(time, Qt::UTC)
        .toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"))
        .toLatin1();
}

QByteArray queryFor(Window window) {
    return "(occur-in-time-range? (make-time \"" + timeText(window.from - margin) +
           "\") (make-time \"" + timeText(window.to + margin) + "\"))";
}

bool hasProperty(ICalComponent *component, ICalPropertyKind kind) {
    return Reference<ICalProperty>(i_cal_component_get_first_property(component, kind)) != nullptr;
}

bool recurs(ICalComponent *component) {
    return hasProperty(component, I_CAL_RRULE_PROPERTY) ||
           hasProperty(component, I_CAL_RDATE_PROPERTY);
}

QByteArray recurrenceIdOf(ICalComponent *component) {
    const Reference<ICalProperty> property(
        i_cal_component_get_first_property(component, I_CAL_RECURRENCEID_PROPERTY));
    return property ? takeText(i_cal_property_get_value_as_string(property.get())) : QByteArray();
}

void removeAll(ICalComponent *component, ICalPropertyKind kind) {
    for (;;) {
        const Reference<ICalProperty> property(i_cal_component_get_first_property(component, kind));
        if (!property)
            return;
        i_cal_component_remove_property(component, property.get());
    }
}

/// Without attachments, which nobody reads and which may be large.
QByteArray textOf(ICalComponent *component) {
    removeAll(component, I_CAL_ATTACH_PROPERTY);
    return takeText(i_cal_component_as_ical_string(component));
}

void addZoneNames(ICalComponent *component, QByteArrayList &names) {
    i_cal_component_foreach_tzid(
        component,
        [](ICalParameter *parameter, gpointer data) {
            auto *list = static_cast<QByteArrayList *>(data);
            const QByteArray name(i_cal_parameter_get_tzid(parameter));
            if (!name.isEmpty() && !list->contains(name))
                list->append(name);
        },
        &names);
}

} // namespace

CalendarView::CalendarView(ECalClient *client, std::shared_ptr<ZoneTexts> zones, Listener listener)
    : m_client(anotherReference(client)),
      m_zones(std::move(zones)),
      m_listener(std::move(listener)),
      m_cancellable(g_cancellable_new()) {}

CalendarView::~CalendarView() {
    g_cancellable_cancel(m_cancellable.get());
    if (m_view)
        g_signal_handlers_disconnect_by_data(m_view.get(), this);
}

void CalendarView::open(Window window) {
    e_cal_client_get_view(
        m_client.get(), queryFor(window).constData(), m_cancellable.get(), Async::ready,
        Async::data([weak = weak_from_this()](GObject *object, GAsyncResult *result) {
            Failure failure;
            ECalClientView *view = nullptr;
            e_cal_client_get_view_finish(reinterpret_cast<ECalClient *>(object), result, &view,
                                         failure.out());
            const Reference<ECalClientView> owned(view);
            const auto self = weak.lock();
            if (!self)
                return;
            if (view)
                self->follow(view);
            else
                self->m_listener.failed(failure.message());
        }));
}

void CalendarView::follow(ECalClientView *view) {
    m_view = anotherReference(view);
    g_signal_connect(view, "objects-added", G_CALLBACK(added), this);
    g_signal_connect(view, "objects-modified", G_CALLBACK(added), this);
    g_signal_connect(view, "objects-removed", G_CALLBACK(removed), this);
    g_signal_connect(view, "complete", G_CALLBACK(completed), this);
    // Its signals come to the thread that starts it, so that no other may, although the call waits
    // for the service to say that it begins.
    Failure failure;
    e_cal_client_view_start(view, failure.out());
    if (failure)
        m_listener.failed(failure.message());
}

void CalendarView::added(ECalClientView * /*view*/, const GSList *objects, gpointer self) {
    const auto view = static_cast<CalendarView *>(self)->shared_from_this();
    for (const GSList *link = objects; link; link = link->next)
        view->take(static_cast<ICalComponent *>(link->data));
    view->m_listener.progressed();
}

void CalendarView::removed(ECalClientView * /*view*/, const GSList *ids, gpointer self) {
    const auto view = static_cast<CalendarView *>(self)->shared_from_this();
    for (const GSList *link = ids; link; link = link->next)
        view->drop(static_cast<const ECalComponentId *>(link->data));
}

void CalendarView::completed(ECalClientView * /*view*/, const GError *error, gpointer self) {
    const auto view = static_cast<CalendarView *>(self)->shared_from_this();
    if (error)
        return view->m_listener.failed(error->message);
    view->m_isComplete = true;
    view->checkFilled();
}

void CalendarView::take(ICalComponent *component) {
    const QByteArray uid(i_cal_component_get_uid(component));
    if (uid.isEmpty())
        return;
    const QByteArray recurrenceId = recurrenceIdOf(component);
    Entry &entry = m_entries[uid];
    if (entry.number == 0)
        entry.number = ++m_lastNumber;
    entry.present.insert(recurrenceId);
    entry.isSeries = entry.isSeries || !recurrenceId.isEmpty() || recurs(component);
    if (entry.isSeries)
        return load(uid);
    QByteArrayList zones;
    addZoneNames(component, zones);
    if (!entry.isLoading) {
        entry.isLoading = true;
        ++m_loading;
    }
    keep(uid, {textOf(component), {}, 0}, zones);
}

void CalendarView::drop(const ECalComponentId *id) {
    const QByteArray uid(e_cal_component_id_get_uid(id));
    const auto found = m_entries.find(uid);
    if (found == m_entries.end())
        return;
    Entry &entry = found->second;
    entry.present.erase(QByteArray(e_cal_component_id_get_rid(id)));
    if (entry.isSeries && !entry.present.empty())
        load(uid);
    else
        forget(uid);
}

void CalendarView::refresh(const QByteArray &uid) {
    const auto found = m_entries.find(uid);
    if (found == m_entries.end())
        return;
    found->second.isSeries = true;
    load(uid);
}

void CalendarView::load(const QByteArray &uid) {
    Entry &entry = m_entries[uid];
    entry.isOutdated = entry.isLoading;
    if (entry.isLoading)
        return;
    entry.isLoading = true;
    ++m_loading;
    m_toFetch.emplace_back(uid, entry.number);
    pump();
}

void CalendarView::pump() {
    while (m_fetches < maximumFetches && !m_toFetch.empty()) {
        const auto [uid, number] = m_toFetch.front();
        m_toFetch.pop_front();
        if (find(uid, number))
            fetch(uid, number);
    }
}

CalendarView::Entry *CalendarView::find(const QByteArray &uid, std::uint64_t number) {
    const auto found = m_entries.find(uid);
    return found != m_entries.end() && found->second.number == number ? &found->second : nullptr;
}

void CalendarView::fetch(const QByteArray &uid, std::uint64_t number) {
    ++m_fetches;
    e_cal_client_get_objects_for_uid(m_client.get(), uid.constData(), m_cancellable.get(),
                                     Async::ready,
                                     Async::data([weak = weak_from_this(), uid, number](
                                                     GObject * /*object*/, GAsyncResult *result) {
                                         if (const auto self = weak.lock())
                                             self->finishFetch(uid, number, result);
                                     }));
}

void CalendarView::finishFetch(const QByteArray &uid, std::uint64_t number, GAsyncResult *result) {
    Failure failure;
    GSList *components = nullptr;
    e_cal_client_get_objects_for_uid_finish(m_client.get(), result, &components, failure.out());
    CalendarItem item;
    QByteArrayList zones;
    forEachTaken<ECalComponent>(components, [&](ECalComponent *component) {
        ICalComponent *const inner = e_cal_component_get_icalcomponent(component);
        addZoneNames(inner, zones);
        item.events += textOf(inner);
    });
    --m_fetches;
    const auto keepAlive = shared_from_this();
    const bool isGone =
        !failure || failure.is(E_CAL_CLIENT_ERROR, E_CAL_CLIENT_ERROR_OBJECT_NOT_FOUND);
    const Entry *const entry = find(uid, number);
    // What was asked for an entry that has gone says nothing about the one in its place.
    if (!entry)
        checkFilled();
    else if (!item.events.isEmpty())
        keep(uid, std::move(item), zones);
    else if (isGone && entry->isOutdated)
        loadAgain(uid);
    else if (isGone)
        forget(uid);
    else
        return m_listener.failed(failure.message());
    pump();
}

void CalendarView::keep(const QByteArray &uid, CalendarItem item, const QByteArrayList &zones) {
    Entry &entry = m_entries[uid];
    entry.item = std::move(item);
    const QByteArrayList unusual = m_zones->unusual(zones);
    if (unusual.isEmpty())
        return finishLoading(uid);
    m_zones->get(unusual, [weak = weak_from_this(), uid,
                           number = entry.number](const QByteArray &texts, bool isWhole) {
        const auto self = weak.lock();
        Entry *const asking = self ? self->find(uid, number) : nullptr;
        if (!asking)
            return;
        asking->item.zones = texts;
        if (!isWhole)
            self->askAgainLater(uid);
        self->finishLoading(uid);
    });
}

void CalendarView::finishLoading(const QByteArray &uid) {
    Entry &entry = m_entries[uid];
    if (std::exchange(entry.isLoading, false))
        --m_loading;
    if (m_isFilled)
        m_listener.changed(uid, entry.item);
    if (std::exchange(entry.isOutdated, false))
        load(uid);
    checkFilled();
}

/// Until then its times are taken for local ones.
void CalendarView::askAgainLater(const QByteArray &uid) {
    m_unsure.insert(uid);
    if (m_retry.isRunning())
        return;
    m_retry.startFor(m_pause.next(), [this] {
        const auto keepAlive = shared_from_this();
        for (const QByteArray &one : std::exchange(m_unsure, {}))
            refresh(one);
    });
}

/// What came was overtaken before it was there.
void CalendarView::loadAgain(const QByteArray &uid) {
    Entry &entry = m_entries[uid];
    entry.isLoading = false;
    --m_loading;
    load(uid);
}

void CalendarView::forget(const QByteArray &uid) {
    const auto found = m_entries.find(uid);
    if (found->second.isLoading)
        --m_loading;
    m_entries.erase(found);
    if (m_isFilled)
        m_listener.changed(uid, std::nullopt);
    checkFilled();
}

void CalendarView::checkFilled() {
    if (m_isFilled || !m_isComplete || m_loading > 0)
        return;
    m_isFilled = true;
    m_listener.filled();
}

CalendarItems CalendarView::items() const {
    CalendarItems items;
    for (const auto &[uid, entry] : m_entries)
        items.emplace_hint(items.end(), uid, entry.item);
    return items;
}

} // namespace vantrel
