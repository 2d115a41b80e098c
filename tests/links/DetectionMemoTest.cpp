#include "Scanning.h"

#include <links/DetectionMemo.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace vantrel {
namespace {

using Detection = LinkDetector::Detection;
using Text = std::optional<QString>;

constexpr auto territory = QLocale::Switzerland;
const std::optional<Url> noUrl;
const Text noText;

Detection found(int number) {
    return {std::nullopt, MeetingLink::phone(QString::number(number))};
}

/// A text that shares nothing with another one of the same content.
QString copyOf(const QString &text) {
    return QString(text.constData(), text.size());
}

QString notes(int number, qsizetype length = 2000) {
    return QString(length, u'-') + QString::number(number) + QString(length, u'-');
}

TEST(DetectionMemo, KnowsNothingAtFirst) {
    DetectionMemo memo;
    EXPECT_FALSE(memo.find({noUrl, noText, noText, territory}));
    EXPECT_EQ(memo.size(), 0U);
}

TEST(DetectionMemo, FindsWhatItWasGivenBySharedAndByEqualTexts) {
    DetectionMemo memo;
    const Text text = notes(1);
    memo.add({noUrl, noText, text, territory}, found(1));
    EXPECT_EQ(memo.find({noUrl, noText, text, territory}), found(1));
    EXPECT_EQ(memo.find({noUrl, noText, copyOf(*text), territory}), found(1));
}

TEST(DetectionMemo, TellsInputsApart) {
    DetectionMemo memo;
    const std::optional<Url> url = Url::fromString(u"https://zoom.us/j/1"_qs);
    const Text text = u"https://zoom.us/j/1"_qs;
    const Text empty = QString();
    const DetectionMemo::Inputs all[] = {
        {noUrl, noText, noText, territory}, {url, noText, noText, territory},
        {noUrl, text, noText, territory},   {noUrl, noText, text, territory},
        {url, text, text, territory},       {url, text, noText, territory},
        {noUrl, empty, noText, territory},  {noUrl, text, noText, QLocale::France},
    };
    int number = 0;
    for (const auto &inputs : all)
        memo.add(inputs, found(number++));
    EXPECT_EQ(memo.size(), std::size(all));
    number = 0;
    for (const auto &inputs : all)
        EXPECT_EQ(memo.find(inputs), found(number++));
}

TEST(DetectionMemo, TellsTextsApartThatDifferWhereTheHashDoesNotLook) {
    DetectionMemo memo;
    std::vector<Text> texts;
    for (qsizetype position = 0; position < 300; ++position) {
        QString text(300, u'a');
        text[position] = u'b';
        texts.emplace_back(text);
        memo.add({noUrl, noText, texts.back(), territory}, found(static_cast<int>(position)));
    }
    for (std::size_t index = 0; index < texts.size(); ++index)
        EXPECT_EQ(memo.find({noUrl, noText, texts[index], territory}),
                  found(static_cast<int>(index)));
}

TEST(DetectionMemo, KeepsACopyOfATextThatDoesNotOwnItsCharacters) {
    DetectionMemo memo;
    QChar characters[] = {u'a', u'b', u'c'};
    memo.add({noUrl, noText, QString::fromRawData(characters, 3), territory}, found(1));
    characters[0] = u'x';
    EXPECT_FALSE(memo.find({noUrl, noText, QString::fromRawData(characters, 3), territory}));
    EXPECT_EQ(memo.find({noUrl, noText, u"abc"_qs, territory}), found(1));
}

TEST(DetectionMemo, DropsTextsThatNobodyElseHolds) {
    DetectionMemo memo({.mostAlone = 100'000, .most = 10'000'000, .tidiedEvery = 16});
    for (int number = 0; number < 1024; ++number)
        memo.add({noUrl, noText, notes(number), territory}, found(number));
    EXPECT_LT(memo.bytes(), 300'000U);
    EXPECT_GT(memo.size(), 0U);
}

TEST(DetectionMemo, KeepsTextsThatTheCalendarHolds) {
    DetectionMemo memo({.mostAlone = 0, .most = 10'000'000, .tidiedEvery = 16});
    std::vector<Text> held;
    for (int number = 0; number < 512; ++number) {
        held.emplace_back(notes(number));
        memo.add({noUrl, noText, held.back(), territory}, found(number));
    }
    for (int number = 0; number < 512; ++number)
        EXPECT_EQ(memo.find({noUrl, noText, held[static_cast<std::size_t>(number)], territory}),
                  found(number));
}

TEST(DetectionMemo, TakesOverATextThatTheCalendarHasReadAgain) {
    DetectionMemo memo;
    Text text = notes(1);
    memo.add({noUrl, noText, text, territory}, found(1));
    const Text again = copyOf(*text);
    text.reset();
    EXPECT_TRUE(again->isDetached());
    EXPECT_EQ(memo.find({noUrl, noText, again, territory}), found(1));
    EXPECT_FALSE(again->isDetached());
    EXPECT_EQ(memo.find({noUrl, noText, again, territory}), found(1));
}

TEST(DetectionMemo, NeverGrowsBeyondItsLimit) {
    DetectionMemo memo({.mostAlone = 0, .most = 1'000'000, .tidiedEvery = 16});
    std::vector<Text> held;
    for (int number = 0; number < 1024; ++number) {
        held.emplace_back(notes(number));
        memo.add({noUrl, noText, held.back(), territory}, found(number));
        ASSERT_LE(memo.bytes(), 1'000'000U);
    }
    memo.add({noUrl, noText, notes(1, 1'000'000), territory}, found(1));
    EXPECT_LE(memo.bytes(), 1'000'000U);
}

TEST(DetectionMemo, AnswersManyThreadsAtOnce) {
    DetectionMemo memo({.mostAlone = 50'000, .most = 500'000, .tidiedEvery = 8});
    const auto work = [&memo] {
        for (int round = 0; round < 2000; ++round) {
            const int number = round % 200;
            const Text text = notes(number, 100);
            const auto known = memo.find({noUrl, noText, text, territory});
            if (known)
                EXPECT_EQ(*known, found(number));
            else
                memo.add({noUrl, noText, text, territory}, found(number));
        }
    };
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back(work);
}

} // namespace
} // namespace vantrel
