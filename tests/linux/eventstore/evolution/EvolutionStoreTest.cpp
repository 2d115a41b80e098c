#include "EvolutionFixture.h"

#include <linux/eventstore/source/CalendarColors.h>

#include <algorithm>
#include <sstream>

namespace vantrel {
namespace {

using namespace tests;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EvolutionStore : public EvolutionFixture {
protected:
    /// The same texts in a folder, which is read without any service.
    std::unique_ptr<LocalEventStore> storeOnFolder(const std::vector<QByteArray> &texts) {
        int number = 0;
        for (const QByteArray &text : texts)
            m_files.write(QStringLiteral("work/%1.ics").arg(++number), calendarText(text));
        StoreConfiguration configuration;
        configuration.roots.push_back({m_files.path(QStringLiteral("work")), {}, false});
        auto folder = storeOf(configuration);
        folder->loadNow();
        return folder;
    }

    /// All that an event says, apart from where it comes from.
    std::vector<std::string> descriptions(const EventStore &ofStore) const {
        std::vector<std::string> lines;
        for (const StoreEvent &event : events(ofStore)) {
            std::ostringstream line;
            line << std::fixed << event.startDate.time_since_epoch().count() << ' '
                 << event.endDate.time_since_epoch().count() << ' '
                 << event.title.value_or(QString()).toStdString() << " all day " << event.isAllDay
                 << " status " << static_cast<int>(event.status) << " recurs "
                 << event.hasRecurrenceRules << " at "
                 << event.location.value_or(QString()).toStdString() << " notes "
                 << event.notes.value_or(QString()).toStdString() << " url "
                 << (event.url ? "yes" : "no") << " id "
                 << event.eventIdentifier->section(u'/', 1).toStdString();
            if (event.attendees) {
                for (const StoreParticipant &attendee : *event.attendees)
                    line << " [" << attendee.isCurrentUser << ' '
                         << static_cast<int>(attendee.participantStatus) << ']';
            }
            lines.push_back(line.str());
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

private:
    CalendarFiles m_files;
};

QByteArray daily(const QByteArray &more = {}) {
    return event("daily", "DTSTART;TZID=Europe/Zurich:20260223T090000\n"
                          "DTEND;TZID=Europe/Zurich:20260223T093000\n"
                          "RRULE:FREQ=WEEKLY;BYDAY=MO\nSUMMARY:Weekly\n" +
                              more);
}

QByteArray override(const QByteArray &day, const QByteArray &start, const QByteArray &title) {
    return event("daily", "RECURRENCE-ID;TZID=Europe/Zurich:" + day + "T090000\n" +
                              "DTSTART;TZID=Europe/Zurich:" + start +
                              "\nDURATION:PT30M\nSUMMARY:" + title + "\n");
}

TEST_F(EvolutionStore, ShowsWhatALocalCalendarHoldsAndWhatComesToIt) {
    put(event("one", "DTSTART:20260302T110000Z\nDTEND:20260302T120000Z\nSUMMARY:One\n"));
    begin();
    settleTitles(ElementsAre("One"), "what was there");
    put(event("two", "DTSTART:20260303T110000Z\nDTEND:20260303T120000Z\nSUMMARY:Two\n"));
    settleTitles(ElementsAre("One", "Two"), "what was added");
    put(event("one", "DTSTART:20260304T110000Z\nDTEND:20260304T120000Z\nSUMMARY:Moved\n"));
    settleTitles(ElementsAre("Two", "Moved"), "what was moved");
    put(event("two", "DTSTART:20260303T110000Z\nSUMMARY:Two\nSTATUS:CANCELLED\n"));
    settle([this] { return events(*store).at(0).status == StoreEventStatus::cancelled; },
           "what was cancelled");
    write({QStringLiteral("remove"), ownCalendar(), QStringLiteral("two")});
    settleTitles(ElementsAre("Moved"), "what was deleted");
}

TEST_F(EvolutionStore, DescribesItsCalendarsAndTheirAccounts) {
    session.writeSource(QStringLiteral("team"),
                        "[Data Source]\nDisplayName=Team\nEnabled=true\nParent=local-stub\n"
                        "[Calendar]\nBackendName=local\nColor=#112233\nSelected=true\n");
    session.writeSource(QStringLiteral("plain"),
                        "[Data Source]\nDisplayName=Plain\nEnabled=true\nParent=local-stub\n"
                        "[Calendar]\nBackendName=local\nSelected=false\n");
    session.writeSource(QStringLiteral("off"),
                        "[Data Source]\nDisplayName=Off\nEnabled=false\nParent=local-stub\n"
                        "[Calendar]\nBackendName=local\n");
    begin();
    const auto team = calendar(QStringLiteral("Team"));
    ASSERT_TRUE(team);
    EXPECT_EQ(team->calendarIdentifier, u"evolution:team");
    EXPECT_EQ(team->color, *colorFromText(QStringLiteral("#112233")));
    EXPECT_EQ(team->type, StoreCalendarType::local);
    EXPECT_TRUE(team->allowsContentModifications);
    EXPECT_EQ(team->source.sourceIdentifier, u"evolution:local-stub");
    EXPECT_EQ(team->source.title, u"On This Computer");
    const auto plain = calendar(QStringLiteral("Plain"));
    ASSERT_TRUE(plain);
    EXPECT_TRUE(plain->color) << "a calendar without a colour gets one";
    EXPECT_FALSE(calendar(QStringLiteral("Off")));
    EXPECT_THAT(store->troubles(), IsEmpty());
}

TEST_F(EvolutionStore, HasAnOccurrenceLeaveTheWindowAndComeBack) {
    put(daily());
    begin();
    settleTitles(ElementsAre("Weekly", "Weekly"), "the series");
    put(override("20260309", "20260601T100000", "Far away"));
    settleTitles(ElementsAre("Weekly"), "one occurrence was moved out of the window");
    put(override("20260309", "20260310T100000", "Next day"));
    settleTitles(ElementsAre("Weekly", "Next day"), "it was moved back");
    write({QStringLiteral("remove"), ownCalendar(), QStringLiteral("daily"),
           QStringLiteral("20260309T090000")});
    settleTitles(ElementsAre("Weekly"), "it was deleted");
}

TEST_F(EvolutionStore, HasAnOccurrenceFromFarAwayEnterTheWindow) {
    put(event("later", "DTSTART;TZID=Europe/Zurich:20260601T090000\nDURATION:PT1H\n"
                       "RRULE:FREQ=DAILY;COUNT=3\nSUMMARY:Later\n"));
    begin();
    settleTitles(IsEmpty(), "nothing in these weeks");
    put(event("later", "RECURRENCE-ID;TZID=Europe/Zurich:20260602T090000\n"
                       "DTSTART;TZID=Europe/Zurich:20260303T090000\nDURATION:PT1H\n"
                       "SUMMARY:Brought forward\n"));
    settleTitles(ElementsAre("Brought forward"), "an override brought one forward");
}

TEST_F(EvolutionStore, LosesAnOccurrenceThatIsExceptedLater) {
    put(daily());
    begin();
    settleTitles(ElementsAre("Weekly", "Weekly"), "the series");
    put(daily("EXDATE;TZID=Europe/Zurich:20260309T090000\n"));
    settleTitles(ElementsAre("Weekly"), "one occurrence was taken out");
}

/// Everything that means something to a path, a query, a shell, a terminal or our own identifiers.
const QByteArray oddText =
    "a|b/c:\"d\" 'e' %2F (f) #t *?~\x01\x1B[31m\x7F \xC3\xBC\xE6\x97\xA5 " + QByteArray(900, 'x');

TEST_F(EvolutionStore, FollowsEventsWhateverTheirUidIs) {
    begin();
    const auto series = [](const char *start, const char *title) {
        return event(oddText, QByteArray("DTSTART:") + start +
                                  "\nRRULE:FREQ=WEEKLY;COUNT=2\nSUMMARY:" + title + "\n");
    };
    put(series("20260302T110000Z", "Odd"));
    settleTitles(ElementsAre("Odd", "Odd"), "it came");
    for (const StoreEvent &event : events(*store))
        EXPECT_TRUE(store->eventWithIdentifier(*event.eventIdentifier));
    put(series("20260303T110000Z", "Moved"));
    settleTitles(ElementsAre("Moved", "Moved"), "it moved");
    put(event("plain", "DTSTART:20260302T110000Z\nSUMMARY:Plain\n"));
    settleTitles(ElementsAre("Plain", "Moved", "Moved"), "another came");
    write({QStringLiteral("remove"), ownCalendar(), QString::fromUtf8(oddText)});
    settleTitles(ElementsAre("Plain"), "it went");
}

/// A source is a file, and its name has an end.
TEST_F(EvolutionStore, FollowsACalendarWhateverItsUidIs) {
    QString uid = QString::fromUtf8(oddText.left(180));
    uid.remove(u'/');
    session.writeSource(uid, "[Data Source]\nDisplayName=Odd\nEnabled=true\nParent=local-stub\n"
                             "[Calendar]\nBackendName=local\n");
    begin();
    const auto odd = calendar(QStringLiteral("Odd"));
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->calendarIdentifier, QStringLiteral("evolution:") + uid);
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"), uid);
    settleTitles(ElementsAre("One"), "what was put there");
}

TEST_F(EvolutionStore, AnswersLikeAFolderWithTheSameCalendars) {
    const std::vector<QByteArray> texts{
        event("single", "DTSTART:20260302T110000Z\nDTEND:20260302T120000Z\nSUMMARY:Single\n"
                        "LOCATION:Room 1\\, floor 2\nDESCRIPTION:Line one\\nline two\n"
                        "URL:https://meet.example/1\nSTATUS:TENTATIVE\n"),
        event("all-day", "DTSTART;VALUE=DATE:20260304\nDTEND;VALUE=DATE:20260306\nSUMMARY:Days\n"),
        event("floating", "DTSTART:20260305T150000\nDURATION:PT45M\nSUMMARY:Floating\n"),
        event("cancelled", "DTSTART:20260305T100000Z\nSTATUS:CANCELLED\nSUMMARY:Off\n"),
        event("invited", "DTSTART:20260306T100000Z\nDTEND:20260306T110000Z\nSUMMARY:Invited\n"
                         "ORGANIZER:mailto:boss@example.com\n"
                         "ATTENDEE;PARTSTAT=DECLINED:mailto:Me@example.com\n"
                         "ATTENDEE;PARTSTAT=ACCEPTED:mailto:you@example.com\n"),
        daily("EXDATE;TZID=Europe/Zurich:20260309T090000\n"
              "RDATE;TZID=Europe/Zurich:20260310T090000\n") +
            override("20260302", "20260303T140000", "Moved to Tuesday") +
            override("20260316", "20260315T080000", "Pulled in"),
        event("new-york", "DTSTART;TZID=America/New_York:20260105T090000\nDURATION:PT1H\n"
                          "RRULE:FREQ=WEEKLY;BYDAY=TU,TH\nSUMMARY:Across the change of clocks\n"),
        event("monthly", "DTSTART:20250131T080000Z\nDURATION:PT1H\n"
                         "RRULE:FREQ=MONTHLY;BYDAY=2FR\nSUMMARY:Second Friday\n"),
        event("odd \xC3\xA4|/%", "DTSTART:20260311T080000Z\nSUMMARY:Odd identifier\n"),
        "BEGIN:VTIMEZONE\nTZID:Company Time\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
        "TZOFFSETFROM:+0130\nTZOFFSETTO:+0130\nTZNAME:CT\nEND:STANDARD\nEND:VTIMEZONE\n" +
            event("own-zone", "DTSTART;TZID=Company Time:20260312T100000\nDURATION:PT1H\n"
                              "SUMMARY:In a zone of our own\n"),
    };
    for (const QByteArray &text : texts)
        put(text);
    const auto folder = storeOnFolder(texts);
    ASSERT_EQ(events(*folder).size(), 15U) << ::testing::PrintToString(descriptions(*folder));
    begin();
    EXPECT_THAT(descriptions(*store), ::testing::ElementsAreArray(descriptions(*folder)));
}

TEST_F(EvolutionStore, TakesAZoneThatTheCalendarDoesNotKnowForNoFailure) {
    put(event("unknown", "DTSTART;TZID=Nowhere At All:20260302T100000\nSUMMARY:Unknown\n"));
    begin();
    settleTitles(ElementsAre("Unknown"), "the event");
    EXPECT_EQ(log.text().find("a time zone cannot be read"), std::string::npos) << log.text();
}

TEST_F(EvolutionStore, ShowsTheNextWeeksAsTheWindowMovesOn) {
    put(daily());
    put(event("april", "DTSTART:20260408T100000Z\nSUMMARY:In April\n"));
    begin();
    settleTitles(ElementsAre("Weekly", "Weekly"), "the series");
    queue.advance(Seconds{35 * 86'400.0});
    const auto inApril = [this] {
        std::vector<std::string> titles;
        for (const StoreEvent &event :
             store->events(fakes::at("2026-04-06T00:00:00", zone),
                           fakes::at("2026-04-14T00:00:00", zone), identifiers(*store)))
            titles.push_back(event.title->toStdString());
        return titles == std::vector<std::string>{"Weekly", "In April", "Weekly"};
    };
    settle(inApril, "five weeks later");
}

TEST_F(EvolutionStore, FindsTheUserByTheMailIdentitiesOfTheDesktop) {
    session.writeSource(
        QStringLiteral("identity"),
        "[Data Source]\nDisplayName=Mail\nEnabled=true\n"
        "[Mail Identity]\nAddress=Me@Work.Example\nAliases=Alias <nick@work.example>"
        "\n");
    put(event("a", "DTSTART:20260302T110000Z\nSUMMARY:A\n"
                   "ATTENDEE;PARTSTAT=DECLINED:MAILTO:me@work.example\n"
                   "ATTENDEE;PARTSTAT=ACCEPTED:mailto:NICK@work.example\n"
                   "ATTENDEE;PARTSTAT=ACCEPTED:mailto:other@work.example\n"));
    begin();
    settleTitles(ElementsAre("A"), "the event");
    const StoreEvent event = events(*store).at(0);
    ASSERT_EQ(event.attendees->size(), 3U);
    EXPECT_TRUE(event.attendees->at(0).isCurrentUser);
    EXPECT_TRUE(event.attendees->at(1).isCurrentUser);
    EXPECT_FALSE(event.attendees->at(2).isCurrentUser);
}

TEST_F(EvolutionStore, ShowsASeriesThatIsRemovedAndAddedAgainWhileItIsAskedFor) {
    begin();
    write({QStringLiteral("churn"), ownCalendar(),
           session.file(calendarText(event("churned", "DTSTART:20260302T110000Z\n"
                                                      "RRULE:FREQ=DAILY;COUNT=2\n"
                                                      "SUMMARY:Churned\n")))});
    put(event("mark", "DTSTART:20260301T233000Z\nSUMMARY:Mark\n"));
    settleTitles(ElementsAre("Mark", "Churned", "Churned"), "both are there");
}

TEST_F(EvolutionStore, FollowsCalendarsThatComeAndGo) {
    begin();
    EXPECT_FALSE(calendar(QStringLiteral("Team")));
    write({QStringLiteral("add-source"), QStringLiteral("team"), QStringLiteral("Team")});
    settle([this] { return calendar(QStringLiteral("Team")).has_value(); }, "a calendar came");
    put(event("one", "DTSTART:20260302T110000Z\nSUMMARY:One\n"), QStringLiteral("team"));
    settleTitles(ElementsAre("One"), "what was put there");
    write({QStringLiteral("disable-source"), QStringLiteral("team")});
    settle([this] { return !calendar(QStringLiteral("Team")); }, "it was switched off");
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_FALSE(store->isCalendarDeleted(QStringLiteral("evolution:team")));
    write({QStringLiteral("remove-source"), QStringLiteral("team")});
    settle([this] { return store->isCalendarDeleted(QStringLiteral("evolution:team")); },
           "it was deleted");
}

} // namespace
} // namespace vantrel
