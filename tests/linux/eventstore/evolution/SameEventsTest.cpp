#include "TwinCalendars.h"

namespace vantrel {
namespace {

using namespace tests;

/// As calendar programs send it along; a CalDAV server may refuse overrides without it.
constexpr char zurich[] = "BEGIN:VTIMEZONE\nTZID:Europe/Zurich\n"
                          "BEGIN:DAYLIGHT\nTZOFFSETFROM:+0100\nTZOFFSETTO:+0200\nTZNAME:CEST\n"
                          "DTSTART:19700329T020000\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\n"
                          "END:DAYLIGHT\n"
                          "BEGIN:STANDARD\nTZOFFSETFROM:+0200\nTZOFFSETTO:+0100\nTZNAME:CET\n"
                          "DTSTART:19701025T030000\nRRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\n"
                          "END:STANDARD\nEND:VTIMEZONE\n";

/// Mondays at nine in Zurich, with whatever else belongs to it.
QByteArray weekly(const QByteArray &properties = {}, const QByteArray &overrides = {}) {
    return zurich +
           event("weekly", "DTSTART;TZID=Europe/Zurich:20260223T090000\n"
                           "DTEND;TZID=Europe/Zurich:20260223T093000\n"
                           "RRULE:FREQ=WEEKLY;BYDAY=MO\nSUMMARY:Weekly\nLOCATION: Room 7 \n"
                           "DESCRIPTION:https://zoom.us/j/91234567890\n" +
                               properties) +
           overrides;
}

QByteArray weeklyOverride(const QByteArray &day, const QByteArray &start, const QByteArray &title) {
    return event("weekly", "RECURRENCE-ID;TZID=Europe/Zurich:" + day +
                               "T090000\nDTSTART;TZID=Europe/Zurich:" + start +
                               "\nDURATION:PT30M\nSUMMARY:" + title + "\n");
}

QByteArray birthday(const QByteArray &name, const QByteArray &date) {
    return event(name, "DTSTART;VALUE=DATE:" + date +
                           "\nRRULE:FREQ=YEARLY\nSUMMARY:Birthday: " + name + "\n");
}

class SameEvents : public TwinCalendars {
protected:
    void putLocal() {
        put(Kind::local, "weekly",
            weekly("EXDATE;TZID=Europe/Zurich:20260316T090000\n"
                   "RDATE;TZID=Europe/Zurich:20260306T090000\n",
                   weeklyOverride("20260302", "20260601T100000", "Moved out") +
                       weeklyOverride("20260309", "20260310T140000", "Moved within") +
                       weeklyOverride("20260518", "20260305T110000", "Moved in")));
        put(Kind::local, "later",
            event("later", "DTSTART;TZID=Europe/Zurich:20260601T090000\nDURATION:PT1H\n"
                           "RRULE:FREQ=DAILY;COUNT=3\nSUMMARY:Later\n") +
                event("later", "RECURRENCE-ID;TZID=Europe/Zurich:20260602T090000\n"
                               "DTSTART;TZID=Europe/Zurich:20260303T090000\nDURATION:PT1H\n"
                               "SUMMARY:Brought forward\n"));
        put(Kind::local, "floating",
            event("floating", "DTSTART:20260305T150000\nDURATION:PT45M\nSUMMARY:Floating\n"
                              "DESCRIPTION:Dial in: +41 44 668 18 00\n"));
        put(Kind::local, "whole-day",
            event("whole-day", "DTSTART;VALUE=DATE:20260304\n"
                               "SUMMARY:A whole day\n"));
    }

    void putOnServer() {
        put(Kind::account, "new-york",
            event("new-york", "DTSTART;TZID=America/New_York:20260105T090000\nDURATION:PT1H\n"
                              "RRULE:FREQ=WEEKLY;BYDAY=TU\nSUMMARY:New York\n"
                              "URL:https://meet.google.com/abc-defg-hij\n"));
        put(Kind::account, "counted",
            event("counted", "DTSTART:20260302T120000Z\nDURATION:PT15M\n"
                             "RRULE:FREQ=DAILY;COUNT=3\nSUMMARY:Counted\n") +
                event("counted", "RECURRENCE-ID:20260303T120000Z\nDTSTART:20260303T120000Z\n"
                                 "SUMMARY:Called off\nSTATUS:CANCELLED\n"));
        for (const char *const answer : {"ACCEPTED", "DECLINED"}) {
            const QByteArray name = QByteArray(answer).toLower();
            put(Kind::account, name,
                event(name, "DTSTART:20260304T080000Z\nDTEND:20260304T090000Z\nSUMMARY:" + name +
                                "\nORGANIZER:mailto:boss@office.example\nATTENDEE;PARTSTAT=" +
                                answer + ":mailto:me@office.example\n"));
        }
    }

