#include "InstallationProbe.h"

#include <platform/Log.h>

#include <QFile>
#include <QProcessEnvironment>

#include <utility>

namespace vantrel {

VANTREL_LOG(updaterLog, "SoftwareUpdater")

namespace {

/// The databases are on a disk that may have to wake up.
constexpr Seconds patience{5.0};

/// Made by Flatpak within each of its sandboxes.
constexpr char flatpakMark[] = "/.flatpak-info";

/// The name at the head of the answer: "vantrel:amd64: /usr/bin/vantrel" with dpkg, the bare name
/// with the others.
QString packageName(const QByteArray &answer) {
    const QByteArray line = answer.split('\n').constFirst();
    return QString::fromUtf8(line.split(':').constFirst()).trimmed();
}

} // namespace

void InstallationProbe::EndProcess::operator()(QProcess *process) const {
    // Its signals must not reach a probe that has gone on.
    process->disconnect();
    if (process->state() != QProcess::NotRunning) {
        QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
        QObject::connect(process, &QProcess::errorOccurred, process, &QObject::deleteLater);
        process->kill();
    } else {
        process->deleteLater();
    }
}

std::vector<InstallationProbe::Query> InstallationProbe::usualQueries() {
    return {
        {PackageSystem::debian, QStringLiteral("dpkg-query"), {QStringLiteral("--search")}},
        {PackageSystem::rpm,
         QStringLiteral("rpm"),
         {QStringLiteral("--query"), QStringLiteral("--queryformat"), QStringLiteral("%{NAME}\\n"),
          QStringLiteral("--file")}},
        {PackageSystem::pacman,
         QStringLiteral("pacman"),
         {QStringLiteral("--query"), QStringLiteral("--quiet"), QStringLiteral("--owns")}},
    };
}

InstallationProbe::InstallationProbe(MainQueue &queue, std::vector<Query> queries)
    : m_queue(queue), m_queries(std::move(queries)) {}

void InstallationProbe::start(const QString &file, Found found) {
    m_process.reset();
    m_file = file;
    m_found = std::move(found);
    m_next = 0;
    if (QFile::exists(QString::fromLatin1(flatpakMark)))
        m_step = m_queue.after({}, [this] { finish({PackageSystem::flatpak, {}}); });
    else
        m_step = m_queue.after({}, [this] { askNext(); });
}

void InstallationProbe::askNext() {
    m_process.reset();
    if (m_next == m_queries.size()) {
        finish({});
        return;
    }
    const Query &query = m_queries[m_next++];
    m_process.reset(new QProcess);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    m_process->setProcessEnvironment(environment);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(m_process.get(), &QProcess::finished, m_process.get(),
                     [this](int code, QProcess::ExitStatus status) {
                         takeAnswer(code == 0 && status == QProcess::NormalExit);
                     });
    QObject::connect(m_process.get(), &QProcess::errorOccurred, m_process.get(),
                     [this](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart)
                             takeAnswer(false);
                     });
    m_step = m_queue.after(patience, [this, program = query.program] {
        qCWarning(updaterLog).noquote() << program << "does not say whose file the program is";
        askNext();
    });
    m_process->start(query.program, query.arguments + QStringList(m_file));
}

void InstallationProbe::takeAnswer(bool isOwner) {
    const QString package = isOwner ? packageName(m_process->readAllStandardOutput()) : QString();
    // Not within the process's own signal, whose sender goes with the next step.
    m_step = m_queue.after({}, [this, package] {
        if (package.isEmpty())
            askNext();
        else
            finish({m_queries[m_next - 1].system, package});
    });
}

void InstallationProbe::finish(const Installation &installation) {
    m_process.reset();
    if (const Found found = std::exchange(m_found, nullptr))
        found(installation);
}

} // namespace vantrel
