#include <fakes/Times.h>
#include <menubar/MenuBarDisplayFormatter.h>

#include <gtest/gtest.h>

#include <vector>

namespace vantrel {
namespace {

using Formatter = MenuBarDisplayFormatter;

const Instant now = fakes::at("2026-03-02T09:00:00");

constexpr Seconds minute{60.0};

/// From `start` to `end`, both counted from now.
UpcomingEvent event(Seconds start, Seconds end, const QString &title = QStringLiteral("Standup")) {
    UpcomingEvent event;
    event.id = title;
    event.title = title;
    event.startDate = now + start;
    event.endDate = now + end;
    return event;
}

/// The phrase for a meeting of half an hour that starts `seconds` from now.
QString phraseBeforeStart(double seconds) {
    return Formatter::countdownPhrase(event(Seconds{seconds}, Seconds{seconds} + 30 * minute), now);
}

QString phraseBeforeEnd(double seconds) {
    return Formatter::countdownPhrase(event(-30 * minute, Seconds{seconds}), now);
}

/// The title as it stands before the bullet.
QString shownTitle(const QString &title) {
    const auto text = Formatter::text({event(5 * minute, 35 * minute, title)}, now);
    return text->chopped(QStringView(u" \u2022 in 5 min").size());
}

// Minutes

TEST(MinutesRemaining, RoundsUpAndIsNeverNegative) {
    const auto minutes = [](double seconds) {
        return Formatter::minutesRemaining(now + Seconds{seconds}, now);
    };
    EXPECT_EQ(minutes(-3600.0), 0);
    EXPECT_EQ(minutes(-0.001), 0);
    EXPECT_EQ(minutes(0.0), 0);
    EXPECT_EQ(minutes(0.001), 1);
    EXPECT_EQ(minutes(1.0), 1);
    EXPECT_EQ(minutes(60.0), 1);
    EXPECT_EQ(minutes(60.001), 2);
    EXPECT_EQ(minutes(61.0), 2);
    EXPECT_EQ(minutes(1'209'600.0), 20'160);
}

// The phrase

TEST(CountdownPhrase, CountsTheMinutesToTheStart) {
    EXPECT_EQ(phraseBeforeStart(1.0), u"in 1 min");
    EXPECT_EQ(phraseBeforeStart(30.0), u"in 1 min");
    EXPECT_EQ(phraseBeforeStart(60.0), u"in 1 min");
    EXPECT_EQ(phraseBeforeStart(61.0), u"in 2 min");
}

TEST(CountdownPhrase, StaysWithMinutesHoweverManyTheyAre) {
    EXPECT_EQ(phraseBeforeStart(95 * 60.0), u"in 95 min");
    EXPECT_EQ(phraseBeforeStart(480 * 60.0), u"in 480 min");
    EXPECT_EQ(phraseBeforeEnd(600 * 60.0), u"ends in 600 min");
}

TEST(CountdownPhrase, CountsTheMinutesToTheEndWhileTheMeetingIsUnderWay) {
    EXPECT_EQ(phraseBeforeStart(0.0), u"ends in 30 min");
    EXPECT_EQ(phraseBeforeEnd(25 * 60.0), u"ends in 25 min");
    EXPECT_EQ(phraseBeforeEnd(61.0), u"ends in 2 min");
    EXPECT_EQ(phraseBeforeEnd(60.0), u"ends in 1 min");
    EXPECT_EQ(phraseBeforeEnd(10.0), u"ends in 1 min");
}

TEST(CountdownPhrase, ReadsStartingNowForAMeetingWithoutLengthAndForOneThatIsOver) {
    EXPECT_EQ(Formatter::countdownPhrase(event(Seconds{0.0}, Seconds{0.0}), now), u"starting now");
    EXPECT_EQ(phraseBeforeEnd(0.0), u"starting now");
    EXPECT_EQ(phraseBeforeEnd(-600.0), u"starting now");
}

// Which event

class PickDisplayEventTest : public testing::Test {
protected:
    /// Its title; "-" for none.
    QString picked(std::optional<std::int64_t> horizonMinutes = std::nullopt) const {
        const auto event = Formatter::pickDisplayEvent(events, now, horizonMinutes);
        return event ? event->title : QStringLiteral("-");
    }

    void add(const char *title, Seconds start, Seconds end) {
        events.push_back(event(start, end, QString::fromLatin1(title)));
    }

    std::vector<UpcomingEvent> events;
};

TEST_F(PickDisplayEventTest, PicksNothingFromNothing) {
    EXPECT_EQ(picked(), u"-");
    EXPECT_EQ(picked(120), u"-");
}

TEST_F(PickDisplayEventTest, PicksTheFirstInTheListThatIsUnderWay) {
    add("next", 5 * minute, 35 * minute);
    add("second", -10 * minute, 5 * minute);
    add("third", -20 * minute, 15 * minute);
    EXPECT_EQ(picked(), u"second");
    EXPECT_EQ(picked(1), u"second");
}

TEST_F(PickDisplayEventTest, CountsAMeetingAsUnderWayFromItsStartUntilBeforeItsEnd) {
    add("starts", Seconds{0.0}, minute);
    EXPECT_EQ(picked(), u"starts");
    events = {};
    add("ends", -minute, Seconds{10.0});
    EXPECT_EQ(picked(), u"ends");
    events = {};
    add("ended", -minute, Seconds{0.0});
    EXPECT_EQ(picked(), u"-");
}

TEST_F(PickDisplayEventTest, PicksTheFirstInTheListThatIsToStart) {
    add("over", -60 * minute, -30 * minute);
    add("far", 90 * minute, 120 * minute);
    add("near", 10 * minute, 20 * minute);
    EXPECT_EQ(picked(), u"far");
    EXPECT_EQ(picked(60), u"near");
}

TEST_F(PickDisplayEventTest, PicksWhatStartsExactlyAtTheHorizonAndNothingBeyond) {
    add("meeting", 120 * minute, 150 * minute);
    EXPECT_EQ(picked(120), u"meeting");
    EXPECT_EQ(picked(119), u"-");
    events = {};
    add("meeting", 120 * minute + Seconds{0.001}, 150 * minute);
    EXPECT_EQ(picked(120), u"-");
    EXPECT_EQ(picked(), u"meeting");
}

TEST_F(PickDisplayEventTest, PicksNoMeetingWithoutLengthAtItsStart) {
    add("moment", Seconds{0.0}, Seconds{0.0});
    EXPECT_EQ(picked(), u"-");
}

// The text

TEST(MenuBarText, IsEmptyWithoutAnEvent) {
    EXPECT_EQ(Formatter::text({}, now), std::nullopt);
    EXPECT_EQ(Formatter::text({event(-60 * minute, -30 * minute)}, now), std::nullopt);
}

TEST(MenuBarText, JoinsTitleAndPhraseByABullet) {
    EXPECT_EQ(Formatter::text({event(12 * minute, 40 * minute)}, now), u"Standup \u2022 in 12 min");
    EXPECT_EQ(Formatter::text({event(-5 * minute, 25 * minute)}, now),
              u"Standup \u2022 ends in 25 min");
}

TEST(MenuBarText, LooksBeyondAnyHorizon) {
    EXPECT_EQ(Formatter::text({event(20'000 * minute, 20'030 * minute)}, now),
              u"Standup \u2022 in 20000 min");
}

TEST(MenuBarText, CutsATitleOf21CharactersTo19AndAnEllipsis) {
    EXPECT_EQ(shownTitle(QString(20, u'x')), QString(20, u'x'));
    EXPECT_EQ(shownTitle(QString(21, u'x')), QString(19, u'x') + QChar(0x2026));
    EXPECT_EQ(
        Formatter::text(
            {event(12 * minute, 40 * minute, QStringLiteral("Weekly planning sync-up"))}, now),
        u"Weekly planning syn\u2026 \u2022 in 12 min");
    EXPECT_EQ(shownTitle(QString()), QString());
}

TEST(MenuBarText, IsNeverWiderThanItsWidest) {
    const UpcomingEvent meeting = event(12 * minute, 112 * minute);
    const QString widest = Formatter::widestText(meeting, now);
    EXPECT_EQ(widest, QStringLiteral(u"Standup \u2022 ends in 000 min"));
    for (Instant moment = now; moment < meeting.endDate; moment += Seconds{30.0}) {
        EXPECT_EQ(Formatter::widestText(meeting, moment), widest);
        EXPECT_LE(Formatter::text({meeting}, moment)->size(), widest.size());
    }
}

TEST(MenuBarText, IsWidestAtTheBeginningWhereItCountsDownFromAfar) {
    EXPECT_EQ(Formatter::widestText(event(10'000'000 * minute, 10'000'001 * minute), now),
              QStringLiteral(u"Standup \u2022 in 00000000 min"));
    EXPECT_EQ(Formatter::widestText(event(5 * minute, 5 * minute), now),
              QStringLiteral(u"Standup \u2022 starting now"));
}

TEST(MenuBarText, CountsCharactersAsPeopleDo) {
    const QString family = QStringLiteral(u"👨‍👩‍👧‍👦");
    const QString flag = QStringLiteral(u"🇨🇭");
    const QString accented = QStringLiteral(u"e\u0301");
    const QString syllable = QStringLiteral(u"\u1112\u1161\u11AB");
    for (const QString &character : {family, flag, accented, syllable}) {
        EXPECT_EQ(shownTitle(character.repeated(20)), character.repeated(20));
        EXPECT_EQ(shownTitle(character.repeated(25)), character.repeated(19) + QChar(0x2026));
    }
}

} // namespace
} // namespace vantrel
