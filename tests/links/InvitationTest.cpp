#include "Scanning.h"

#include <links/LinkDetector.h>

#include <gtest/gtest.h>

#include <ostream>

namespace vantrel {
namespace {

using VideoProvider = MeetingLink::VideoProvider;

/// One invitation as it arrives, and what is to be found in it. Empty texts stand for nothing.
struct Invitation {
    const char *name;
    QLocale::Territory territory;
    const char16_t *location;
    const char16_t *notes;
    std::optional<VideoProvider> provider;
    const char16_t *link;
    const char16_t *number;
};

void PrintTo(const Invitation &invitation, std::ostream *out) {
    *out << invitation.name;
}

class InvitationText : public testing::TestWithParam<Invitation> {};

TEST_P(InvitationText, YieldsItsWaysIn) {
    const Invitation &row = GetParam();
    const LocaleGuard locale(QLocale(QLocale::AnyLanguage, row.territory));
    const auto found = LinkDetector::detect(std::nullopt, QString::fromUtf16(row.location),
                                            QString::fromUtf16(row.notes));
    ASSERT_EQ(found.video.has_value(), row.provider.has_value());
    if (row.provider) {
        EXPECT_EQ(found.video->asVideo()->provider, *row.provider);
        EXPECT_EQ(found.video->asVideo()->url.absoluteString(), QString::fromUtf16(row.link));
    }
    EXPECT_EQ(found.phone ? found.phone->asPhone()->rawNumber : QString(),
              QString::fromUtf16(row.number));
}

constexpr auto us = QLocale::UnitedStates;
constexpr auto ch = QLocale::Switzerland;
constexpr auto de = QLocale::Germany;
constexpr auto gb = QLocale::UnitedKingdom;
constexpr auto fr = QLocale::France;
constexpr auto jp = QLocale::Japan;
constexpr auto cn = QLocale::China;

constexpr auto zoom = VideoProvider::zoom;
constexpr auto meet = VideoProvider::googleMeet;
constexpr auto teams = VideoProvider::microsoftTeams;
constexpr auto webex = VideoProvider::webex;
constexpr auto generic = VideoProvider::generic;

std::string nameOf(const testing::TestParamInfo<Invitation> &info) {
    return info.param.name;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Zoom, InvitationText, testing::Values(
    Invitation{"Plain", us, u"",
        u"Ana is inviting you to a scheduled Zoom meeting.\n\nJoin Zoom Meeting\n"
        u"https://us02web.zoom.us/j/87349291234?pwd=Zm9vYmFyYmF6.1\n\nMeeting ID: 873 4929 1234\n"
        u"Passcode: 482913\n\n---\n\nOne tap mobile\n+14155552671,,87349291234#,,,,*482913# US (San Jose)\n",
        zoom, u"https://us02web.zoom.us/j/87349291234?pwd=Zm9vYmFyYmF6.1", u"+14155552671"},
    Invitation{"DialInByLocation", us, u"",
        u"Dial by your location\n• +1 312 626 6799 US (Chicago)\n• +44 203 481 5237 United Kingdom\n"
        u"Meeting ID: 873 4929 1234\nFind your local number: https://us02web.zoom.us/u/kabc\n",
        zoom, u"https://us02web.zoom.us/u/kabc", u"+1 312 626 6799"},
    Invitation{"InLocation", ch, u"https://zoom.us/j/123456789", u"No agenda.", zoom,
        u"https://zoom.us/j/123456789", u""},
    Invitation{"BareHostInLocation", ch, u"zoom.us/j/123456789", u"", zoom,
        u"http://zoom.us/j/123456789", u""},
    Invitation{"UpperCase", ch, u"HTTPS://ZOOM.US/J/1", u"", zoom, u"HTTPS://ZOOM.US/J/1", u""},
    Invitation{"Personal", us, u"Zoom: https://acme.zoom.us/my/jane.doe.", u"", zoom,
        u"https://acme.zoom.us/my/jane.doe", u""},
    Invitation{"HtmlAnchor", us, u"",
        u"<p>Join: <a href=\"https://acme.zoom.us/j/1?pwd=a&amp;from=addon\">https://acme.zoom.us/j/1?pwd=a&amp;from=addon</a></p>",
        zoom, u"https://acme.zoom.us/j/1?pwd=a&from=addon", u""},
    Invitation{"MeetingIdThatIsAValidNumber", us, u"",
        u"https://zoom.us/j/8734921234\nMeeting ID: 873 492 1234\nPasscode: 415 555 2671", zoom,
        u"https://zoom.us/j/8734921234", u""},
    Invitation{"SpanishLabels", us, u"",
        u"Unirse a la reunión Zoom\nhttps://us06web.zoom.us/j/1\n\nID de reunión: 873 492 1234\nCódigo de acceso: 415 555 2671",
        zoom, u"https://us06web.zoom.us/j/1", u""},
    Invitation{"GermanLabels", de, u"",
        u"Zoom-Meeting beitreten\nhttps://us06web.zoom.us/j/1\nMeeting-ID: 0873 4929 1234\nKenncode: 030 123456\nEinwahl: 030 1234567",
        zoom, u"https://us06web.zoom.us/j/1", u"030 1234567"},
    Invitation{"SipAndH323", us, u"",
        u"Join by SIP\n87349291234@zoomcrc.com\nJoin by H.323\n162.255.37.11 (US West)\n213.19.144.110 (Amsterdam)\nhttps://zoom.us/j/87349291234",
        zoom, u"https://zoom.us/j/87349291234", u""},
    Invitation{"LostLineBreaks", us, u"",
        u"Join Zoom Meetinghttps://zoom.us/j/1?pwd=aMeeting ID: 873 4929 1234", zoom,
        u"https://zoom.us/j/1?pwd=aMeeting", u""},
    Invitation{"EscapedLineBreaks", us, u"",
        u"Join Zoom Meeting\\nhttps://zoom.us/j/1\\nMeeting ID: 873 4929 1234", zoom,
        u"https://zoom.us/j/1", u""},
    Invitation{"DesktopAppLinkFirst", us, u"",
        u"zoommtg://zoom.us/join?confno=1\nor https://zoom.us/j/1", zoom, u"https://zoom.us/j/1", u""}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Meet, InvitationText, testing::Values(
    Invitation{"Footer", us, u"",
        u"-::~:~::~:~:~:~:~:~:~:~:~:~:~:~:~:~:~:~::~:~::-\nJoin with Google Meet: https://meet.google.com/abc-defg-hij\n"
        u"Or dial: (US) +1 415-555-2671 PIN: 123456789#\nMore phone numbers: https://tel.meet/abc-defg-hij?pin=1234567890123&hs=7\n\n"
        u"Learn more about Meet at: https://support.google.com/a/users/answer/9282720\n\nPlease do not edit this section.\n-::~:~::~:~:~:~::-",
        meet, u"https://meet.google.com/abc-defg-hij", u"+1 415-555-2671"},
    Invitation{"DirectionMarks", us, u"",
        u"Join by phone\n\u202a(US) +1 415-555-2671\u202c PIN: \u202a123 456 789\u202c#\nhttps://meet.google.com/abc-defg-hij",
        meet, u"https://meet.google.com/abc-defg-hij", u"+1 415-555-2671"},
    Invitation{"BareHost", us, u"meet.google.com/abc-defg-hij", u"", meet,
        u"http://meet.google.com/abc-defg-hij", u""},
    Invitation{"HtmlWithBareText", us, u"",
        u"Join: <a href=\"https://meet.google.com/abc-defg-hij?hs=1&amp;authuser=0\">meet.google.com/abc-defg-hij</a>",
        meet, u"https://meet.google.com/abc-defg-hij?hs=1&authuser=0", u""},
    Invitation{"RedirectIsGeneric", us, u"",
        u"<a href=\"https://www.google.com/url?q=https://meet.google.com/abc&amp;sa=D\">join</a>",
        generic, u"https://www.google.com/url?q=https://meet.google.com/abc&sa=D", u""},
    Invitation{"AgendaDocumentFirst", us, u"",
        u"Notes: https://docs.google.com/document/d/1AbC_dEf/edit\nJoin: https://meet.google.com/abc-defg-hij",
        generic, u"https://docs.google.com/document/d/1AbC_dEf/edit", u""}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Teams, InvitationText, testing::Values(
    Invitation{"OutlookPlain", ch, u"Microsoft Teams Meeting",
        u"________________________________________________________________________________\nMicrosoft Teams meeting\n"
        u"Join on your computer, mobile app or room device\n"
        u"Click here to join the meeting<https://teams.microsoft.com/l/meetup-join/19%3ameeting_MDAw%40thread.v2/0?context=%7b%22Tid%22%3a%22a%22%2c%22Oid%22%3a%22b%22%7d>\n"
        u"Meeting ID: 312 345 678 901\nPasscode: aB3dE4\nDownload Teams<https://www.microsoft.com/en-us/microsoft-teams/download-app>\n"
        u"Or call in (audio only)\n+41 44 555 12 34,,123456789#<tel:+41445551234,,123456789#>   Switzerland, Zürich\n"
        u"Phone Conference ID: 123 456 789#\n",
        teams,
        u"https://teams.microsoft.com/l/meetup-join/19%3ameeting_MDAw%40thread.v2/0?context=%7b%22Tid%22%3a%22a%22%2c%22Oid%22%3a%22b%22%7d",
        u"+41 44 555 12 34"},
    Invitation{"FoldedInAngleBrackets", ch, u"",
        u"Join<https://teams.microsoft.com/l/meetup-join/19%3ameeting_MDAwMDAwMDAtMDAwMC0wMD\n AwLTAwMDAtMDAwMDAwMDAwMDAw%40thread.v2/0?context=%7b%7d> now",
        teams,
        u"https://teams.microsoft.com/l/meetup-join/19%3ameeting_MDAwMDAwMDAtMDAwMC0wMDAwLTAwMDAtMDAwMDAwMDAwMDAw%40thread.v2/0?context=%7b%7d",
        u""},
    Invitation{"Consumer", us, u"https://teams.live.com/meet/9876543210?p=abc", u"", teams,
        u"https://teams.live.com/meet/9876543210?p=abc", u""},
    Invitation{"Html", us, u"",
        u"<html xmlns:v=\"urn:schemas-microsoft-com:vml\" xmlns=\"http://www.w3.org/TR/REC-html40\"><body>"
        u"<img src=\"https://acme.example/logo.png\" alt=\"\"><a href=\"https://teams.microsoft.com/l/meetup-join/1?a=1&amp;b=2\">Join</a>"
        u"<a href=\"tel:+14155552671,,123#\">+1 415-555-2671,,123#</a></body></html>",
        teams, u"https://teams.microsoft.com/l/meetup-join/1?a=1&b=2", u"+14155552671"},
    Invitation{"Doctype", us, u"",
        u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\" \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\">"
        u"<a href='https://teams.microsoft.com/l/meetup-join/1'>Join</a>",
        teams, u"https://teams.microsoft.com/l/meetup-join/1", u""},
    Invitation{"SafeLinkIsGeneric", us, u"",
        u"<https://eur01.safelinks.protection.outlook.com/?url=https%3A%2F%2Fteams.microsoft.com%2Fl%2F1&data=05%7C01&reserved=0>",
        generic,
        u"https://eur01.safelinks.protection.outlook.com/?url=https%3A%2F%2Fteams.microsoft.com%2Fl%2F1&data=05%7C01&reserved=0",
        u""},
    Invitation{"EscapedCloser", us, u"", u"https://teams.microsoft.com/l/meetup-join/1?context=%7b%7d%3E", teams,
        u"https://teams.microsoft.com/l/meetup-join/1?context=%7b%7d", u""},
    Invitation{"GermanCallIn", de, u"",
        u"Oder einwählen (nur Audio)\n+49 69 1234 5678,,987654321#   Germany, Frankfurt am Main\nTelefonkonferenz-ID: 987 654 321#\nhttps://teams.microsoft.com/l/meetup-join/1",
        teams, u"https://teams.microsoft.com/l/meetup-join/1", u"+49 69 1234 5678"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Webex, InvitationText, testing::Values(
    Invitation{"Invitation", us, u"https://acme.webex.com/acme/j.php?MTID=m0123456789abcdef",
        u"Meeting number (access code): 2634 567 8901\nMeeting password: pAs5w0rd\n"
        u"Join by phone\n+1-415-655-0001 US Toll\nTap to join from a mobile device (attendees only)\n+1-415-655-0001,,26345678901## US Toll",
        webex, u"https://acme.webex.com/acme/j.php?MTID=m0123456789abcdef", u"+1-415-655-0001"},
    Invitation{"PersonalRoom", us, u"", u"My room (acme.webex.com/meet/jane), as usual.", webex,
        u"http://acme.webex.com/meet/jane", u""},
    Invitation{"VideoSystem", us, u"",
        u"Dial 26345678901@acme.webex.com or 173.243.2.68 and enter your meeting number.", std::nullopt, u"", u""},
    Invitation{"LocationBeforeTeamsInNotes", us, u"https://acme.webex.com/meet/jane",
        u"https://teams.microsoft.com/l/meetup-join/1", webex, u"https://acme.webex.com/meet/jane", u""}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(OtherServices, InvitationText, testing::Values(
    Invitation{"Jitsi", us, u"https://meet.jit.si/DailyStandup", u"", generic, u"https://meet.jit.si/DailyStandup", u""},
    Invitation{"Whereby", us, u"whereby.com/acme-room", u"", generic, u"http://whereby.com/acme-room", u""},
    Invitation{"BigBlueButton", de, u"", u"Raum: https://bbb.uni.example/b/ann-abc-xyz?lang=de#x, bitte pünktlich.", generic,
        u"https://bbb.uni.example/b/ann-abc-xyz?lang=de#x", u""},
    Invitation{"OwnPort", de, u"", u"<https://meet.intern.example:8443/room;v=2>", generic,
        u"https://meet.intern.example:8443/room;v=2", u""},
    Invitation{"MarkdownLink", us, u"", u"Join [here](https://chime.example/1234567890) or **dial in**.", generic,
        u"https://chime.example/1234567890", u""},
    Invitation{"WikiPageInBrackets", gb, u"", u"(see https://wiki.example/Call_(2024)) for details", generic,
        u"https://wiki.example/Call_(2024)", u""}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(OtherLanguages, InvitationText, testing::Values(
    Invitation{"ChineseAround", cn, u"", u"会议链接：https://zoom.us/j/1，请准时参加。会议号：138 1234 5678", zoom,
        u"https://zoom.us/j/1", u""},
    Invitation{"ChineseGlued", cn, u"", u"请点击https://zoom.us/j/123加入会议，电话：010-6552-9988", zoom,
        u"https://zoom.us/j/123", u"010-6552-9988"},
    Invitation{"ChineseMobile", cn, u"", u"联系人手机13812345678。", std::nullopt, u"", u"13812345678"},
    Invitation{"JapaneseAround", jp, u"", u"【Web会議】「https://meet.google.com/abc-defg-hij」からご参加ください。電話：03-1234-5678", meet,
        u"https://meet.google.com/abc-defg-hij", u"03-1234-5678"},
    Invitation{"JapaneseMeetingId", jp, u"", u"ミーティングID: 090 1234 5678 パスコード: 123456", std::nullopt, u"", u""},
    Invitation{"KoreanParticle", QLocale::SouthKorea, u"", u"https://zoom.us/j/123에서 만나요. 전화: 02-312-3456", zoom,
        u"https://zoom.us/j/123", u"02-312-3456"},
    Invitation{"Russian", QLocale::Russia, u"", u"Ссылка:https://zoom.us/j/1;тел. 8 (495) 123-45-67", zoom,
        u"https://zoom.us/j/1", u"8 (495) 123-45-67"},
    Invitation{"Hebrew", QLocale::Israel, u"", u"הצטרפו בhttps://zoom.us/j/1 או 03-123-4567", zoom,
        u"https://zoom.us/j/1", u"03-123-4567"},
    Invitation{"InternationalHost", de, u"https://bücher.example/lesung", u"", generic, u"https://bücher.example/lesung", u""},
    Invitation{"French", fr, u"", u"Réunion à 14 h 30 – appelez le 01 23 45 67 89 (code : 1234 56 78 90#)", std::nullopt, u"",
        u"01 23 45 67 89"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(NothingToJoin, InvitationText, testing::Values(
    Invitation{"Room", ch, u"Room 4.12, Building 7", u"Bring your laptop.", std::nullopt, u"", u""},
    Invitation{"Address", us, u"1600 Amphitheatre Pkwy, Mountain View, CA 94043, USA", u"", std::nullopt, u"", u""},
    Invitation{"SwissAddress", ch, u"Bahnhofstrasse 12, 8001 Zürich", u"", std::nullopt, u"", u""},
    Invitation{"Coordinates", ch, u"47.3768866, 8.541694", u"", std::nullopt, u"", u""},
    Invitation{"FileNames", us, u"", u"Please read notes.md, plan.docx and build.sh in docs/2024 before.", std::nullopt, u"", u""},
    Invitation{"DatesAndTimes", us, u"", u"From 2024-05-13 10:00 to 2024-05-14 11:30, or 05/15/2024 9:00-10:00 (GMT+0200).", std::nullopt, u"", u""},
    Invitation{"OrdersAndPrices", us, u"", u"Order 4155552671, invoice no. 415-555-2671, total $4,155,552,671.00 or 415 555 2671 USD", std::nullopt, u"", u""},
    Invitation{"Flight", gb, u"", u"LX 318 ZRH-LHR 07:05, booking ref 020 7946 0958, ticket 724-2345678901", std::nullopt, u"", u""},
    Invitation{"BankDetails", ch, u"", u"IBAN CH93 0076 2011 6238 5295 7, Konto 044 123 45 67", std::nullopt, u"", u""},
    Invitation{"MailOnly", us, u"", u"Questions? Write to jane.doe@example.com or <mailto:help@zoom.us>.", std::nullopt, u"", u""},
    Invitation{"Version", us, u"", u"Release 3.14.15 of libfoo.so and ASP.NET 8.0.1 on 192.168.100.200", std::nullopt, u"", u""},
    Invitation{"Uuid", us, u"", u"uid:123e4567-e89b-12d3-a456-426614174000@calendar", std::nullopt, u"", u""}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(PhoneOnly, InvitationText, testing::Values(
    Invitation{"AudioConference", us, u"Dial-in: 1-800-555-0199, code 1234567#", u"", std::nullopt, u"", u"1-800-555-0199"},
    Invitation{"NumberIsTheLocation", ch, u"0441234567", u"", std::nullopt, u"", u"0441234567"},
    Invitation{"TelLink", us, u"tel:+1-415-555-2671", u"", std::nullopt, u"", u"+1-415-555-2671"},
    Invitation{"Signature", ch, u"", u"Freundliche Grüsse\nHans Muster\nMuster AG\nT +41 44 123 45 67 | M 079 123 45 67", std::nullopt, u"", u"+41 44 123 45 67"},
    Invitation{"MobileLabel", ch, u"", u"Hans Muster, M: 079 123 45 67", std::nullopt, u"", u"079 123 45 67"},
    Invitation{"Vienna", QLocale::Austria, u"", u"Bitte 01/234 56 78 wählen", std::nullopt, u"", u"01/234 56 78"},
    Invitation{"Extension", us, u"", u"Call (415) 555-2671 ext. 89 when you arrive", std::nullopt, u"", u"(415) 555-2671"}),
    nameOf);
// clang-format on

} // namespace
} // namespace vantrel
