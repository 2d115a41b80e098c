#include <platform/Collation.h>

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>

namespace vantrel {
namespace {

QStringList sorted(QStringList texts, const QLocale &locale) {
    const Collation collation(locale);
    std::stable_sort(texts.begin(), texts.end(), [&](const QString &left, const QString &right) {
        return collation.localizedCompare(left, right) < 0;
    });
    return texts;
}

TEST(Collation, KeepsLettersOfEitherCaseTogether) {
    EXPECT_EQ(
        sorted({QStringLiteral("Team"), QStringLiteral("home"), QStringLiteral("Birthdays")},
               QLocale(QLocale::English)),
        (QStringList{QStringLiteral("Birthdays"), QStringLiteral("home"), QStringLiteral("Team")}));
}

TEST(Collation, TellsCaseAndAccentsApartWhenNothingElseDiffers) {
    const Collation collation(QLocale(QLocale::English));
    EXPECT_LT(collation.localizedCompare(QStringLiteral("work"), QStringLiteral("Work")), 0);
    EXPECT_GT(collation.localizedCompare(QStringLiteral("Work"), QStringLiteral("work")), 0);
    EXPECT_LT(collation.localizedCompare(QStringLiteral("resume"), QStringLiteral("résumé")), 0);
    EXPECT_LT(collation.localizedCompare(QStringLiteral("résumé"), QStringLiteral("resumes")), 0);
    EXPECT_EQ(collation.localizedCompare(QStringLiteral("Work"), QStringLiteral("Work")), 0);
}

TEST(Collation, SortsAsTheLanguageDoes) {
    const QStringList words{QStringLiteral("Zürich"), QStringLiteral("Öl"), QStringLiteral("Oslo")};
    EXPECT_EQ(
        sorted(words, QLocale(QLocale::German, QLocale::Switzerland)),
        (QStringList{QStringLiteral("Öl"), QStringLiteral("Oslo"), QStringLiteral("Zürich")}));
    EXPECT_EQ(
        sorted(words, QLocale(QLocale::Swedish)),
        (QStringList{QStringLiteral("Oslo"), QStringLiteral("Zürich"), QStringLiteral("Öl")}));
}

TEST(Collation, SortsDigitsOneByOne) {
    const Collation collation(QLocale(QLocale::English));
    EXPECT_LT(collation.localizedCompare(QStringLiteral("Team 10"), QStringLiteral("Team 2")), 0);
}

TEST(Collation, SortsWithoutALanguage) {
    EXPECT_EQ(
        sorted({QStringLiteral("b"), QStringLiteral("C"), QStringLiteral("ä"), QString()},
               QLocale::c()),
        (QStringList{QString(), QStringLiteral("ä"), QStringLiteral("b"), QStringLiteral("C")}));
}

TEST(Collation, CanBeCopiedInUse) {
    const Collation first(QLocale(QLocale::Swedish));
    EXPECT_LT(first.localizedCompare(QStringLiteral("z"), QStringLiteral("ö")), 0);
    const Collation second = first;
    EXPECT_LT(second.localizedCompare(QStringLiteral("z"), QStringLiteral("ö")), 0);
}

} // namespace
} // namespace vantrel
