#include "Panel.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace vantrel::tests {

Panel::Panel(const QStringList &arguments) {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_process, [this] {
        while (m_process.canReadLine()) {
            const auto record = QJsonDocument::fromJson(m_process.readLine()).object();
            if (record.value(u"event").toString() == u"signal")
                m_signals.append(record.value(u"name").toString());
            m_records.push_back(record);
        }
    });
    m_process.start(QStringLiteral(PYTHON), QStringList{QStringLiteral(PANEL)} + arguments);
    await(QStringLiteral("ready"));
}

Panel::~Panel() {
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

QJsonObject Panel::ask(const QString &command, QJsonObject arguments) {
    send(command, std::move(arguments));
    const auto found =
        m_records.begin() + static_cast<std::ptrdiff_t>(find([&](const QJsonObject &record) {
            return record.value(u"answer") == command;
        }));
    const QJsonObject answer = *found;
    m_records.erase(found);
    return answer;
}

QJsonObject Panel::await(const QString &event,
                         const std::function<bool(const QJsonObject &)> &wanted) {
    const auto found =
        m_records.begin() + static_cast<std::ptrdiff_t>(find([&](const QJsonObject &record) {
            return record.value(u"event") == event && (!wanted || wanted(record));
        }));
    const QJsonObject record = *found;
    m_records.erase(m_records.begin(), found + 1);
    return record;
}

QJsonObject Panel::awaitItem(const QString &key, const QJsonValue &value) {
    return await(QStringLiteral("item"),
                 [&](const QJsonObject &item) { return item.value(key) == value; });
}

void Panel::start() {
    send(QStringLiteral("start"), {});
    await(QStringLiteral("started"));
}

void Panel::stop() {
    send(QStringLiteral("stop"), {});
    await(QStringLiteral("stopped"));
}

QStringList Panel::takeSignals() {
    // Calls and signals keep their order, so what was sent before has been told by the answer.
    ask(QStringLiteral("properties"));
    return std::exchange(m_signals, {});
}

std::size_t Panel::find(const std::function<bool(const QJsonObject &)> &wanted) {
    auto found = m_records.end();
    const bool isThere = waitUntil([&] {
        found = std::find_if(m_records.begin(), m_records.end(), wanted);
        return found != m_records.end() || m_process.state() == QProcess::NotRunning;
    });
    if (!isThere || found == m_records.end())
        throw std::runtime_error("the panel saw nothing of the kind");
    return static_cast<std::size_t>(found - m_records.begin());
}

void Panel::send(const QString &command, QJsonObject arguments) {
    arguments.insert(QStringLiteral("do"), command);
    m_process.write(QJsonDocument(arguments).toJson(QJsonDocument::Compact) + '\n');
}

} // namespace vantrel::tests
