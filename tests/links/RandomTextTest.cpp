#include "Scanning.h"

#include <links/LinkDetector.h>

#include <QStringList>

#include <gtest/gtest.h>

#include <random>

namespace vantrel {
namespace {

/// What links and numbers are made of, and what stands around them.
const QStringList &fragments() {
    static const QStringList all = {u"https://"_qs,
                                    u"HTTP://"_qs,
                                    u"ftp://"_qs,
                                    u"tel:"_qs,
                                    u"mailto:"_qs,
                                    u"zoom.us"_qs,
                                    u"meet.google.com"_qs,
                                    u"www."_qs,
                                    u"/j/1"_qs,
                                    u"?a=b"_qs,
                                    u"#"_qs,
                                    u"&amp;"_qs,
                                    u"&lt;"_qs,
                                    u"&#38;"_qs,
                                    u"&"_qs,
                                    u";"_qs,
                                    u"%3E"_qs,
                                    u"%3C"_qs,
                                    u"%"_qs,
                                    u"("_qs,
                                    u")"_qs,
                                    u"["_qs,
                                    u"]"_qs,
                                    u"<"_qs,
                                    u">"_qs,
                                    u"<!DOCTYPE "_qs,
                                    u"=\""_qs,
                                    u"src"_qs,
                                    u"\""_qs,
                                    u"'"_qs,
                                    u"*"_qs,
                                    u"_"_qs,
                                    u"-"_qs,
                                    u"."_qs,
                                    u","_qs,
                                    u":"_qs,
                                    u"@"_qs,
                                    u"/"_qs,
                                    u"\\"_qs,
                                    u" "_qs,
                                    u"\n"_qs,
                                    u"\r\n "_qs,
                                    u"\t"_qs,
                                    u"\u00a0"_qs,
                                    u"\u202a"_qs,
                                    u"会议"_qs,
                                    u"。"_qs,
                                    u"привет"_qs,
                                    u"é"_qs,
                                    u"\u0301"_qs,
                                    u"\U0001F600"_qs,
                                    QString(QChar(0xD83D)),
                                    QString(QChar(0xDE00)),
                                    QString(QChar(0)),
                                    u"+"_qs,
                                    u"+41"_qs,
                                    u"044"_qs,
                                    u"123 45 67"_qs,
                                    u"1"_qs,
                                    u"2024-05-13"_qs,
                                    u"10:30"_qs,
                                    u"415-555-2671"_qs,
                                    u"(0)"_qs,
                                    u",,123#"_qs,
                                    u"Meeting ID"_qs,
                                    u"Tel"_qs,
                                    u"EUR"_qs,
                                    u"a"_qs,
                                    u"com"_qs,
                                    u"md"_qs,
                                    u"例え"_qs};
    return all;
}

QString randomText(std::mt19937 &random) {
    QString text;
    const auto pieces = random() % 24;
    for (unsigned piece = 0; piece < pieces; ++piece) {
        if (random() % 8 == 0)
            text += QChar(static_cast<char16_t>(random()));
        else
            text += fragments()[static_cast<qsizetype>(random()) % fragments().size()];
    }
    return text;
}

QString decoded(QString text) {
    for (const auto &ampersand : {u"&amp;"_qs, u"&#38;"_qs})
        text.replace(ampersand, u"&"_qs);
    return text;
}

class RandomText : public testing::TestWithParam<unsigned> {};

/// A link may have lost line breaks with one blank behind each.
QString unfolded(QString text) {
    for (const auto &lineBreak :
         {u"\r\n "_qs, u"\r\n\t"_qs, u"\n "_qs, u"\n\t"_qs, u"\r\n"_qs, u"\n"_qs, u"\r"_qs})
        text.remove(lineBreak);
    return text;
}

bool standsIn(const QString &text, const QString &address) {
    QStringList written{address};
    if (address.startsWith(u"http://"_qs))
        written.append(address.mid(7));
    for (const QString &candidate : written) {
        if (text.contains(candidate) || decoded(text).contains(decoded(candidate)) ||
            decoded(unfolded(text)).contains(decoded(candidate)))
            return true;
    }
    return false;
}

TEST_P(RandomText, HoldsEveryMatchLiterallyAndInOrder) {
    std::mt19937 random(GetParam());
    const QLocale::Territory territories[] = {QLocale::AnyTerritory, QLocale::Switzerland,
                                              QLocale::Denmark, QLocale::China};
    for (int round = 0; round < 5000; ++round) {
        const QString text = randomText(random);
        SCOPED_TRACE(testing::Message()
                     << "seed " << GetParam() << ", round " << round << ": " << printable(text));
        TextScanner scanner(text, territories[round % 4]);
        qsizetype position = 0;
        while (const auto match = scanner.next()) {
            if (match->kind == TextScanner::Kind::link) {
                ASSERT_TRUE(standsIn(text, match->text)) << printable(match->text);
                continue;
            }
            position = text.indexOf(match->text, position);
            ASSERT_GE(position, 0) << printable(match->text);
            position += match->text.size();
        }
    }
}

TEST_P(RandomText, YieldsOnlyLinksOfTheWebAndNumbersThatCanBeDialled) {
    std::mt19937 random(GetParam() + 1000);
    for (int round = 0; round < 5000; ++round) {
        const QString text = randomText(random);
        SCOPED_TRACE(testing::Message()
                     << "seed " << GetParam() << ", round " << round << ": " << printable(text));
        const auto found = LinkDetector::detect(std::nullopt, std::nullopt, text);
        if (found.video) {
            ASSERT_TRUE(found.video->asVideo());
            const Url &url = found.video->asVideo()->url;
            EXPECT_TRUE(url.scheme().toLower() == u"https"_qs ||
                        url.scheme().toLower() == u"http"_qs)
                << printable(url.absoluteString());
            EXPECT_FALSE(url.host().isEmpty()) << printable(url.absoluteString());
        }
        if (found.phone) {
            ASSERT_TRUE(found.phone->asPhone());
            for (const QChar c : found.phone->asPhone()->rawNumber)
                EXPECT_FALSE(c.isLetter() || c == u',' || c == u'#' || c == u'\n');
        }
    }
}

TEST_P(RandomText, IsAnsweredTheSameASecondTime) {
    std::mt19937 random(GetParam() + 2000);
    for (int round = 0; round < 2000; ++round) {
        const QString text = randomText(random);
        const QString same(text.constData(), text.size());
        EXPECT_EQ(LinkDetector::detect(std::nullopt, text, std::nullopt),
                  LinkDetector::detect(std::nullopt, same, std::nullopt))
            << "seed " << GetParam() << ", round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomText, testing::Range(1U, 9U));

/// Nothing is measured here: work that grew faster than the text would not come to an end.
TEST(HostileText, IsScannedToItsEnd) {
    constexpr qsizetype length = 1 << 17;
    for (const char16_t *fragment : {u"(",
                                     u"[",
                                     u"<",
                                     u"a.a.a.a.",
                                     u"5",
                                     u"5 ",
                                     u"12-",
                                     u"http://",
                                     u"http://a",
                                     u"<http://a\n",
                                     u"=\"http://a\n",
                                     u"http://a(",
                                     u"http://a/(/",
                                     u"http://a......",
                                     u"a.us/(",
                                     u"ftp://a ",
                                     u"+1 ",
                                     u"+",
                                     u"+41 44 123 45 6",
                                     u"&amp;",
                                     u"&#",
                                     u"&",
                                     u"%3E",
                                     u"%3C",
                                     u"<!doctype",
                                     u"a@",
                                     u"@",
                                     u"ID 044 123 45 67 ",
                                     u"> 044 123 45 67",
                                     u"; 044 123 45 67",
                                     u"会a",
                                     u"\u0301",
                                     u"\U0001F600",
                                     u"2024-05-13 ",
                                     u"zoom.us<"}) {
        const QString one = QString::fromUtf16(fragment);
        for (const QString &text : {one.repeated(length / one.size()),
                                    u"<https://zoom.us/"_qs + one.repeated(length / one.size())}) {
            TextScanner scanner(text, QLocale::Switzerland);
            qsizetype matches = 0;
            while (scanner.next())
                ++matches;
            EXPECT_LE(matches, text.size()) << printable(one);
        }
    }
}

} // namespace
} // namespace vantrel
