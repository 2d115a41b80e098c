#include "Scanning.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

struct Row {
    QLocale::Territory territory;
    const char16_t *text;
    std::vector<const char16_t *> numbers;
};

void PrintTo(const Row &row, std::ostream *out) {
    *out << QLocale::territoryToString(row.territory).toStdString() << ": "
         << printable(QString::fromUtf16(row.text).left(120));
}

class NumbersOfText : public testing::TestWithParam<Row> {};

TEST_P(NumbersOfText, AreReportedAsWritten) {
    QStringList expected;
    for (const char16_t *number : GetParam().numbers)
        expected.append(QString::fromUtf16(number));
    EXPECT_EQ(numbersIn(QString::fromUtf16(GetParam().text), GetParam().territory), expected);
}

constexpr auto anywhere = QLocale::AnyTerritory;
constexpr auto us = QLocale::UnitedStates;
constexpr auto ch = QLocale::Switzerland;
constexpr auto de = QLocale::Germany;
constexpr auto dk = QLocale::Denmark;

INSTANTIATE_TEST_SUITE_P(
    WithPlus, NumbersOfText,
    testing::Values(Row{anywhere, u"+41 44 123 45 67", {u"+41 44 123 45 67"}},
                    Row{anywhere, u"+41441234567", {u"+41441234567"}},
                    Row{anywhere, u"Call +1 (415) 555-2671 now", {u"+1 (415) 555-2671"}},
                    Row{anywhere, u"+1-415-555-2671", {u"+1-415-555-2671"}},
                    Row{anywhere, u"+1.415.555.2671.", {u"+1.415.555.2671"}},
                    Row{anywhere, u"(+44) 20 7946 0958", {u"(+44) 20 7946 0958"}},
                    Row{anywhere, u"(+44 20 7946 0958)", {u"+44 20 7946 0958"}},
                    Row{anywhere, u"+ 44 20 7946 0958", {u"+ 44 20 7946 0958"}},
                    Row{anywhere, u"+49 (0)30 1234567", {u"+49 (0)30 1234567"}},
                    Row{anywhere, u"+49 30 / 123 45 67", {u"+49 30 / 123 45 67"}},
                    Row{anywhere, u"+33 1 23 45 67 89", {u"+33 1 23 45 67 89"}},
                    Row{anywhere, u"+39 06 698 12345", {u"+39 06 698 12345"}},
                    Row{anywhere, u"+81 3-1234-5678", {u"+81 3-1234-5678"}},
                    Row{anywhere, u"+86 138 1234 5678", {u"+86 138 1234 5678"}},
                    Row{anywhere, u"+800 1234 5678", {u"+800 1234 5678"}},
                    Row{anywhere, u"Tel:+41 44 123 45 67", {u"+41 44 123 45 67"}},
                    Row{anywhere, u"tel:+14155552671", {u"+14155552671"}},
                    Row{anywhere, u"电话+86 10 6552 9988请拨打", {u"+86 10 6552 9988"}},
                    Row{anywhere,
                        u"\u202a(US) +1 415-555-2671\u202c PIN: \u202a123 456 789\u202c#",
                        {u"+1 415-555-2671"}},
                    Row{anywhere,
                        u"+1 415-555-2671 or +44 20 7946 0958",
                        {u"+1 415-555-2671", u"+44 20 7946 0958"}},
                    Row{anywhere,
                        u"+1 415-555-2671/+44 20 7946 0958",
                        {u"+1 415-555-2671", u"+44 20 7946 0958"}},
                    Row{anywhere,
                        u"+41\u00a044\u00a0123\u00a045\u00a067",
                        {u"+41\u00a044\u00a0123\u00a045\u00a067"}},
                    Row{anywhere, u"+41 44 123 45 67 - 2024-05-13 10:00", {u"+41 44 123 45 67"}},
                    Row{anywhere, u"+41 44 123 45 67 10:00", {u"+41 44 123 45 67"}}));

