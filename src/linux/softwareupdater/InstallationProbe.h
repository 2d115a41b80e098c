#pragma once

#include "Installation.h"

#include <platform/MainQueue.h>

#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// Asks the package systems of the machine, one after the other, which of them a file belongs to.
/// Main thread only, which it never waits on.
class InstallationProbe {
public:
    /// A program that is given the path of a file as its last argument, exits with 0 if the file
    /// belongs to a package, and prints the package's name.
    struct Query {
        PackageSystem system;
        QString program;
        QStringList arguments;
    };

    using Found = std::function<void(const Installation &installation)>;

    /// The ones of Debian, of the systems with RPM and of those with pacman.
    [[nodiscard]] static std::vector<Query> usualQueries();

    /// `queue` must outlive the probe. A program that is not there is passed over.
    explicit InstallationProbe(MainQueue &queue, std::vector<Query> queries = usualQueries());

    /// `found` is called later, once, unless the probe is destroyed or starts anew before.
    void start(const QString &file, Found found);

private:
    struct EndProcess {
        void operator()(QProcess *process) const;
    };

    void askNext();
    void takeAnswer(bool isOwner);
    void finish(const Installation &installation);

    MainQueue &m_queue;
    const std::vector<Query> m_queries;
    std::size_t m_next = 0; ///< The query to come.
    QString m_file;
    Found m_found;
    std::unique_ptr<QProcess, EndProcess> m_process;
    ScheduledWork m_step;
};

} // namespace vantrel
