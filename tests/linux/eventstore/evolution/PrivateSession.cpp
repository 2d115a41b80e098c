#include "PrivateSession.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vantrel::tests {

namespace {

constexpr int patience = 30'000; // milliseconds

void writeFile(const QString &path, const QByteArray &bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(bytes), bytes.size());
}

} // namespace

PrivateSession::PrivateSession() {
    const std::pair<const char *, const char *> places[] = {{"HOME", "."},
                                                            {"XDG_DATA_HOME", "data"},
                                                            {"XDG_CONFIG_HOME", "config"},
                                                            {"XDG_CACHE_HOME", "cache"},
                                                            {"XDG_RUNTIME_DIR", "runtime"}};
    for (const auto &[variable, folder] : places) {
        QDir().mkpath(path(QLatin1String(folder)));
        qputenv(variable, QFile::encodeName(path(QLatin1String(folder))));
    }
    QFile::setPermissions(path(QStringLiteral("runtime")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // Settings are asked for, and nobody is to write them.
    qputenv("GSETTINGS_BACKEND", "memory");
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    startBus();
}

PrivateSession::~PrivateSession() {
    endBus();
}

void PrivateSession::startBus() {
    const QString address = QStringLiteral("unix:path=") + path(QStringLiteral("runtime/bus"));
    QFile::remove(path(QStringLiteral("runtime/bus")));
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.toLocal8Bit());
    m_bus = std::make_unique<QProcess>();
    m_bus->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_bus->start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"),
                  QStringLiteral("--print-address"), QStringLiteral("--address=") + address});
    // It prints the address once it listens.
    ASSERT_TRUE(m_bus->waitForReadyRead(patience)) << qPrintable(m_bus->errorString());
}

void PrivateSession::endBus() {
    if (!m_bus)
        return;
    m_bus->terminate();
    m_bus->waitForFinished(patience);
    m_bus.reset();
}

void PrivateSession::writeSource(const QString &uid, const QByteArray &keys) const {
    writeFile(path(QStringLiteral("config/evolution/sources/%1.source").arg(uid)), keys);
}

void PrivateSession::write(const QStringList &arguments) const {
    QProcess writer;
    writer.setProcessChannelMode(QProcess::MergedChannels);
    writer.start(QStringLiteral(CALENDAR_WRITER), arguments);
    ASSERT_TRUE(writer.waitForFinished(patience)) << qPrintable(arguments.join(u' '));
    ASSERT_EQ(writer.exitCode(), 0) << qPrintable(arguments.join(u' ')) << '\n'
                                    << writer.readAll().constData();
}

QString PrivateSession::file(const QByteArray &text) const {
    const QString name = path(QStringLiteral("text-%1.ics").arg(++m_files));
    writeFile(name, text);
    return name;
}

qint64 PrivateSession::processOf(const QString &program) const {
    const QByteArray home = "HOME=" + QFile::encodeName(path(QStringLiteral(".")));
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        bool isNumber = false;
        const qint64 process = name.toLongLong(&isNumber);
        QFile command(QStringLiteral("/proc/%1/cmdline").arg(name));
        QFile environment(QStringLiteral("/proc/%1/environ").arg(name));
        if (isNumber && command.open(QIODevice::ReadOnly) &&
            command.readAll().split('\0').first().endsWith('/' + program.toLatin1()) &&
            environment.open(QIODevice::ReadOnly) &&
            environment.readAll().split('\0').contains(home))
            return process;
    }
    return 0;
}

} // namespace vantrel::tests
