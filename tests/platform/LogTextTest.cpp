#include <platform/LogText.h>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

QString shown(const char *text) {
    return logText(QString::fromUtf8(text));
}

TEST(LogTextTest, LeavesOrdinaryTextAsItIs) {
    for (const char *text : {"", "/home/mara/calendars/work/a b.ics", "Büro – Zürich", "日本語",
                             "مراجعة", "100 % \\ \"quoted\"", "🎉"})
        EXPECT_EQ(shown(text), QString::fromUtf8(text));
}

TEST(LogTextTest, KeepsATextOnOneLine) {
    EXPECT_EQ(shown("a\nb"), QStringLiteral("a\\x0ab"));
    EXPECT_EQ(shown("a\r\nb"), QStringLiteral("a\\x0d\\x0ab"));
    EXPECT_EQ(shown("a\u0085b"), QStringLiteral("a\\x85b"));
    EXPECT_EQ(shown("a\u2028b\u2029c"), QStringLiteral("a\\u2028b\\u2029c"));
}

TEST(LogTextTest, LeavesNothingThatDrivesATerminal) {
    EXPECT_EQ(shown("\x1b[31mred\x07"), QStringLiteral("\\x1b[31mred\\x07"));
    EXPECT_EQ(logText(QString(QChar(0))), QStringLiteral("\\x00"));
    EXPECT_EQ(shown("\u009b31m"), QStringLiteral("\\x9b31m"));
}

TEST(LogTextTest, LeavesNothingThatTurnsTheWriting) {
    EXPECT_EQ(shown("\u202egnp.exe"), QStringLiteral("\\u202egnp.exe"));
    EXPECT_EQ(shown("\u2066x\u2069"), QStringLiteral("\\u2066x\\u2069"));
}

TEST(LogTextTest, ShowsHalfACharacterByItsReplacement) {
    EXPECT_EQ(logText(QString(QChar(0xd83c))).size(), 1);
}

TEST(LogTextTest, CutsWhatIsTooLong) {
    const QString safe = logText(QString(5000, u'a'));
    EXPECT_EQ(safe, QString(1024, u'a') + QStringLiteral("…"));
}

TEST(LogTextTest, ReadsAPathAsTheSystemHasIt) {
    EXPECT_EQ(logText(QByteArray("/tmp/a\nb")), QStringLiteral("/tmp/a\\x0ab"));
}

} // namespace
} // namespace vantrel
