#include <app/Output.h>

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace vantrel {
namespace {

/// Every character that moves a cursor, turns text around or hides in it.
QString drivers() {
    QString all;
    for (char16_t unit = 0; unit < 0x20; ++unit)
        all += QChar(unit);
    for (char16_t unit = 0x7f; unit < 0xa0; ++unit)
        all += QChar(unit);
    for (const char16_t unit : {0xad, 0x61c, 0x200b, 0x200e, 0x200f, 0x2028, 0x2029, 0x202a, 0x202b,
                                0x202c, 0x202d, 0x202e, 0x2066, 0x2067, 0x2068, 0x2069, 0xfeff})
        all += QChar(unit);
    return all;
}

TEST(Printable, PutsASpaceInThePlaceOfWhatDrivesATerminal) {
    EXPECT_EQ(printable(drivers()), QString(drivers().size(), u' '));
}

TEST(Printable, LeavesLettersMarksAndEmojiAlone) {
    const QString text = QString::fromUtf16(
        u"Réunion \u05e9\u05dc\u05d5\u05dd \u4f1a\u8b70 👨\u200d👩\u200d👧 n\u0303 \u00a0.");
    EXPECT_EQ(printable(text), text);
}

TEST(JsonOutput, EscapesWhatDrivesATerminalAndReadsAsItWas) {
    const QString text = drivers() + QString::fromUtf16(u"é👨\u200d👩");
    const QJsonObject object{{QStringLiteral("title") + QChar(0x202e), text}};
    const QByteArray bytes = jsonOutput(object);
    EXPECT_EQ(QJsonDocument::fromJson(bytes).object(), object);
    EXPECT_TRUE(bytes.endsWith('\n'));
    for (const QChar character : QString::fromUtf8(bytes))
        EXPECT_TRUE(character == u'\n' || !drivers().contains(character))
            << static_cast<int>(character.unicode());
    EXPECT_TRUE(QString::fromUtf8(bytes).contains(QString::fromUtf16(u"é👨\u200d👩")));
}

TEST(ColorText, HasTwoDigitsForEachComponent) {
    EXPECT_EQ(colorText({0, 1, 10 / 255.0, 0.5}), QStringLiteral("#00ff0a"));
    EXPECT_EQ(colorText({-1, 2, 0.5, 1}), QStringLiteral("#00ff80"));
}

} // namespace
} // namespace vantrel
