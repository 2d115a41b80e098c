#include "Agenda.h"
#include "AgentStatus.h"
#include "AppCoordinator.h"
#include "CalendarList.h"
#include "CommandLine.h"
#include "Output.h"
#include "Wording.h"

#include <linux/activation/BusActivation.h>
#include <linux/clock/DesktopClock.h>
#include <linux/consent/ConsentDialog.h>
#include <linux/eventstore/LocalEventStore.h>
#include <linux/eventstore/StoreAccess.h>
#include <linux/eventstore/folders/FolderDescription.h>
#include <linux/layershell/LayerShell.h>
#include <linux/loginitem/AutostartLoginItem.h>
#include <linux/mainqueue/QtMainQueue.h>
#include <linux/notifications/NotificationService.h>
#include <linux/popup/QtPopups.h>
#include <linux/sessionbus/SessionBusProbe.h>
#include <linux/shield/QtScreenLayout.h>
#include <linux/shield/QtShieldingPanels.h>
#include <linux/softwareupdater/SoftwareCenter.h>
#include <linux/statusitem/DesktopStatusBar.h>
#include <linux/termination/TerminationSignals.h>
#include <linux/userdefaults/JsonUserDefaults.h>
#include <linux/views/ViewEngine.h>
#include <linux/windows/QtWindows.h>
#include <linux/workspace/GioWorkspace.h>
#include <platform/Log.h>
#include <theme/SymbolPicture.h>
#include <theme/ThemeModule.h>
#include <theme/ThemePalette.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <memory>
#include <optional>
#include <set>

