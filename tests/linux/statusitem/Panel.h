#pragma once

#include <session/Waiting.h>

#include <QJsonObject>
#include <QJsonValue>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <functional>
#include <vector>

namespace vantrel::tests {

/// The panel of tests/panel as a process of its own, and what it has told.
class Panel {
public:
    /// Returns once the panel is there.
    explicit Panel(const QStringList &arguments = {});
    ~Panel();
    Panel(const Panel &) = delete;
    Panel &operator=(const Panel &) = delete;

    /// Takes and gives up the watcher's name.
    void start();
    void stop();

    /// Has the panel do something, and returns what it answers; an answer that never comes is a
    /// failure of the test.
    QJsonObject ask(const QString &command, QJsonObject arguments = {});

    /// Waits for an event of a kind, and takes it and all before it off the list.
    QJsonObject await(const QString &event,
                      const std::function<bool(const QJsonObject &)> &wanted = {});

    /// Waits until the panel shows an item with this value.
    QJsonObject awaitItem(const QString &key, const QJsonValue &value);

    /// The names of the item's signals since the last call; everything that the item sent before
    /// this call is in it.
    QStringList takeSignals();

private:
    /// Waits for it; its place among the records.
    std::size_t find(const std::function<bool(const QJsonObject &)> &wanted);
    void send(const QString &command, QJsonObject arguments);

    QProcess m_process;
    std::vector<QJsonObject> m_records;
    QStringList m_signals;
};

} // namespace vantrel::tests
