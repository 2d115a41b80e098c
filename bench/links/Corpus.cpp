#include "Corpus.h"

namespace vantrel {

namespace {

const QString agenda = uR"(Hello everybody,

please find the agenda below and send additions until Friday, 17:00. We go through the open
points of last time (see minutes_2024-05-13.pdf), then the figures of the quarter: 1'250'000.50 CHF
against a plan of 1'180'000.00 CHF. Order 4500012345 is still open, e.g. parts 12.4 and 12.5.

 - 10:00 - 10:15  Welcome, new colleagues
 - 10:15 - 10:45  Figures Q2/2024, questions & answers
 - 10:45 - 11:30  Road map, version 3.14.0 and beyond; who does what?

Best regards, the office
)"_qs;

const QString zoom = uR"(
Jane Doe is inviting you to a scheduled Zoom meeting.

Join Zoom Meeting
https://us02web.zoom.us/j/8734929%1?pwd=aGVsbG8gd29ybGQgaGVsbG8gd29ybGQ.1

Meeting ID: 873 4929 %1
Passcode: 482913

One tap mobile
+14155550%2,,8734929%1#,,,,*482913# US (San Jose)
+41315280988,,8734929%1#,,,,*482913# Switzerland
)"_qs;

const QString teams = uR"(
________________________________________________________________________________
Microsoft Teams meeting
Join on your computer, mobile app or room device
Click here to join the meeting<https://teams.microsoft.com/l/meetup-join/19%3ameeting_MDAwMDAwMDAt%1%40thread.v2/0?context=%7b%22Tid%22%3a%2200000000-0000-0000-0000-000000000000%22%2c%22Oid%22%3a%2211111111-1111-1111-1111-111111111111%22%7d>
Meeting ID: 312 345 678 %2
Passcode: aB3dE4
Or call in (audio only)
+41 44 555 %2,,123456789#<tel:+41445550000,,123456789#>   Switzerland, Zürich
Phone Conference ID: 123 456 789#
Find a local number<https://dialin.teams.microsoft.com/00000000?id=123456789> | Meeting options
________________________________________________________________________________
)"_qs;

const QString html = uR"(<p>Dear team,<br><br>this is the <b>weekly&nbsp;sync</b>. The notes are
<a href="https://docs.example.com/document/d/%1/edit?usp=sharing&amp;ouid=%2">here</a>.</p>
<ul><li>Status &amp; risks</li><li>Numbers: 12'500 / 13'000</li><li>Next steps</li></ul>
<p>Join: <a href="https://meet.google.com/abc-%2-xyz">meet.google.com/abc-%2-xyz</a><br>
Or dial: (US) +1 415-555-0%2 PIN: 123 456 %2#</p>)"_qs;

const QString chinese = u"各位好，\n\n请准时参加本周例会，讨论以下事项：预算、排期、人员。\n"
                        u"会议链接：https://meeting.example.com.cn/dm/%1，会议号：123-456-%2。\n"
                        u"如有问题请联系王先生（电话：010-6552-%2）。谢谢！\n"_qs;

} // namespace

QString invitation(int number) {
    const QString id = QString::number(1000 + number % 9000);
    const QString part = QString::number(100 + number % 900);
    switch (number % 5) {
    case 0:
        return agenda + zoom.arg(id, part);
    case 1:
        return agenda + teams.arg(id, part);
    case 2:
        return html.arg(id, part);
    case 3:
        return chinese.arg(id, part);
    default:
        return agenda + QString::number(number);
    }
}

std::vector<QString> invitations(int count) {
    std::vector<QString> all;
    for (int number = 0; number < count; ++number)
        all.push_back(invitation(number));
    return all;
}

} // namespace vantrel