namespace vantrel {

namespace {

constexpr Seconds patienceWithBus{2.0};

enum ExitCode { done = 0, failed = 1, wrongUsage = 2 };

/// The environment's zone. TZ may name the zone's file in place of the zone (POSIX leaves the form
/// open, glibc reads both), which Qt does not read; a zone that does not exist counts as UTC, as in
/// the rest of the system.
QTimeZone currentTimeZone() {
    QTimeZone zone = QTimeZone::systemTimeZone();
    if (zone.isValid())
        return zone;
    const QByteArray name = qgetenv("TZ");
    const QByteArray folder = "/zoneinfo/";
    const auto place = name.indexOf(folder);
    const QTimeZone named(place < 0 ? QByteArray() : name.mid(place + folder.size()));
    return named.isValid() ? named : QTimeZone::utc();
}

LocalCalendar currentCalendar() {
    return {currentTimeZone(), QLocale()};
}

/// Answers whether all of it got out.
bool print(std::FILE *stream, const QByteArray &text) {
    const auto size = static_cast<std::size_t>(text.size());
    return std::fwrite(text.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

int fail(ExitCode code, const QString &message) {
    print(stderr, QStringLiteral("vantrel: %1\n").arg(message).toUtf8());
    return code;
}

int show(const QByteArray &text) {
    return print(stdout, text) ? done : fail(failed, QStringLiteral("cannot write the output"));
}

QString settingsFile(const std::optional<QString> &profile) {
    return profile ? *profile + QStringLiteral("/settings.json") : JsonUserDefaults::defaultPath();
}

QString rescueLogFile(const std::optional<QString> &profile) {
    return profile ? *profile + QStringLiteral("/rescues.json") : RescueLogStore::defaultFileURL();
}

/// The running program, with the same profile.
QStringList commandOfLogin(const std::optional<QString> &profile) {
    QStringList command{QCoreApplication::applicationFilePath()};
    if (profile)
        command << QStringLiteral("--profile") << QFileInfo(*profile).absoluteFilePath();
    return command;
}

/// Made ahead, so that what is stored there for the first time finds its folder.
bool makeFolder(const std::optional<QString> &profile) {
    return !profile || QDir().mkpath(*profile);
}

QVariant chosenPalette(const PreferencesStore &preferences) {
    useThemeModule();
    return QVariant::fromValue(ThemePalette(palette(preferences.selectedTheme())));
}

/// Unlike `quit`, which asks each window, and a takeover that is up would refuse.
void endProgram() {
    QCoreApplication::exit(done);
}

SymbolArt symbolArt() {
    return {[](const QString &symbol, QSize pixels, const QColor &color) {
                return symbolPicture(symbol, pixels, color);
            },
            &symbolDrawing};
}

/// The exit code of a start that has nothing to run: another one does, or is not there to be ended.
std::optional<ExitCode> endOfStart(BusActivation &activation, const RunAgent &command) {
    using Claim = BusActivation::Claim;
    switch (activation.claim(command.request.value_or(ActivationRequest::showPopover))) {
    case Claim::isFirst:
        return command.request == ActivationRequest::quit ? std::optional(done) : std::nullopt;
    case Claim::wasHandedOn:
        return done;
    case Claim::wasRefused:
        fail(failed, QStringLiteral("it runs already, but does not answer"));
        // A meeting shown twice is a nuisance, one that is not shown is missed.
        return command.request == ActivationRequest::quit ? std::optional(failed) : std::nullopt;
    }
    Q_UNREACHABLE();
}

/// What the linux rooms and the environment add to the program's own word.
AgentStatus statusOf(const AppCoordinator &coordinator, const LocalEventStore &store,
                     const QtShieldingPanels &panels) {
    AgentStatus status = coordinator.status();
    status.version = QCoreApplication::applicationVersion();
    status.desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    status.session = QGuiApplication::platformName();
    status.shield = panels.way();
    status.isLoaded = store.isLoaded();
    status.notes = store.troubles();
    return status;
}

int runAgent(int &argc, char **argv, const RunAgent &command) {
    std::optional<HiddenSessionBus> withoutBus;
    if (!isSessionBusAnswering(patienceWithBus)) {
        fail(failed,
             QStringLiteral("the session bus does not answer; going on without it for now"));
        withoutBus.emplace();
    }
    const QGuiApplication application(argc, argv);
    withoutBus.reset();
    QGuiApplication::setDesktopFileName(QString::fromLatin1(applicationId));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    installWording();
    if (!makeFolder(command.profile))
        return fail(failed, QStringLiteral("cannot make the folder %1").arg(*command.profile));

    QtMainQueue queue;
    BusActivation activation(queue, command.profile);
    if (const auto end = endOfStart(activation, command))
        return *end;
    const TerminationSignals termination(&endProgram);
    JsonUserDefaults defaults(settingsFile(command.profile));
    defaults.follow(queue);
    PreferencesStore preferences(defaults);
    const LayerShell layerShell;
    const DesktopClock clock;
    const auto usersCalendar = [&clock] {
        return LocalCalendar(currentTimeZone(), QLocale(), clock.format());
    };
    ViewEngine views;
    ConsentDialog consent(queue, views, [&preferences] { return chosenPalette(preferences); });
    LocalEventStore store(
        queue, StoreConfiguration::ofUser(command.profile), currentCalendar,
        std::make_unique<StoreAccess>(AccessRecord::ofUser(command.profile), &consent));
    GioWorkspace workspace;
    QtScreenLayout screenLayout(queue);
    QtShieldingPanels panels(queue, views, layerShell);
    DesktopStatusBar statusBar(queue, symbolArt());
    QtPopups popups(queue, views, layerShell);
    QtWindows windows(views);
    SoftwareCenter softwareUpdater(
        queue, workspace, windows, [&preferences] { return chosenPalette(preferences); },
        QCoreApplication::applicationFilePath(), QCoreApplication::applicationVersion());
    AutostartLoginItem loginItem(BusActivation::busName(command.profile),
                                 commandOfLogin(command.profile));
    NotificationService notificationPermission(queue);
    CalendarAccess calendarAccess(store);
    AppCoordinator coordinator(preferences, calendarAccess,
                               {queue, defaults, workspace, screenLayout, panels, statusBar, popups,
                                windows, softwareUpdater, loginItem, notificationPermission,
                                usersCalendar, &endProgram},
                               rescueLogFile(command.profile));

    store.start();
    coordinator.start();
    activation.follow(
        [&coordinator](ActivationRequest request) { coordinator.takeRequest(request); });
    activation.answerStatus([&coordinator, &store, &panels] {
        return jsonOutput(statusOf(coordinator, store, panels).object(currentCalendar()));
    });
    if (command.request)
        queue.async([&] { coordinator.takeRequest(*command.request); });
    const int code = QGuiApplication::exec();
    coordinator.stop();
    return code;
}

int askAgent(int &argc, char **argv, const AskAgent &command) {
    using Asked = BusActivation::Asked;
    if (!isSessionBusAnswering(patienceWithBus))
        return fail(failed, QStringLiteral("the session bus does not answer"));
    const QCoreApplication application(argc, argv);
    QtMainQueue queue;
    switch (BusActivation(queue, command.profile).askRunning(command.request)) {
    case Asked::hasTaken:
        return done;
    case Asked::hasRefused:
        return fail(failed, QStringLiteral("it runs, but does not answer"));
    case Asked::isNotRunning:
        return fail(failed, QStringLiteral("it is not running"));
    }
    Q_UNREACHABLE();
}

int printStatus(int &argc, char **argv, const PrintStatus &command) {
    const QCoreApplication application(argc, argv);
    std::optional<QByteArray> answer;
    if (isSessionBusAnswering(patienceWithBus)) {
        QtMainQueue queue;
        answer = BusActivation(queue, command.profile).askStatus();
    }
    const QJsonObject status = answer ? QJsonDocument::fromJson(*answer).object()
                                      : statusOfNone(QCoreApplication::applicationVersion());
    const int code = show(command.asJson ? jsonOutput(status) : statusText(status));
    return answer ? code : failed;
}

/// The first of the paths that is neither a folder nor a calendar file, or cannot be read.
std::optional<QString> unreadable(const QStringList &paths) {
    for (const QString &path : paths) {
        const QFileInfo info(path);
        const bool isCalendarFile =
            info.isFile() && hasCalendarSuffix(QFile::encodeName(info.fileName()));
        if (!info.isReadable() || !(info.isDir() || isCalendarFile))
            return path;
    }
    return std::nullopt;
}

std::set<QString> everyCalendar(const EventStore &store) {
    std::set<QString> identifiers;
    for (const StoreCalendar &calendar : store.calendars())
        identifiers.insert(calendar.calendarIdentifier);
    return identifiers;
}

std::set<QString> selectedCalendars(UserDefaults &defaults, const EventStore &store) {
    return CalendarSelection::inForce(defaults, CalendarRepository(store, currentCalendar));
}

std::optional<QString> whyNothingIsRead(StoreAuthorization authorization) {
    switch (authorization) {
    case StoreAuthorization::fullAccess:
        return std::nullopt;
    case StoreAuthorization::restricted:
        return QStringLiteral("a policy of this machine bars access to the calendars");
    case StoreAuthorization::denied:
    case StoreAuthorization::notDetermined:
    case StoreAuthorization::writeOnly:
        return QStringLiteral("access to the calendars has not been granted; start vantrel without "
                              "a verb and allow it");
    }
    Q_UNREACHABLE();
}

/// Says on standard error what keeps the list from being whole.
Agenda::Extent reportedExtent(const LocalEventStore &store) {
    QStringList reasons = store.troubles();
    if (reasons.isEmpty() && !store.hasAllCalendars())
        reasons.append(QStringLiteral("not every calendar could be read; events may be missing"));
    for (const QString &reason : reasons)
        print(stderr, QStringLiteral("vantrel: %1\n").arg(printable(reason)).toUtf8());
    return reasons.isEmpty() ? Agenda::Extent::whole : Agenda::Extent::partial;
}

int printAgenda(int &argc, char **argv, const PrintAgenda &command) {
    const QCoreApplication application(argc, argv);
    if (const auto path = unreadable(command.calendars))
        return fail(
            failed,
            QStringLiteral("no calendar folder and no .ics file that can be read: %1").arg(*path));

    QtMainQueue queue;
    const Instant now = command.now.value_or(queue.now());
    const bool isOwn = command.calendars.isEmpty();
    StoreConfiguration configuration =
        isOwn ? StoreConfiguration::ofUser(command.profile)
              : StoreConfiguration::ofPaths(command.calendars, command.profile);
    configuration.fixedWindow = {now, now + command.horizon};
    configuration.leaveOutMissingService();
    LocalEventStore store(
        queue, configuration, currentCalendar,
        isOwn ? std::make_unique<StoreAccess>(AccessRecord::ofUser(command.profile), nullptr)
              : StoreAccess::granted());
    if (const auto reason = whyNothingIsRead(store.authorizationStatus()))
        return fail(failed, *reason + QStringLiteral(", or name calendars with --calendars"));
    store.loadNow();
    const Agenda::Extent extent = reportedExtent(store);

    JsonUserDefaults defaults(settingsFile(command.profile));
    const auto events = UpcomingEventsQuery(store).fetchUpcoming(
        isOwn ? selectedCalendars(defaults, store) : everyCalendar(store), now, command.horizon);
    return show(command.asJson ? Agenda::json(events, now, extent, store, currentCalendar())
                               : Agenda::text(events, currentCalendar()));
}

/// Without access the list, which says so, is printed for programs alone.
int printCalendars(int &argc, char **argv, const PrintCalendars &command) {
    const QCoreApplication application(argc, argv);
    QtMainQueue queue;
    LocalEventStore store(
        queue, StoreConfiguration::ofUser(command.profile), currentCalendar,
        std::make_unique<StoreAccess>(AccessRecord::ofUser(command.profile), nullptr));
    store.loadNow();

    const CalendarRepository repository(store, currentCalendar);
    JsonUserDefaults defaults(settingsFile(command.profile));
    const CalendarList list{CalendarAccess(store).currentStatus(),
                            repository.currentSnapshot(),
                            CalendarSelection::inForce(defaults, repository),
                            CalendarSelection::isStored(defaults),
                            store.hasAllCalendars(),
                            store.troubles()};
    const auto reason = whyNothingIsRead(store.authorizationStatus());
    const int code = command.asJson ? show(list.json()) : reason ? done : show(list.text());
    return reason ? fail(failed, *reason) : code;
}

} // namespace

} // namespace vantrel

int main(int argc, char **argv) {
    using namespace vantrel;

    QCoreApplication::setApplicationName(QStringLiteral("vantrel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTREL_VERSION));
    QStringList arguments;
    for (int index = 0; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));

    const Command command = parseCommandLine(arguments, currentCalendar());
    if (const auto *error = std::get_if<UsageError>(&command))
        return fail(wrongUsage, error->message + QStringLiteral(" (vantrel --help tells more)"));
    if (const auto *text = std::get_if<PrintText>(&command))
        return show(text->text.toUtf8());
    if (const auto *request = std::get_if<AskAgent>(&command))
        return askAgent(argc, argv, *request);
    if (const auto *status = std::get_if<PrintStatus>(&command))
        return printStatus(argc, argv, *status);
    if (const auto *agenda = std::get_if<PrintAgenda>(&command))
        return printAgenda(argc, argv, *agenda);
    if (const auto *calendars = std::get_if<PrintCalendars>(&command))
        return printCalendars(argc, argv, *calendars);
    return runAgent(argc, argv, std::get<RunAgent>(command));
}
