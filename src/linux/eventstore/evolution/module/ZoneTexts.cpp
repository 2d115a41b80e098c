#include "ZoneTexts.h"

#include <linux/eventstore/source/StoreLog.h>
#include <platform/LogText.h>

#include <libecal/libecal.h>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

/// Anything else, a timeout for instance, says nothing about the zone.
bool isUnknown(const Failure &failure) {
    return failure.is(E_CAL_CLIENT_ERROR, E_CAL_CLIENT_ERROR_OBJECT_NOT_FOUND) ||
           failure.is(E_CAL_CLIENT_ERROR, E_CAL_CLIENT_ERROR_INVALID_OBJECT) ||
           failure.is(E_CLIENT_ERROR, E_CLIENT_ERROR_NOT_SUPPORTED);
}

} // namespace

ZoneTexts::ZoneTexts(std::shared_ptr<RemoteCalendar> calendar, QString title)
    : m_calendar(std::move(calendar)), m_title(std::move(title)) {}

QByteArrayList ZoneTexts::unusual(const QByteArrayList &names) {
    QByteArrayList result;
    for (const QByteArray &name : names) {
        if (!m_system.systemZone(name))
            result += name;
    }
    return result;
}

void ZoneTexts::get(const QByteArrayList &names, Take take) {
    for (const QByteArray &name : names) {
        if (!m_texts.contains(name) && m_asked.insert(name).second)
            ask(name);
    }
    m_waiting.push_back({names, std::move(take)});
    serve();
}

void ZoneTexts::ask(const QByteArray &name) {
    m_calendar->timeZone(
        name, [weak = weak_from_this(), name](const QByteArray &text, const Failure &failure) {
            const auto self = weak.lock();
            if (!self)
                return;
            self->m_asked.erase(name);
            if (!failure || isUnknown(failure))
                self->m_texts[name] = isUnknown(failure) ? QByteArray() : text;
            else
                self->noteFailure(failure.message());
            self->serve();
        });
}

void ZoneTexts::noteFailure(const QByteArray &reason) {
    if (!std::exchange(m_isFailureLogged, true))
        qCWarning(eventStoreLog).noquote().nospace()
            << logText(m_title)
            << ": a time zone cannot be read: " << logText(QString::fromUtf8(reason))
            << "; it will be asked for again";
}

void ZoneTexts::serve() {
    const auto isAnswered = [this](const Waiting &one) {
        return std::none_of(one.names.begin(), one.names.end(),
                            [this](const QByteArray &name) { return m_asked.contains(name); });
    };
    const auto served = std::stable_partition(m_waiting.begin(), m_waiting.end(),
                                              [&](const auto &one) { return !isAnswered(one); });
    const std::vector<Waiting> ready(std::make_move_iterator(served),
                                     std::make_move_iterator(m_waiting.end()));
    m_waiting.erase(served, m_waiting.end());
    for (const Waiting &one : ready) {
        QByteArray texts; // Shares the text where it is a single one, as nearly always.
        bool isWhole = true;
        for (const QByteArray &name : one.names) {
            const auto known = m_texts.find(name);
            if (known == m_texts.end())
                isWhole = false;
            else
                texts = texts.isEmpty() ? known->second : texts + known->second;
        }
        one.take(texts, isWhole);
    }
}

} // namespace vantrel