INSTANTIATE_TEST_SUITE_P(
    DialIns, NumbersOfText,
    testing::Values(
        Row{anywhere, u"+1 415-555-2671,,123456#", {u"+1 415-555-2671"}},
        Row{anywhere, u"+14155552671,,87349291234#,,,,*123456# US (San Jose)", {u"+14155552671"}},
        Row{anywhere, u"+41 44 555 12 34,,123456789#   Switzerland, Zürich", {u"+41 44 555 12 34"}},
        Row{anywhere, u"+1 (415) 555-2671 ext. 1234", {u"+1 (415) 555-2671"}},
        Row{anywhere, u"+1 415 555 2671;ext=1234", {u"+1 415 555 2671"}},
        Row{us, u"415-555-2671,,123456#", {u"415-555-2671"}},
        Row{us, u"415-555-2671x1234", {u"415-555-2671"}},
        Row{us, u"415-555-2671 ext 1234", {u"415-555-2671"}},
        Row{us, u"Dial 415-555-2671, PIN 123 456 7890#", {u"415-555-2671"}}));

INSTANTIATE_TEST_SUITE_P(
    NoNumberOfItsCountry, NumbersOfText,
    testing::Values(Row{anywhere, u"+1 ", {}}, Row{anywhere, u"+1 23", {}},
                    Row{anywhere, u"+999 123 456 789", {}}, Row{anywhere, u"+41 44 123", {}},
                    Row{anywhere, u"+41 44 123 45 67 89 01 23 45 67", {u"+41 44 123 45 67"}},
                    Row{anywhere, u"+414412345678901234", {}},
                    Row{anywhere, u"+1 115 555 2671", {}}, Row{anywhere, u"C++11 1234567", {}},
                    Row{anywhere, u"GMT+0200", {}}, Row{anywhere, u"10:00:00+02:00", {}},
                    Row{anywhere, u"UTC+1 2024-05-13 10", {}}, Row{anywhere, u"3+41441234567", {}},
                    Row{anywhere, u"i++41441234567", {}}, Row{anywhere, u"+43 1110", {}},
                    Row{anywhere, u"+41441234567@sip.example.com", {}}));

INSTANTIATE_TEST_SUITE_P(
    InsideTheCountry, NumbersOfText,
    testing::Values(
        Row{us, u"(415) 555-2671", {u"(415) 555-2671"}},
        Row{us, u"((415) 555-2671)", {u"(415) 555-2671"}},
        Row{us, u"415-555-2671", {u"415-555-2671"}}, Row{us, u"415.555.2671", {u"415.555.2671"}},
        Row{us, u"1-415-555-2671", {u"1-415-555-2671"}},
        Row{us, u"1 (800) 555-0199", {u"1 (800) 555-0199"}},
        Row{us, u"011 41 44 123 45 67", {u"011 41 44 123 45 67"}},
        Row{us, u"4155552671", {u"4155552671"}}, Row{us, u" 4155552671\n", {u"4155552671"}},
        Row{us, u"Phone: 4155552671", {u"4155552671"}}, Row{us, u"see 4155552671", {}},
        Row{us, u"044 123 45 67", {}}, Row{anywhere, u"(415) 555-2671", {u"(415) 555-2671"}},
        Row{ch, u"044 123 45 67", {u"044 123 45 67"}}, Row{ch, u"0441234567", {u"0441234567"}},
        Row{ch, u"(044) 123 45 67", {u"(044) 123 45 67"}},
        Row{ch, u"(044 123 45 67)", {u"044 123 45 67"}},
        Row{ch, u"044/123 45 67", {u"044/123 45 67"}},
        Row{ch, u"044 / 123 45 67", {u"044 / 123 45 67"}},
        Row{ch, u"0041 44 123 45 67", {u"0041 44 123 45 67"}},
        Row{ch, u"079 123 45 67 / 044 123 45 67", {u"079 123 45 67", u"044 123 45 67"}},
        Row{ch, u"Tel. Nr. 044 123 45 67", {u"044 123 45 67"}},
        Row{ch, u"13.05.2024 044 123 45 67", {u"044 123 45 67"}},
        Row{ch, u"044 123 45 67 10:00", {u"044 123 45 67"}}, Row{ch, u"44 123 45 67", {}},
        Row{ch, u"(415) 555-2671", {}}, Row{ch, u"- 044 123 45 67", {u"044 123 45 67"}},
        Row{ch, u"+ 044 123 45 67", {u"044 123 45 67"}},
        Row{de, u"030 - 1234567", {u"030 - 1234567"}},
        Row{de, u"Meeting number: 2634 567 8901", {}},
        Row{de, u"Telefonnummer 030/1234567", {u"030/1234567"}},
        Row{dk, u"32 12 34 56", {u"32 12 34 56"}}, Row{dk, u"32123456", {u"32123456"}},
        Row{QLocale::UnitedKingdom, u"020 7946 0958", {u"020 7946 0958"}},
        Row{QLocale::France, u"01 23 45 67 89", {u"01 23 45 67 89"}},
        Row{QLocale::Spain, u"912 34 56 78", {u"912 34 56 78"}},
        Row{QLocale::Italy, u"06 698 12345", {u"06 698 12345"}},
        Row{QLocale::Japan, u"03-1234-5678", {u"03-1234-5678"}},
        Row{QLocale::China, u"电话：138 1234 5678", {u"138 1234 5678"}},
        Row{QLocale::China, u"会议号：138 1234 5678", {}},
        Row{QLocale::India, u"98765 43210", {u"98765 43210"}},
        Row{QLocale::Brazil, u"(11) 91234-5678", {u"(11) 91234-5678"}},
        Row{QLocale::Russia, u"8 (495) 123-45-67", {u"8 (495) 123-45-67"}},
        Row{QLocale::Australia, u"(02) 9374 4000", {u"(02) 9374 4000"}}));

