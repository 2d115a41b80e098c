#include <copy/TemplateCopyProvider.h>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <thread>

namespace vantrel {
namespace {

using TimeOfDay = MeetingMoment::TimeOfDay;
using DayType = MeetingMoment::DayType;
using DayPosition = MeetingMoment::DayPosition;
using GapBefore = MeetingMoment::GapBefore;
using MeetingShape = MeetingMoment::MeetingShape;
using Recurrence = MeetingMoment::Recurrence;
using LinkState = MeetingMoment::LinkState;
using Urgency = MeetingMoment::Urgency;

/// A moment that no rule of the library matches.
MeetingMoment plainMoment() {
    return {TimeOfDay::morning,      DayType::midweek,         DayPosition::middleOfDay,
            GapBefore::shortGap,     MeetingShape::smallGroup, Recurrence::recurring,
            LinkState::hasVideoLink, Urgency::normal,          QStringLiteral("Planning")};
}

std::optional<QString> first(const std::vector<QString> &variants) {
    return variants.front();
}

std::optional<QString> last(const std::vector<QString> &variants) {
    return variants.back();
}

const TemplateCopyProvider alwaysFirst(TemplateCopyProvider::defaultLibrary(), first);
const TemplateCopyProvider alwaysLast(TemplateCopyProvider::defaultLibrary(), last);

struct RuleCase {
    const char16_t *name;
    void (*apply)(MeetingMoment &);
    const char16_t *first;
    const char16_t *second;
};

const RuleCase ruleCases[] = {
    {u"joinedLate", [](MeetingMoment &moment) { moment.urgency = Urgency::joinedLate; },
     u"Already rolling \u2014 hop in.", u"Slide in quietly."},
    {u"friday-lastOfDay",
     [](MeetingMoment &moment) {
         moment.dayType = DayType::friday;
         moment.dayPosition = DayPosition::lastOfDay;
     },
     u"Last one, then the weekend.", u"Friday's home stretch."},
    {u"monday-firstOfDay",
     [](MeetingMoment &moment) {
         moment.dayType = DayType::monday;
         moment.dayPosition = DayPosition::firstOfDay;
     },
     u"Monday's first one. Tobble's got you.", u"Here we go \u2014 first of the week."},
    {u"backToBack", [](MeetingMoment &moment) { moment.gapBefore = GapBefore::backToBack; },
     u"Straight into the next one.", u"No gap \u2014 Tobble walked you over."},
    {u"onlyOfDay", [](MeetingMoment &moment) { moment.dayPosition = DayPosition::onlyOfDay; },
     u"Just the one today. Don't let it slip.", u"Only one on the books."},
    {u"firstOfDay", [](MeetingMoment &moment) { moment.dayPosition = DayPosition::firstOfDay; },
     u"First one's up.", u"Day's first meeting."},
    {u"lastOfDay", [](MeetingMoment &moment) { moment.dayPosition = DayPosition::lastOfDay; },
     u"Last one of the day.", u"Day's final meeting."},
    {u"longGap", [](MeetingMoment &moment) { moment.gapBefore = GapBefore::longGap; },
     u"Welcome back. This one's starting.", u"Back to it."},
    {u"inPersonOnly", [](MeetingMoment &moment) { moment.linkState = LinkState::inPersonOnly; },
     u"Time to head over.", u"Heading-over time."},
    {u"oneOff", [](MeetingMoment &moment) { moment.recurrence = Recurrence::oneOff; },
     u"A one-off \u2014 easy to forget. Not on Tobble's watch.",
     u"One-off \u2014 Tobble's tracking it."},
    {u"earlyMorning", [](MeetingMoment &moment) { moment.timeOfDay = TimeOfDay::earlyMorning; },
     u"Early one.", u"Up early \u2014 meeting incoming."},
    {u"evening", [](MeetingMoment &moment) { moment.timeOfDay = TimeOfDay::evening; },
     u"After-hours one.", u"Evening meeting up."},
};

class CopyRuleTest : public testing::TestWithParam<std::size_t> {
protected:
    const RuleCase &rule = ruleCases[GetParam()];
    const QString name = QString::fromUtf16(rule.name);
    const QString firstVariant = QString::fromUtf16(rule.first);
    const QString secondVariant = QString::fromUtf16(rule.second);
};

TEST_P(CopyRuleTest, StandsInItsPlaceWithItsVariants) {
    const auto &entry = TemplateCopyProvider::defaultLibrary().at(GetParam());
    EXPECT_EQ(entry.name, name);
    EXPECT_EQ(entry.variants, (std::vector{firstVariant, secondVariant}));
}

TEST_P(CopyRuleTest, SpeaksWhenItsFactsHold) {
    MeetingMoment moment = plainMoment();
    rule.apply(moment);
    ASSERT_TRUE(alwaysFirst.matchingRule(moment));
    EXPECT_EQ(alwaysFirst.matchingRule(moment)->name, name);
    EXPECT_EQ(alwaysFirst.line(moment), firstVariant);
    EXPECT_EQ(alwaysLast.line(moment), secondVariant);
}

TEST_P(CopyRuleTest, IsSilentWithoutItsFacts) {
    EXPECT_FALSE(TemplateCopyProvider::defaultLibrary()[GetParam()].matches(plainMoment()));
}

TEST_P(CopyRuleTest, WinsOverEveryLaterRule) {
    // Facts of one kind exclude each other, so the rules are met one pair at a time.
    for (std::size_t later = GetParam() + 1; later < std::size(ruleCases); ++later) {
        MeetingMoment moment = plainMoment();
        ruleCases[later].apply(moment);
        rule.apply(moment);
        ASSERT_TRUE(alwaysFirst.matchingRule(moment));
        EXPECT_EQ(alwaysFirst.matchingRule(moment)->name, name);
    }
}

INSTANTIATE_TEST_SUITE_P(AllRules, CopyRuleTest,
                         testing::Range(std::size_t{0}, std::size(ruleCases)));

QString ruleNameFor(const MeetingMoment &moment) {
    const auto *rule = alwaysFirst.matchingRule(moment);
    return rule ? rule->name : QString();
}

TEST(TemplateCopyProvider, HoldsTwelveRulesBuiltOnce) {
    EXPECT_EQ(TemplateCopyProvider::defaultLibrary().size(), 12u);
    EXPECT_EQ(&TemplateCopyProvider::defaultLibrary(), &TemplateCopyProvider::defaultLibrary());
}

TEST(TemplateCopyProvider, PutsLatenessBeforeTheEndOfTheWeek) {
    MeetingMoment moment = plainMoment();
    moment.urgency = Urgency::joinedLate;
    moment.dayType = DayType::friday;
    moment.dayPosition = DayPosition::lastOfDay;
    const TemplateCopyProvider provider;
    const std::set<QString> late{QStringLiteral("Already rolling — hop in."),
                                 QStringLiteral("Slide in quietly.")};
    for (int draw = 0; draw < 50; ++draw)
        EXPECT_TRUE(late.contains(provider.line(moment).value()));
}

TEST(TemplateCopyProvider, TakesAnOnlyMeetingByItsDay) {
    MeetingMoment moment = plainMoment();
    moment.dayPosition = DayPosition::onlyOfDay;
    moment.dayType = DayType::monday;
    EXPECT_EQ(ruleNameFor(moment), QStringLiteral("monday-firstOfDay"));
    moment.dayType = DayType::friday;
    EXPECT_EQ(ruleNameFor(moment), QStringLiteral("friday-lastOfDay"));
    moment.dayType = DayType::midweek;
    EXPECT_EQ(ruleNameFor(moment), QStringLiteral("onlyOfDay"));
    moment.dayType = DayType::weekend;
    EXPECT_EQ(ruleNameFor(moment), QStringLiteral("onlyOfDay"));
}

TEST(TemplateCopyProvider, TakesTheFirstOfSeveralOnAFridayByItsPlace) {
    MeetingMoment moment = plainMoment();
    moment.dayType = DayType::friday;
    moment.dayPosition = DayPosition::firstOfDay;
    EXPECT_EQ(ruleNameFor(moment), QStringLiteral("firstOfDay"));
}

TEST(TemplateCopyProvider, TakesTheLastOfSeveralOnAMondayByItsPlace) {
    MeetingMoment moment = plainMoment();
    moment.dayType = DayType::monday;
    moment.dayPosition = DayPosition::lastOfDay;
    EXPECT_EQ(ruleNameFor(moment), QStringLiteral("lastOfDay"));
}

TEST(TemplateCopyProvider, HasNoLineForAnOrdinaryMeeting) {
    const TemplateCopyProvider provider;
    EXPECT_EQ(provider.matchingRule(plainMoment()), nullptr);
    EXPECT_EQ(provider.line(plainMoment()), std::nullopt);
}

TEST(TemplateCopyProvider, HasNoRuleForTheOtherFacts) {
    for (const auto shape :
         {MeetingShape::oneOnOne, MeetingShape::smallGroup, MeetingShape::largeGroup})
        for (const auto day : {DayType::midweek, DayType::weekend})
            for (const auto gap : {GapBefore::shortGap, GapBefore::freshStart})
                for (const auto link :
                     {LinkState::hasVideoLink, LinkState::phoneOnly, LinkState::noDestination})
                    for (const auto time : {TimeOfDay::morning, TimeOfDay::midday,
                                            TimeOfDay::afternoon, TimeOfDay::lateAfternoon})
                        EXPECT_EQ(
                            ruleNameFor({time, day, DayPosition::middleOfDay, gap, shape,
                                         Recurrence::recurring, link, Urgency::normal, QString()}),
                            QString());
}

TEST(TemplateCopyProvider, HasNoLineWithoutRules) {
    MeetingMoment moment = plainMoment();
    moment.urgency = Urgency::joinedLate;
    EXPECT_EQ(TemplateCopyProvider(std::vector<TemplateCopyProvider::Rule>{}).line(moment),
              std::nullopt);
}

TEST(TemplateCopyProvider, HasNoLineForARuleWithoutVariants) {
    const TemplateCopyProvider provider(
        {{QStringLiteral("mute"), [](const MeetingMoment &) { return true; }, {}}});
    EXPECT_TRUE(provider.matchingRule(plainMoment()));
    EXPECT_EQ(provider.line(plainMoment()), std::nullopt);
}

TEST(TemplateCopyProvider, AsksNoRuleBehindTheFirstThatMatches) {
    bool wasAsked = false;
    const TemplateCopyProvider provider({
        {QStringLiteral("first"), [](const MeetingMoment &) { return true; }, {QString()}},
        {QStringLiteral("second"),
         [&](const MeetingMoment &) {
             wasAsked = true;
             return true;
         },
         {QString()}},
    });
    EXPECT_EQ(provider.line(plainMoment()), QString());
    EXPECT_FALSE(wasAsked);
}

TEST(TemplateCopyProvider, DrawsEachVariantAboutEquallyOften) {
    const std::vector<QString> variants{QStringLiteral("a"), QStringLiteral("b"),
                                        QStringLiteral("c")};
    constexpr int draws = 9000;
    std::map<QString, int> counts;
    for (int draw = 0; draw < draws; ++draw)
        ++counts[TemplateCopyProvider::randomElement(variants).value()];
    ASSERT_EQ(counts.size(), variants.size());
    // Ten standard deviations wide: a fair draw does not leave it in the life of this test.
    for (const auto &[variant, count] : counts)
        EXPECT_NEAR(count, draws / 3, 450) << variant.toStdString();
}

TEST(TemplateCopyProvider, DrawsOnSeveralThreadsAtOnce) {
    MeetingMoment moment = plainMoment();
    moment.urgency = Urgency::joinedLate;
    const TemplateCopyProvider provider;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int draw = 0; draw < 1000; ++draw)
                EXPECT_TRUE(provider.line(moment).has_value());
        });
    }
    for (std::thread &thread : threads)
        thread.join();
}

} // namespace
} // namespace vantrel
