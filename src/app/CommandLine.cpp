#include "CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace vantrel {

namespace {

constexpr Seconds longestHorizon{3660 * 86400.0};

const char helpText[] = R"(Usage: vantrel [OPTION]...
       vantrel VERB [OPTION]...

Vantrel covers every screen shortly before each of your meetings, so that you never miss one.
Without a verb it runs until it is told to end; where it runs already, with the same profile, that
one shows its popover.

Verbs that need no running agent:
  agenda                 print the upcoming events and end
  calendars              print the calendars, and which are watched, and end

Verbs for the running agent:
  preview                show what a takeover looks like
  pause, resume          show no takeovers, show them again
  preferences            open the window with the settings
  recap                  open the window with the week's rescues
  quit                   end it
  status                 print what a report of a defect needs to know, and end

Options:
  --profile FOLDER       keep settings, calendars and the rescue log in FOLDER
  --action NAME          without a verb: have the running one, or else the one that is started,
                         do this: popover, toggle-pause, pause, resume, preferences, recap,
                         preview, quit
  --help                 this text
  --version              the version

Options of agenda, calendars and status:
  --json                 one JSON object instead of text

Options of agenda:
  --calendars PATH       read this calendar folder, folder of calendar folders or .ics file
                         instead of the selected calendars; may be given several times
  --now ISO8601          take this for the present moment; without an offset in local time
  --horizon SECONDS      how far to look ahead, above 0 (as it is: 1209600, two weeks)

The time zone is the environment's (TZ). Exit codes: 0 done, 1 failed (also where no
agent runs that could be asked), 2 wrong usage.
)";

std::optional<Instant> parseInstant(const QString &text, const LocalCalendar &calendar) {
    QDateTime dateTime = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (!dateTime.isValid() || dateTime.date().year() < 1 || dateTime.date().year() > 9999)
        return std::nullopt;
    if (dateTime.timeSpec() == Qt::LocalTime)
        dateTime = QDateTime(dateTime.date(), dateTime.time(), calendar.timeZone());
    return Instant{Seconds{static_cast<double>(dateTime.toMSecsSinceEpoch()) / 1000.0}};
}

std::optional<Seconds> parseHorizon(const QString &text) {
    bool isNumber = false;
    const Seconds horizon{text.toDouble(&isNumber)};
    // The comparison refuses "nan" as well, which is above nothing.
    if (!isNumber || !(horizon > Seconds::zero()) || horizon > longestHorizon)
        return std::nullopt;
    return horizon;
}

Command readRun(const QCommandLineParser &parser, const std::optional<QString> &profile) {
    if (parser.isSet(QStringLiteral("json")))
        return UsageError{QStringLiteral("--json goes with a verb")};
    if (!parser.isSet(QStringLiteral("action")))
        return RunAgent{profile, std::nullopt};
    const QString name = parser.value(QStringLiteral("action"));
    const auto request = activationRequest(name);
    if (!request)
        return UsageError{QStringLiteral("no action: %1").arg(name)};
    return RunAgent{profile, request};
}

/// What a verb for the running agent asks for; empty for what is no such verb.
std::optional<ActivationRequest> requestOfVerb(const QStringList &positional) {
    using enum ActivationRequest;
    const auto request = positional.size() == 1 ? activationRequest(positional.front())
                                                : std::optional<ActivationRequest>();
    return request == showPopover || request == togglePause ? std::nullopt : request;
}

Command readAgenda(const QCommandLineParser &parser, const LocalCalendar &calendar,
                   const std::optional<QString> &profile) {
    PrintAgenda agenda;
    agenda.profile = profile;
    agenda.asJson = parser.isSet(QStringLiteral("json"));
    agenda.calendars = parser.values(QStringLiteral("calendars"));
    if (parser.isSet(QStringLiteral("now"))) {
        const QString text = parser.value(QStringLiteral("now"));
        agenda.now = parseInstant(text, calendar);
        if (!agenda.now)
            return UsageError{QStringLiteral("not a date and time of ISO 8601: %1").arg(text)};
    }
    if (parser.isSet(QStringLiteral("horizon"))) {
        const QString text = parser.value(QStringLiteral("horizon"));
        const auto horizon = parseHorizon(text);
        if (!horizon)
            return UsageError{
                QStringLiteral("not a number of seconds above 0 and up to ten years: %1")
                    .arg(text)};
        agenda.horizon = *horizon;
    }
    return agenda;
}

} // namespace

Command parseCommandLine(const QStringList &arguments, const LocalCalendar &calendar) {
    QCommandLineParser parser;
    parser.addOptions({{QStringLiteral("help"), {}},
                       {QStringLiteral("version"), {}},
                       {QStringLiteral("profile"), {}, QStringLiteral("folder")},
                       {QStringLiteral("action"), {}, QStringLiteral("name")},
                       {QStringLiteral("json"), {}},
                       {QStringLiteral("calendars"), {}, QStringLiteral("path")},
                       {QStringLiteral("now"), {}, QStringLiteral("date")},
                       {QStringLiteral("horizon"), {}, QStringLiteral("seconds")}});
    if (!parser.parse(arguments))
        return UsageError{parser.errorText()};
    if (parser.isSet(QStringLiteral("help")))
        return PrintText{QString::fromUtf8(helpText)};
    if (parser.isSet(QStringLiteral("version")))
        return PrintText{
            QStringLiteral("vantrel %1\n").arg(QCoreApplication::applicationVersion())};

    std::optional<QString> profile;
    if (parser.isSet(QStringLiteral("profile")))
        profile = parser.value(QStringLiteral("profile"));
    const QStringList positional = parser.positionalArguments();
    if (!positional.isEmpty() && parser.isSet(QStringLiteral("action")))
        return UsageError{QStringLiteral("--action goes without a verb")};
    if (positional == QStringList{QStringLiteral("agenda")})
        return readAgenda(parser, calendar, profile);
    const auto request = requestOfVerb(positional);
    const bool isStatus = positional == QStringList{QStringLiteral("status")};
    const bool isCalendars = positional == QStringList{QStringLiteral("calendars")};
    if (!positional.isEmpty() && !isCalendars && !isStatus && !request)
        return UsageError{QStringLiteral("not known: %1").arg(positional.last())};
    for (const char *option : {"calendars", "now", "horizon"}) {
        if (parser.isSet(QLatin1String(option)))
            return UsageError{QStringLiteral("--%1 goes with agenda").arg(QLatin1String(option))};
    }
    if (request && parser.isSet(QStringLiteral("json")))
        return UsageError{QStringLiteral("--json does not go with %1").arg(positional.front())};
    if (request)
        return AskAgent{profile, *request};
    if (isStatus)
        return PrintStatus{profile, parser.isSet(QStringLiteral("json"))};
    if (isCalendars)
        return PrintCalendars{profile, parser.isSet(QStringLiteral("json"))};
    return readRun(parser, profile);
}

} // namespace vantrel
