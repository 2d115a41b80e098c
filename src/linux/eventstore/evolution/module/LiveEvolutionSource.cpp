#include "LiveEvolutionSource.h"

#include "EvolutionService.h"

#include <linux/eventstore/ical/EventIdentifier.h>

#include <utility>

namespace vantrel {

LiveEvolutionSource::LiveEvolutionSource(std::function<void()> announce)
    : m_service(std::make_shared<EvolutionService>(m_table, std::move(announce))) {}

LiveEvolutionSource::~LiveEvolutionSource() {
    m_thread.stop([this] { m_service.reset(); });
}

void LiveEvolutionSource::setWindow(Window window) {
    m_thread.post([this, window] { m_service->setWindow(window); });
}

void LiveEvolutionSource::start() {
    m_thread.post([this] { m_service->start(); });
    m_thread.start();
}

QString LiveEvolutionSource::description(const QString &calendarIdentifier,
                                         const QByteArray &item) const {
    constexpr qsizetype enough = 80;
    return m_table.title(calendarIdentifier) + QStringLiteral(", ") +
           escapedPiece(QString::fromUtf8(item).left(enough));
}

} // namespace vantrel
