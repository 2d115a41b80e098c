#include "SleepyMachine.h"

#include <linux/eventstore/StoreAccess.h>
#include <takeover/TakeoverViewModel.h>

#include <QDateTime>

#include <algorithm>
#include <cstdio>

namespace vantrel::tests {

namespace {

constexpr char busVariable[] = "DBUS_SYSTEM_BUS_ADDRESS";

std::string lineOf(Instant instant, const QString &title) {
    const auto milliseconds = static_cast<qint64>(instant.time_since_epoch().count() * 1000.0);
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(milliseconds, QTimeZone("Europe/Zurich"));
    return (time.toString(QStringLiteral("HH:mm:ss ")) + title).toStdString();
}

} // namespace

std::vector<StoreEvent>
PlannedStore::events(Instant from, Instant to,
                     const std::vector<QString> &calendarIdentifiers) const {
    constexpr Seconds planned{86'400.0 + 300.0};
    plans += to - from == planned ? 1 : 0;
    return LocalEventStore::events(from, to, calendarIdentifiers);
}

SleepyMachine::SleepyMachine() {
    qputenv(busVariable, m_loginManager.address().toUtf8());
    m_screens.connected = {{QStringLiteral("L"), QRect(0, 0, 1920, 1080)}};
    m_panels.whenMade = [this](const fakes::RecordingPanels::Record &panel) {
        auto *shown = panel.content.properties.value(QStringLiteral("viewModel"))
                          .value<TakeoverViewModel *>();
        takeovers.push_back(lineOf(queue.now(), shown ? shown->title() : QStringLiteral("?")));
    };
    m_files.write(QStringLiteral("work/displayname"), "Work");
    QDir().mkpath(m_files.path(QStringLiteral("etc")));
    writeZone();
}

SleepyMachine::~SleepyMachine() {
    m_coordinator.reset();
    store.reset();
    qunsetenv(busVariable);
}

void SleepyMachine::add(const QByteArray &name, const QByteArray &properties) const {
    m_files.write(QStringLiteral("work/%1.ics").arg(QString::fromLatin1(name)),
                  calendarText(event(name, "SUMMARY:" + name + "\n" + properties)));
}

void SleepyMachine::addMeeting(const QByteArray &name, const QByteArray &start) const {
    add(name, "DTSTART;TZID=Europe/Zurich:" + start + "\nDURATION:PT30M\n");
}

void SleepyMachine::start() {
    StoreConfiguration configuration;
    configuration.roots = {{m_files.path(QStringLiteral("work")), {}, false}};
    configuration.zoneFolder = QFile::encodeName(m_files.path(QStringLiteral("etc")));
    const auto calendar = [this] { return fakes::calendarIn(m_zone); };
    store = std::make_unique<PlannedStore>(queue, configuration, calendar, StoreAccess::granted());
    m_subscription = store->changed.subscribe([this] { ++notices; });
    m_access = std::make_unique<CalendarAccess>(*store);
    m_coordinator = std::make_unique<AppCoordinator>(
        m_preferences, *m_access,
        AppServices{queue, m_defaults, m_workspace, m_screens, m_panels, m_statusBar, m_popups,
                    m_windows, m_updater, m_loginItem, m_notifications, calendar, [] {}},
        m_files.path(QStringLiteral("rescues.json")));
    store->start();
    m_coordinator->start();
    settle([this] { return store->isLoaded(); }, "the calendars are read");
    awaitListening();
    run(Seconds{2.0}); // Until what these notices led to is over.
}

/// Nobody outside knows from when on the store listens, so that it is told until it does.
void SleepyMachine::awaitListening() {
    const int before = notices;
    settle(
        [this, before] {
            m_loginManager.announceWaking();
            return notices > before;
        },
        "the login manager is heard");
    m_loginManager.awaitReceipt();
    handleEvents();
}

void SleepyMachine::sleepUntil(const char *dateTime) {
    m_loginManager.announceSleep();
    queue.suspend(local(dateTime) - queue.now());
    const int before = notices;
    m_loginManager.announceWaking();
    settle([this, before] { return notices > before; }, "the login manager has said so");
    queue.advance(betweenNotices);
    m_kernel.announceJump();
    settle([this, before] { return notices >= before + 2; }, "the kernel has said so too");
}

void SleepyMachine::setClock(const char *dateTime) {
    queue.jumpWallTo(local(dateTime));
    const int before = notices;
    m_kernel.announceJump();
    settle([this, before] { return notices > before; }, "the kernel has said so");
}

void SleepyMachine::setZone(const char *name) {
    m_zone = name;
    const int before = notices;
    writeZone();
    settle([this, before] { return notices > before; }, "the zone is seen");
}

/// As the system's own service does: a link beside, put in place at once.
void SleepyMachine::writeZone() const {
    const QString beside = m_files.path(QStringLiteral("etc/localtime.part"));
    ASSERT_TRUE(
        QFile::link(QStringLiteral("/usr/share/zoneinfo/") + QLatin1String(m_zone), beside));
    const QString place = m_files.path(QStringLiteral("etc/localtime"));
    ASSERT_EQ(std::rename(QFile::encodeName(beside), QFile::encodeName(place)), 0);
}

void SleepyMachine::run(Seconds length) {
    constexpr Seconds step{0.5};
    const Instant end = queue.now() + length;
    while (queue.now() < end) {
        queue.advance(std::min(step, end - queue.now()));
        handleEvents();
    }
}

void SleepyMachine::handleEvents() {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

void SleepyMachine::dismiss() {
    m_panels.press({Key::escape, QString()});
    run(Seconds{0.5});
}

} // namespace vantrel::tests
