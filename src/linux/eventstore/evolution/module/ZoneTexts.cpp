#include "ZoneTexts.h"

#include "Async.h"

#include <algorithm>
#include <utility>

namespace vantrel {

ZoneTexts::ZoneTexts(ECalClient *client, GCancellable *cancellable)
    : m_client(anotherReference(client)), m_cancellable(anotherReference(cancellable)) {}

QByteArrayList ZoneTexts::unusual(const QByteArrayList &names) {
    QByteArrayList result;
    for (const QByteArray &name : names) {
        if (!m_system.systemZone(name))
            result += name;
    }
    return result;
}

void ZoneTexts::get(const QByteArrayList &names, std::function<void(const QByteArray &)> take) {
    for (const QByteArray &name : names) {
        if (!m_texts.contains(name) && m_asked.emplace(name, true).second)
            ask(name);
    }
    m_waiting.push_back({names, std::move(take)});
    serve();
}

void ZoneTexts::ask(const QByteArray &name) {
    e_cal_client_get_timezone(
        m_client.get(), name.constData(), m_cancellable.get(), Async::ready,
        Async::data([weak = weak_from_this(), name](GObject *object, GAsyncResult *result) {
            Failure failure;
            ICalTimezone *zone = nullptr; // Belongs to the client.
            e_cal_client_get_timezone_finish(reinterpret_cast<ECalClient *>(object), result, &zone,
                                             failure.out());
            const auto self = weak.lock();
            if (!self)
                return;
            QByteArray &text = self->m_texts[name];
            if (zone) {
                const Reference<ICalComponent> component(i_cal_timezone_get_component(zone));
                if (component)
                    text = takeText(i_cal_component_as_ical_string(component.get()));
            }
            self->serve();
        }));
}

void ZoneTexts::serve() {
    const auto isKnown = [this](const Waiting &one) {
        return std::all_of(one.names.begin(), one.names.end(),
                           [this](const QByteArray &name) { return m_texts.contains(name); });
    };
    const auto served = std::stable_partition(m_waiting.begin(), m_waiting.end(),
                                              [&](const auto &one) { return !isKnown(one); });
    const std::vector<Waiting> ready(std::make_move_iterator(served),
                                     std::make_move_iterator(m_waiting.end()));
    m_waiting.erase(served, m_waiting.end());
    for (const Waiting &one : ready) {
        QByteArray texts; // Shares the text where it is a single one, as nearly always.
        for (const QByteArray &name : one.names)
            texts = texts.isEmpty() ? m_texts[name] : texts + m_texts[name];
        one.take(texts);
    }
}

} // namespace vantrel
