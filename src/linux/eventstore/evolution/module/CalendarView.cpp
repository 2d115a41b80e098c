#include "CalendarView.h"

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

/// A single component stands by itself, several in a calendar.
template <typename Take>
void forEachEvent(ICalComponent *component, Take take) {
    if (component && i_cal_component_isa(component) == I_CAL_VEVENT_COMPONENT)
        return take(component);
    Reference<ICalComponent> event(
        component ? i_cal_component_get_first_component(component, I_CAL_VEVENT_COMPONENT)
                  : nullptr);
    for (; event;
         event.reset(i_cal_component_get_next_component(component, I_CAL_VEVENT_COMPONENT)))
        take(event.get());
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

CalendarView::CalendarView(std::shared_ptr<RemoteCalendar> calendar,
                           std::shared_ptr<ZoneTexts> zones, Listener listener)
    : m_calendar(std::move(calendar)), m_zones(std::move(zones)), m_listener(std::move(listener)) {}

/// Whatever is told may be the end of this.
void CalendarView::open(Window window) {
    RemoteView::Listener listener;
    listener.begun = [this] { m_listener.progressed(); };
    listener.told = [this](const QByteArrayList &components) {
        const auto keepAlive = shared_from_this();
        for (const QByteArray &text : components) {
            const Reference<ICalComponent> component(
                i_cal_component_new_from_string(text.constData()));
            if (component)
                take(component.get());
        }
        m_listener.progressed();
    };
    listener.removed = [this](const std::vector<RemoteView::ComponentName> &names) {
        const auto keepAlive = shared_from_this();
        for (const RemoteView::ComponentName &name : names)
            drop(name);
    };
    listener.completed = [this] {
        const auto keepAlive = shared_from_this();
        m_isComplete = true;
        checkFilled();
    };
    listener.failed = [this](const QByteArray &message) {
        const auto keepAlive = shared_from_this();
        m_listener.failed(message);
    };
    m_view = std::make_shared<RemoteView>(m_calendar, std::move(listener));
    m_view->open(queryFor(window), RemoteView::Telling::everything);
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

void CalendarView::drop(const RemoteView::ComponentName &name) {
    const QByteArray uid = name.uid; // Outlives the entry.
    const auto found = m_entries.find(uid);
    if (found == m_entries.end())
        return;
    Entry &entry = found->second;
    entry.present.erase(name.recurrenceId);
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
    m_listener.progressed(); // From here on it is waited for.
    m_calendar->objects(uid, [weak = weak_from_this(), uid, number](const QByteArray &text,
                                                                    const Failure &failure) {
        if (const auto self = weak.lock())
            self->finishFetch(uid, number, text, failure);
    });
}

void CalendarView::finishFetch(const QByteArray &uid, std::uint64_t number, const QByteArray &text,
                               const Failure &failure) {
    CalendarItem item;
    QByteArrayList zones;
    const Reference<ICalComponent> answer(
        failure ? nullptr : i_cal_component_new_from_string(text.constData()));
    forEachEvent(answer.get(), [&](ICalComponent *event) {
        addZoneNames(event, zones);
        item.events += textOf(event);
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
    else if (!m_isFilled)
        return m_listener.failed(failure.message());
    else
        putOff(uid, failure.message());
    pump();
    m_listener.progressed();
}

/// What it showed stays; the others are not to suffer for it.
void CalendarView::putOff(const QByteArray &uid, const QByteArray &reason) {
    m_listener.complained(reason);
    askAgainLater(uid);
    finishLoading(uid);
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
            self->askAgainLater(uid); // Until then its times are taken for local ones.
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
