#include <linux/eventstore/ical/ContentLines.h>

#include <QString>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vantrel {
namespace {

using ::testing::ElementsAre;

std::string text(QByteArrayView view) {
    return view.toByteArray().toStdString();
}

std::vector<std::string> linesOf(QByteArray bytes) {
    ContentLines lines(bytes);
    ContentLine line;
    std::vector<std::string> found;
    while (lines.next(line))
        found.push_back(std::to_string(line.number) + " " + text(line.name) + "|" +
                        text(line.parameters) + "|" + text(line.value));
    return found;
}

TEST(ContentLines, AreTakenApartIntoNameParametersAndValue) {
    EXPECT_THAT(linesOf("A:1\r\nB;X=1;Y=2:3:4\r\nC:\r\n"),
                ElementsAre("1 A||1", "2 B|X=1;Y=2|3:4", "3 C||"));
}

TEST(ContentLines, AreUnfoldedAtSpacesAndTabs) {
    EXPECT_THAT(linesOf("A:one\r\n  two\r\n\tthree\nB:x\n y\r z\r\n"),
                ElementsAre("1 A||one twothree", "4 B||xyz"));
}

TEST(ContentLines, AreUnfoldedWithinAMultibyteCharacter) {
    EXPECT_THAT(linesOf("A:\xC3\r\n \xA9\r\n"), ElementsAre("1 A||\xC3\xA9"));
}

TEST(ContentLines, KeepColonsAndSemicolonsInQuotes) {
    EXPECT_THAT(linesOf("A;X=\"a:b;c\":v\n"), ElementsAre("1 A|X=\"a:b;c\"|v"));
}

TEST(ContentLines, DoNotLoseTheValueToAQuoteThatIsNotClosed) {
    EXPECT_THAT(linesOf("A;X=\"ab:v\n"), ElementsAre("1 A|X=\"ab|v"));
}

TEST(ContentLines, WithoutColonOrNameAreCounted) {
    QByteArray bytes = "nonsense\n\n:value\nA:1\n";
    ContentLines lines(bytes);
    ContentLine line;
    while (lines.next(line)) {
    }
    EXPECT_EQ(lines.skippedLines(), 2);
}

TEST(ContentLines, AreCutAtTheirLimitWithoutBreakingACharacter) {
    QByteArray bytes = "A:" + QByteArray("\xC3\xA9").repeated(40'000) + "\nB:1\n";
    ContentLines lines(bytes);
    ContentLine line;
    ASSERT_TRUE(lines.next(line));
    EXPECT_TRUE(line.isCut);
    EXPECT_LE(line.value.size(), ContentLines::maximumLength);
    EXPECT_EQ(QString::fromUtf8(line.value.toByteArray()).toUtf8(), line.value.toByteArray());
    ASSERT_TRUE(lines.next(line));
    EXPECT_FALSE(line.isCut);
    EXPECT_EQ(text(line.value), "1");
}

TEST(ContentLines, EndWithoutALineEnd) {
    EXPECT_THAT(linesOf("A:1\nB:2"), ElementsAre("1 A||1", "2 B||2"));
    EXPECT_THAT(linesOf(""), ElementsAre());
    EXPECT_THAT(linesOf("\n\n\r\n"), ElementsAre());
}

TEST(ContentLine, FindsAParameterInWhateverCaseAndWithoutItsQuotes) {
    ContentLine line;
    const QByteArray parameters =
        "ROLE=CHAIR;tzid=\"Europe/Zurich\";CN=\"a;PARTSTAT=no\";PARTSTAT=yes";
    line.parameters = parameters;
    EXPECT_EQ(text(line.parameter("TZID")), "Europe/Zurich");
    EXPECT_EQ(text(line.parameter("PARTSTAT")), "yes");
    EXPECT_EQ(text(line.parameter("RSVP")), "");
}

} // namespace
} // namespace vantrel