    void putOnThePage() {
        put(Kind::subscription, "friday",
            event("friday", "DTSTART:20250131T080000Z\nDURATION:PT1H\n"
                            "RRULE:FREQ=MONTHLY;BYDAY=2FR\nSUMMARY:Second Friday\n"));
        put(Kind::subscription, "own-zone",
            "BEGIN:VTIMEZONE\nTZID:Company Time\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
            "TZOFFSETFROM:+0130\nTZOFFSETTO:+0130\nTZNAME:CT\nEND:STANDARD\nEND:VTIMEZONE\n" +
                event("own-zone", "DTSTART;TZID=Company Time:20260312T100000\nDURATION:PT1H\n"
                                  "SUMMARY:In a zone of its own\nLOCATION:Upstairs\\, left\n"));
        put(Kind::subscription, "match",
            event("match", "DTSTART:20260304T080000Z\n"
                           "DTEND:20260304T100000Z\nSUMMARY:Match\n"));
    }
};

TEST_F(SameEvents, ComeUpFromAccountsAndFromFolders) {
    putLocal();
    putOnServer();
    putOnThePage();
    putBirthday("Anna", "1990-03-05", birthday("Anna", "19900305"));
    beginBoth();
    expectMeetings("2026-03-02T08:00:00",
                   {"03-02 13:00 Counted", "03-03 09:00 Brought forward", "03-03 15:00 New York",
                    "03-04 09:00 Match", "03-04 09:00 accepted", "03-04 13:00 Counted",
                    "03-05 11:00 Moved in", "03-05 15:00 Floating", "03-06 09:00 Weekly",
                    "03-10 14:00 Moved within", "03-10 14:00 New York",
                    "03-12 09:30 In a zone of its own", "03-13 09:00 Second Friday"});
    expectBirthdays({"03-05 00:00 Birthday: Anna"});

    // Both windows move on, over the change of clocks here; there it was three weeks before.
    queue.advanceTo(fakes::at("2026-03-26T08:00:00", zone));
    expectMeetings("2026-03-26T08:00:00", {"03-30 09:00 Weekly", "03-31 15:00 New York",
                                           "04-06 09:00 Weekly", "04-07 15:00 New York"});
}

TEST_F(SameEvents, FollowTheBirthdaysOfTheAddressBook) {
    putBirthday("Anna", "1990-03-05", birthday("Anna", "19900305"));
    beginBoth();
    expectBirthdays({"03-05 00:00 Birthday: Anna"});
    putBirthday("Ben", "1991-03-06", birthday("Ben", "19910306"));
    expectBirthdays({"03-05 00:00 Birthday: Anna", "03-06 00:00 Birthday: Ben"});
    putBirthday("Anna", "1990-03-10", birthday("Anna", "19900310"));
    expectBirthdays({"03-06 00:00 Birthday: Ben", "03-10 00:00 Birthday: Anna"});
    remove(Kind::birthdays, "Ben");
    expectBirthdays({"03-10 00:00 Birthday: Anna"});
    expectMeetings("2026-03-02T00:00:00", {});
}

/// Each of the calendars that hold meetings, changed by others while the program runs.
class ChangesOfAnyCalendar : public SameEvents, public ::testing::WithParamInterface<const char *> {
protected:
    /// The service takes a page without any event for a mistake, and keeps what it had.
    void SetUp() override {
        put("past", event("past", "DTSTART:20260105T110000Z\nSUMMARY:Long ago\n"));
    }

    [[nodiscard]] static Kind kind() {
        const QLatin1String name(GetParam());
        return name == QLatin1String("Local")     ? Kind::local
               : name == QLatin1String("Account") ? Kind::account
                                                  : Kind::subscription;
    }

    void put(const QByteArray &name, const QByteArray &components) {
        SameEvents::put(kind(), name, components);
    }

    void expect(const std::vector<std::string> &expected) {
        expectMeetings("2026-03-02T08:00:00", expected);
    }
};

TEST_P(ChangesOfAnyCalendar, OfSingleMeetingsComeUpTheSame) {
    put("one", event("one", "DTSTART:20260302T110000Z\nDTEND:20260302T120000Z\nSUMMARY:One\n"));
    beginBoth();
    expect({"03-02 12:00 One"});
    put("two", event("two", "DTSTART:20260303T110000Z\nDTEND:20260303T120000Z\nSUMMARY:Two\n"));
    expect({"03-02 12:00 One", "03-03 12:00 Two"});
    put("one", event("one", "DTSTART:20260304T110000Z\nDTEND:20260304T130000Z\nSUMMARY:One\n"
                            "SEQUENCE:1\nLOCATION:https://teams.microsoft.com/l/meetup-join/1\n"));
    expect({"03-03 12:00 Two", "03-04 12:00 One"});
    put("two", event("two", "DTSTART:20260303T110000Z\nDTEND:20260303T120000Z\nSUMMARY:Two\n"
                            "SEQUENCE:1\nSTATUS:CANCELLED\n"));
    expect({"03-04 12:00 One"});
    remove(kind(), "one");
    expect({});
}

TEST_P(ChangesOfAnyCalendar, OfASeriesComeUpTheSame) {
    put("weekly", weekly());
    beginBoth();
    expect({"03-02 09:00 Weekly", "03-09 09:00 Weekly"});
    put("weekly", weekly({}, weeklyOverride("20260302", "20260303T100000", "On Tuesday")));
    expect({"03-03 10:00 On Tuesday", "03-09 09:00 Weekly"});
    put("weekly", weekly({}, weeklyOverride("20260302", "20260603T100000", "Moved out")));
    expect({"03-09 09:00 Weekly"});
    put("weekly", weekly({}, weeklyOverride("20260302", "20260304T100000", "Moved back in")));
    expect({"03-04 10:00 Moved back in", "03-09 09:00 Weekly"});
    removeOccurrence(kind(), "weekly", "20260302T090000",
                     weekly("EXDATE;TZID=Europe/Zurich:20260302T090000\n"));
    expect({"03-09 09:00 Weekly"});
    remove(kind(), "weekly");
    expect({});
}

INSTANTIATE_TEST_SUITE_P(Of, ChangesOfAnyCalendar,
                         ::testing::Values("Local", "Account", "Subscription"),
                         [](const auto &parameter) { return std::string(parameter.param); });

} // namespace
} // namespace vantrel