INSTANTIATE_TEST_SUITE_P(
    Labels, NumbersOfText,
    testing::Values(
        Row{us, u"Customer service: 415-555-2671", {u"415-555-2671"}},
        Row{us, u"Customer number: 415-555-2671", {}},
        Row{us, u"Reservations: (415) 555-2671", {u"(415) 555-2671"}},
        Row{us, u"Reservation no. 415-555-2671", {}},
        Row{us, u"Account manager: 415-555-2671", {u"415-555-2671"}},
        Row{us, u"Phone number: 4155552671", {u"4155552671"}},
        Row{us, u"Meeting ID 12, phone 415-555-2671", {u"415-555-2671"}},
        Row{us, u"PIN: 1234 415-555-2671", {}},
        Row{us, u"Your ID, then 415-555-2671", {u"415-555-2671"}},
        Row{us, u"Meeting ID:\nOffice 415-555-2671", {u"415-555-2671"}},
        Row{us, u"ID: <span style=\"font-size: large; color: dark\">415-555-2671</span>", {}},
        Row{us, u"ID:&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;415-555-2671", {}},
        Row{us, u"a > b; 415-555-2671", {u"415-555-2671"}},
        Row{us, u"Passcode\n415-555-2671", {u"415-555-2671"}},
        Row{ch, u"Kundendienst 044 123 45 67", {u"044 123 45 67"}},
        Row{ch, u"Vertragsnummer 044 123 45 67", {}},
        Row{ch, u"<td>Tel</td><td>044 123 45 67</td>", {u"044 123 45 67"}},
        Row{dk, u"Tlf. 32123456", {u"32123456"}}, Row{dk, u"Ring 32123456", {u"32123456"}},
        Row{QLocale::Japan, u"携帯番号：090-1234-5678", {u"090-1234-5678"}},
        Row{QLocale::Japan, u"会議番号：090-1234-5678", {}}));

