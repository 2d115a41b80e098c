#include <app/AgentStatus.h>
#include <fakes/Times.h>

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using fakes::at;

AgentStatus sample() {
    AgentStatus status;
    status.version = QStringLiteral("9.8");
    status.desktop = QStringLiteral("XFCE");
    status.session = QStringLiteral("xcb");
    status.shield = QStringLiteral("x11");
    status.statusItem = StatusItemPlace::tray;
    status.access = CalendarAccess::Status::fullAccess;
    status.calendars = 3;
    status.watched = 2;
    status.isLoaded = true;
    status.notes = {QStringLiteral("One calendar\u001b[2J is away.")};
    status.nextFires = {at("2026-03-02T09:59:00"), at("2026-03-02T13:29:00")};
    return status;
}

TEST(AgentStatus, GivesEveryMemberToPrograms) {
    const QJsonObject object = sample().object(fakes::calendarIn("Europe/Zurich"));
    EXPECT_EQ(QJsonDocument(object).toJson(QJsonDocument::Compact),
              QJsonDocument::fromJson(
                  R"({"isRunning": true, "version": "9.8", "desktop": "XFCE", "session": "xcb",
                      "shield": "x11", "statusItem": "tray", "isPaused": false, "accessStatus": "fullAccess",
                      "calendars": 3, "watched": 2, "isComplete": true,
                      "notes": ["One calendar\u001b[2J is away."],
                      "nextFires": ["2026-03-02T10:59:00+01:00", "2026-03-02T14:29:00+01:00"]})")
                  .toJson(QJsonDocument::Compact));
}

TEST(AgentStatus, NamesEachPlaceOfTheItem) {
    AgentStatus status;
    const auto named = [&](StatusItemPlace place) {
        status.statusItem = place;
        return status.object(fakes::calendarIn())[QStringLiteral("statusItem")].toString();
    };
    EXPECT_EQ(named(StatusItemPlace::nowhere), u"none");
    EXPECT_EQ(named(StatusItemPlace::host), u"host");
    EXPECT_EQ(named(StatusItemPlace::tray), u"tray");
}

TEST(AgentStatus, PrintsALineForEachAndDrivesNoTerminal) {
    EXPECT_EQ(statusText(sample().object(fakes::calendarIn())),
              "Running:             yes\n"
              "Version:             9.8\n"
              "Desktop:             XFCE\n"
              "Session:             xcb\n"
              "Shield:              x11\n"
              "Status item:         tray\n"
              "Paused:              no\n"
              "Calendar access:     fullAccess\n"
              "Calendars:           3\n"
              "Watched:             2\n"
              "All sources heard:   yes\n"
              "Takeover:            2026-03-02T09:59:00+00:00\n"
              "Takeover:            2026-03-02T13:29:00+00:00\n"
              "Note:                One calendar [2J is away.\n");
}

TEST(AgentStatus, SaysWhenNoneRuns) {
    EXPECT_EQ(statusText(statusOfNone(QStringLiteral("9.8"))), "Running:             no\n"
                                                               "Version:             9.8\n");
}

TEST(AgentStatus, LeavesOutWhatAnotherVersionDoesNotTell) {
    const QJsonObject other{{QStringLiteral("isRunning"), true},
                            {QStringLiteral("version"), QJsonValue(QJsonValue::Null)},
                            {QStringLiteral("nextFires"), QStringLiteral("soon")}};
    EXPECT_EQ(statusText(other), "Running:             yes\n");
}

} // namespace
} // namespace vantrel
