#include <app/CommandLine.h>
#include <fakes/Times.h>

#include <gtest/gtest.h>

#include <ostream>

namespace vantrel {
namespace {

using fakes::at;
using fakes::calendarIn;

Command parse(const QStringList &arguments) {
    return parseCommandLine(QStringList{QStringLiteral("vantrel")} + arguments,
                            calendarIn("Europe/Zurich"));
}

TEST(CommandLine, RunsTheAgentWithoutArguments) {
    const Command command = parse({});
    ASSERT_TRUE(std::holds_alternative<RunAgent>(command));
    EXPECT_FALSE(std::get<RunAgent>(command).profile);
}

TEST(CommandLine, RunsTheAgentOnAProfile) {
    const Command command = parse({QStringLiteral("--profile"), QStringLiteral("/tmp/p")});
    ASSERT_TRUE(std::holds_alternative<RunAgent>(command));
    EXPECT_EQ(std::get<RunAgent>(command).profile, QStringLiteral("/tmp/p"));
}

TEST(CommandLine, HasTheAgentDoWhatAnActionNames) {
    const Command command = parse({QStringLiteral("--action"), QStringLiteral("toggle-pause")});
    ASSERT_TRUE(std::holds_alternative<RunAgent>(command));
    EXPECT_EQ(std::get<RunAgent>(command).request, ActivationRequest::togglePause);
    EXPECT_EQ(std::get<RunAgent>(parse({})).request, std::nullopt);
}

TEST(CommandLine, AsksTheRunningAgentByAVerb) {
    for (const auto request : {ActivationRequest::preview, ActivationRequest::pause,
                               ActivationRequest::resume, ActivationRequest::showPreferences,
                               ActivationRequest::showRecap, ActivationRequest::quit}) {
        const Command command =
            parse({activationName(request), QStringLiteral("--profile"), QStringLiteral("p")});
        ASSERT_TRUE(std::holds_alternative<AskAgent>(command))
            << activationName(request).toStdString();
        EXPECT_EQ(std::get<AskAgent>(command).request, request);
        EXPECT_EQ(std::get<AskAgent>(command).profile, QStringLiteral("p"));
    }
}

TEST(CommandLine, PrintsTheStatus) {
    const Command command = parse({QStringLiteral("status")});
    ASSERT_TRUE(std::holds_alternative<PrintStatus>(command));
    EXPECT_FALSE(std::get<PrintStatus>(command).asJson);
    EXPECT_TRUE(
        std::get<PrintStatus>(parse({QStringLiteral("status"), QStringLiteral("--json")})).asJson);
}

TEST(CommandLine, RefusesAVerbThatIsNoneTwoOfThemAndOptionsOfOthers) {
    for (const QStringList &arguments :
         {QStringList{QStringLiteral("popover")}, QStringList{QStringLiteral("toggle-pause")},
          QStringList{QStringLiteral("pause"), QStringLiteral("resume")},
          QStringList{QStringLiteral("pause"), QStringLiteral("--json")},
          QStringList{QStringLiteral("quit"), QStringLiteral("--now"),
                      QStringLiteral("2026-03-02")}})
        EXPECT_TRUE(std::holds_alternative<UsageError>(parse(arguments)))
            << arguments.join(QLatin1Char(' ')).toStdString();
}

TEST(CommandLine, RefusesAnActionThatIsNoneAndOneBesideAVerb) {
    EXPECT_TRUE(std::holds_alternative<UsageError>(
        parse({QStringLiteral("--action"), QStringLiteral("dance")})));
    EXPECT_TRUE(std::holds_alternative<UsageError>(
        parse({QStringLiteral("agenda"), QStringLiteral("--action=quit")})));
}

TEST(CommandLine, LooksTwoWeeksAheadFromNowUnlessToldOtherwise) {
    const Command command = parse({QStringLiteral("agenda")});
    ASSERT_TRUE(std::holds_alternative<PrintAgenda>(command));
    const auto &agenda = std::get<PrintAgenda>(command);
    EXPECT_FALSE(agenda.asJson);
    EXPECT_FALSE(agenda.now);
    EXPECT_TRUE(agenda.calendars.isEmpty());
    EXPECT_EQ(agenda.horizon, Seconds{1209600.0});
}

TEST(CommandLine, TakesEveryOptionOfTheAgenda) {
    const Command command =
        parse({QStringLiteral("agenda"), QStringLiteral("--json"), QStringLiteral("--calendars"),
               QStringLiteral("a"), QStringLiteral("--calendars=b.ics"), QStringLiteral("--now"),
               QStringLiteral("2026-03-02T09:00:00+01:00"), QStringLiteral("--horizon"),
               QStringLiteral("3600.5"), QStringLiteral("--profile"), QStringLiteral("p")});
    ASSERT_TRUE(std::holds_alternative<PrintAgenda>(command));
    const auto &agenda = std::get<PrintAgenda>(command);
    EXPECT_TRUE(agenda.asJson);
    EXPECT_EQ(agenda.calendars, (QStringList{QStringLiteral("a"), QStringLiteral("b.ics")}));
    EXPECT_EQ(agenda.now, at("2026-03-02T08:00:00"));
    EXPECT_EQ(agenda.horizon, Seconds{3600.5});
    EXPECT_EQ(agenda.profile, QStringLiteral("p"));
}

TEST(CommandLine, TakesTheVerbBehindAnOption) {
    const Command command = parse({QStringLiteral("--profile"), QStringLiteral("p"),
                                   QStringLiteral("agenda"), QStringLiteral("--json")});
    ASSERT_TRUE(std::holds_alternative<PrintAgenda>(command));
    EXPECT_EQ(std::get<PrintAgenda>(command).profile, QStringLiteral("p"));
}

TEST(CommandLine, ListsTheCalendars) {
    const Command plain = parse({QStringLiteral("calendars")});
    ASSERT_TRUE(std::holds_alternative<PrintCalendars>(plain));
    EXPECT_FALSE(std::get<PrintCalendars>(plain).asJson);
    EXPECT_FALSE(std::get<PrintCalendars>(plain).profile);

    const Command full = parse({QStringLiteral("calendars"), QStringLiteral("--json"),
                                QStringLiteral("--profile"), QStringLiteral("p")});
    ASSERT_TRUE(std::holds_alternative<PrintCalendars>(full));
    EXPECT_TRUE(std::get<PrintCalendars>(full).asJson);
    EXPECT_EQ(std::get<PrintCalendars>(full).profile, QStringLiteral("p"));
}

struct Moment {
    const char *text;
    const char *utc;
};

void PrintTo(const Moment &row, std::ostream *out) {
    *out << row.text;
}

class AgendaNow : public testing::TestWithParam<Moment> {};

TEST_P(AgendaNow, ReadsTheMoment) {
    const Command command = parse(
        {QStringLiteral("agenda"), QStringLiteral("--now"), QString::fromLatin1(GetParam().text)});
    ASSERT_TRUE(std::holds_alternative<PrintAgenda>(command));
    EXPECT_EQ(std::get<PrintAgenda>(command).now, at(GetParam().utc));
}

INSTANTIATE_TEST_SUITE_P(Forms, AgendaNow,
                         testing::Values(Moment{"2026-03-02T09:00:00Z", "2026-03-02T09:00:00"},
                                         Moment{"2026-03-02T09:00:00-05:00", "2026-03-02T14:00:00"},
                                         Moment{"2026-03-02T09:00:00.250+00:00",
                                                "2026-03-02T09:00:00.250"},
                                         Moment{"2026-03-02T09:00:00", "2026-03-02T08:00:00"},
                                         Moment{"2026-07-02T09:00", "2026-07-02T07:00:00"},
                                         Moment{"2026-03-02", "2026-03-01T23:00:00"}));

/// Arguments with single spaces between them; an empty one stands behind a space at the end.
class WrongUsage : public testing::TestWithParam<const char *> {};

TEST_P(WrongUsage, IsNamedAsSuch) {
    const Command command = parse(QString::fromLatin1(GetParam()).split(u' '));
    ASSERT_TRUE(std::holds_alternative<UsageError>(command));
    EXPECT_FALSE(std::get<UsageError>(command).message.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, WrongUsage,
                         testing::Values("agneda", "agenda more", "--unknown", "agenda --unknown",
                                         "--json", "agenda --now", "agenda --now tomorrow",
                                         "agenda --now 2026-13-02T09:00:00Z", "agenda --now ",
                                         "agenda --horizon 0", "agenda --horizon -5",
                                         "agenda --horizon nan", "agenda --horizon inf",
                                         "agenda --horizon 1e300", "agenda --horizon soon",
                                         "agenda --calendars", "calendars more", "calendars agenda",
                                         "calendars --now 2026-03-02", "calendars --horizon 60",
                                         "calendars --calendars a"));

TEST(CommandLine, PrintsHelpAndVersion) {
    for (const char *option : {"--help", "--version"}) {
        const Command command = parse({QString::fromLatin1(option)});
        ASSERT_TRUE(std::holds_alternative<PrintText>(command)) << option;
        EXPECT_TRUE(std::get<PrintText>(command).text.endsWith(u'\n'));
    }
    EXPECT_TRUE(std::holds_alternative<PrintText>(
        parse({QStringLiteral("agenda"), QStringLiteral("--help")})));
}

} // namespace
} // namespace vantrel