INSTANTIATE_TEST_SUITE_P(
    OtherDigits, NumbersOfText,
    testing::Values(
        Row{us, u"Meeting ID: 873 4929 1234", {}}, Row{us, u"Meeting ID: 873 492 1234", {}},
        Row{us, u"Meeting ID:\n873 492 1234", {}}, Row{us, u"Meeting ID: <b>873 492 1234</b>", {}},
        Row{us, u"Meeting ID:&nbsp;873 492 1234", {}}, Row{us, u"ID de reunión: 873 492 1234", {}},
        Row{us, u"Meeting number (access code): 873 492 1234", {}},
        Row{us, u"Phone conference ID: 873 492 123#", {}}, Row{us, u"Passcode: 123456", {}},
        Row{us, u"Passcode: 415 555 2671", {}}, Row{us, u"415 555 2671#", {}},
        Row{us, u"415 555 2671 #", {}}, Row{us, u",,4155552671#", {}},
        Row{us, u"Order 415-555-2671", {}}, Row{us, u"Order no. 4155552671", {}},
        Row{us, u"Ticket #4155552671", {}}, Row{us, u"Confirmation number: 415-555-2671", {}},
        Row{us, u"2024-05-13 10:00", {}}, Row{us, u"2024-05-13 10", {}},
        Row{us, u"2024 10 11 12", {}}, Row{us, u"41 55 55 26 71", {}}, Row{us, u"415 5 552671", {}},
        Row{us, u"20240513T100000Z", {}}, Row{us, u"05/13/2024 10:30-11:30", {}},
        Row{us, u"10:00 - 11:00", {}}, Row{us, u"$4,155,552,671", {}},
        Row{us, u"USD 415 555 2671", {}}, Row{us, u"415 555 2671 €", {}},
        Row{us, u"415 555 2671.50", {}}, Row{us, u"415 555 2671,50", {}},
        Row{us, u"1-415-555-2671-99", {}}, Row{us, u"abc415-555-2671", {}},
        Row{us, u"415-555-2671abc", {}}, Row{us, u"v415.555.2671", {}},
        Row{us, u"a_415-555-2671", {}}, Row{us, u"415-555-2671@example.com", {}},
        Row{us, u"x=415-555-2671", {}}, Row{us, u"/415-555-2671/", {}},
        Row{us, u"4111 1111 1111 1111", {}}, Row{us, u"978-3-16-148410-0", {}},
        Row{us, u"415-555-2671-415-555-2671", {}},
        Row{us, u"123e4567-e89b-12d3-a456-426614174000", {}}, Row{ch, u"13.05.2024", {}},
        Row{ch, u"Kundennummer 044 123 45 67", {}}, Row{ch, u"CH93 0076 2011 6238 5295 7", {}},
        Row{ch, u"1'044'123'456", {}}, Row{dk, u"192.168.100.20", {}}, Row{dk, u"20.30.40.50", {}},
        Row{dk, u"2024-05-13", {}}, Row{dk, u"21.05.2024", {}}, Row{dk, u"2023-2024", {}},
        Row{dk, u"Ordre 32123456 er klar", {}}, Row{dk, u"kr 32 123 456", {}},
        Row{dk, u"32 123 456 kr", {}}, Row{dk, u"32 12 34 56,75", {}}));

INSTANTIATE_TEST_SUITE_P(
    InLinks, NumbersOfText,
    testing::Values(Row{us, u"https://zoom.us/j/4155552671", {}},
                    Row{us, u"https://zoom.us/j/1?tel=+14155552671", {}},
                    Row{us, u"https://zoom.us/j/415-555-2671 415-555-2672", {u"415-555-2672"}},
                    Row{us, u"415-555-2672<https://zoom.us/j/415-555-2671>", {u"415-555-2672"}},
                    Row{us, u"zoom.us/j/415-555-2671", {}},
                    Row{us, u"sip:415-555-2671@zoomcrc.com", {}},
                    Row{us, u"<img src=\"https://a.example/415-555-2671\">", {}},
                    Row{us, u"<a href=\"tel:+14155552671\">call</a>", {u"+14155552671"}},
                    Row{us,
                        u"+1 415-555-2671,,123#<tel:+14155552671,,123#>",
                        {u"+1 415-555-2671", u"+14155552671"}}));

TEST(PhoneRecognition, FindsNumbersAndLinksInTheOrderOfTheText) {
    TextScanner scanner(u"+41 44 123 45 67 https://zoom.us/j/1 +41 44 123 45 68"_qs, anywhere);
    QStringList texts;
    while (const auto match = scanner.next())
        texts.append(match->text);
    EXPECT_EQ(texts, QStringList({u"+41 44 123 45 67"_qs, u"https://zoom.us/j/1"_qs,
                                  u"+41 44 123 45 68"_qs}));
}

} // namespace
} // namespace vantrel
