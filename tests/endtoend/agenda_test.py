#!/usr/bin/python3
"""The agenda verb as scripts and status bars use it: the built program, files, a pipe."""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

VANTREL = os.environ["VANTREL"]

EVENT = """BEGIN:VEVENT
UID:{uid}
DTSTAMP:20260101T000000Z
{lines}
END:VEVENT
"""


def calendar(*events):
    text = "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:-//test//EN\n" + "".join(events) + "END:VCALENDAR\n"
    return text.replace("\n", "\r\n")


def event(uid, *lines):
    return EVENT.format(uid=uid, lines="\n".join(lines))


class AgendaTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.home = self.folder / "home"
        self.home.mkdir()

    def write(self, path, text):
        file = self.folder / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)
        return file

    def run_vantrel(self, *arguments, zone="Europe/Zurich"):
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.home), "TZ": zone, "LC_ALL": "C.UTF-8",
                       "XDG_DATA_DIRS": str(self.folder / "share")}
        return subprocess.run([VANTREL, *map(str, arguments)], env=environment, capture_output=True,
                              text=True, timeout=30, check=False)

    def agenda(self, *paths, now="2026-03-02T08:00:00+01:00", more=(), zone="Europe/Zurich"):
        named = [argument for path in paths for argument in ("--calendars", path)]
        result = self.run_vantrel("agenda", "--json", "--now", now, *named, *more, zone=zone)
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)

    def starts(self, *arguments, **options):
        return [found["start"] for found in self.agenda(*arguments, **options)["events"]]

    def test_prints_every_member(self):
        work = self.folder / "calendars" / "work"
        self.write("calendars/work/displayname", "Work\n")
        self.write("calendars/work/color", "#4A6FA5\n")
        self.write("calendars/work/a.ics", calendar(event(
            "a", "SUMMARY:Stand-up", "DTSTART:20260302T090000Z", "DTEND:20260302T091500Z",
            "LOCATION:  Room 1  ", "RRULE:FREQ=WEEKLY",
            "DESCRIPTION:Join https://us02web.zoom.us/j/123?pwd=x or dial +41 44 668 18 00.")))
        answer = self.agenda(work, more=["--horizon", "86400"])
        self.assertEqual(answer["now"], "2026-03-02T08:00:00+01:00")
        self.assertIs(answer["isComplete"], True)
        self.assertEqual(len(answer["events"]), 1)
        found = answer["events"][0]
        self.assertRegex(found.pop("id"), r"^[^|]+\|794134800$")
        self.assertEqual(found, {
            "title": "Stand-up", "start": "2026-03-02T10:00:00+01:00", "end": "2026-03-02T10:15:00+01:00",
            "calendar": "Work", "calendarColor": "#4a6fa5", "isRecurring": True, "location": "Room 1",
            "videoLink": {"provider": "zoom", "url": "https://us02web.zoom.us/j/123?pwd=x"},
            "phoneLink": {"rawNumber": "+41 44 668 18 00"},
            "detailPreview": "https://us02web.zoom.us/j/123?pwd=x"})

    def test_takes_a_folder_a_folder_of_folders_and_a_file(self):
        first = self.write("calendars/work/a.ics", calendar(event("a", "DTSTART:20260302T090000Z")))
        self.write("calendars/home/b.ics", calendar(event("b", "DTSTART:20260302T100000Z")))
        single = self.write("c.ics", calendar(event("c", "DTSTART:20260302T110000Z"),
                                              event("d", "DTSTART:20260302T120000Z")))
        ten, eleven, noon, one = ("2026-03-02T%d:00:00+01:00" % hour for hour in (10, 11, 12, 13))
        self.assertEqual(self.starts(first.parent), [ten])
        self.assertEqual(self.starts(first.parent.parent), [ten, eleven])
        self.assertEqual(self.starts(single), [noon, one])
        self.assertEqual(self.starts(first.parent.parent, single), [ten, eleven, noon, one])

    def test_takes_a_file_whose_name_ends_in_capitals(self):
        single = self.write("C.ICS", calendar(event("c", "DTSTART:20260302T110000Z")))
        self.assertEqual(self.starts(single), ["2026-03-02T12:00:00+01:00"])

    def test_lists_from_now_inclusive_to_the_horizon(self):
        file = self.write("a.ics", calendar(
            event("before", "DTSTART:20260302T065959Z", "DTEND:20260302T090000Z"),
            event("now", "DTSTART:20260302T070000Z", "DTEND:20260302T090000Z"),
            event("inside", "DTSTART:20260302T075959Z", "DTEND:20260302T230000Z"),
            event("beyond", "DTSTART:20260302T080001Z", "DTEND:20260302T090000Z")))
        self.assertEqual(self.starts(file, more=["--horizon", "3600"]),
                         ["2026-03-02T08:00:00+01:00", "2026-03-02T08:59:59+01:00"])

    def test_leaves_out_what_is_all_day_or_cancelled(self):
        file = self.write("a.ics", calendar(
            event("day", "DTSTART;VALUE=DATE:20260303"),
            event("off", "DTSTART:20260303T090000Z", "STATUS:CANCELLED"),
            event("on", "DTSTART:20260303T100000Z", "STATUS:TENTATIVE")))
        self.assertEqual(self.starts(file), ["2026-03-03T11:00:00+01:00"])

    def test_leaves_out_what_the_user_declined(self):
        self.write("home/.config/Vantrel/calendars.json", json.dumps({"addresses": ["Me@Example.com"]}))
        file = self.write("a.ics", calendar(
            event("no", "DTSTART:20260303T090000Z", "ATTENDEE;PARTSTAT=DECLINED:mailto:me@example.com"),
            event("yes", "DTSTART:20260303T100000Z", "ATTENDEE;PARTSTAT=DECLINED:mailto:you@example.com")))
        self.assertEqual(self.starts(file), ["2026-03-03T11:00:00+01:00"])

    def test_expands_a_series_over_a_daylight_saving_change_with_its_override(self):
        file = self.write("a.ics", calendar(
            event("s", "DTSTART;TZID=Europe/Zurich:20260325T090000", "DURATION:PT30M",
                  "RRULE:FREQ=DAILY;COUNT=7", "EXDATE;TZID=Europe/Zurich:20260327T090000", "SUMMARY:Daily"),
            event("s", "RECURRENCE-ID;TZID=Europe/Zurich:20260328T090000",
                  "DTSTART;TZID=America/New_York:20260328T120000", "DURATION:PT1H", "SUMMARY:Moved"),
            event("s", "RECURRENCE-ID;TZID=Europe/Zurich:20260330T090000",
                  "DTSTART;TZID=Europe/Zurich:20260330T090000", "STATUS:CANCELLED")))
        answer = self.agenda(file, now="2026-03-25T00:00:00+01:00")
        self.assertEqual([(found["start"], found["title"]) for found in answer["events"]], [
            ("2026-03-25T09:00:00+01:00", "Daily"), ("2026-03-26T09:00:00+01:00", "Daily"),
            ("2026-03-28T17:00:00+01:00", "Moved"), ("2026-03-29T09:00:00+02:00", "Daily"),
            ("2026-03-31T09:00:00+02:00", "Daily")])

    def test_reads_floating_times_in_the_environments_zone(self):
        file = self.write("a.ics", calendar(event("f", "DTSTART:20260303T090000")))
        self.assertEqual(self.starts(file, zone="Asia/Tokyo"), ["2026-03-03T09:00:00+09:00"])
        self.assertEqual(self.starts(file, zone="UTC"), ["2026-03-03T09:00:00+00:00"])

    def test_keeps_identifiers_from_run_to_run(self):
        file = self.write("a.ics", calendar(event("a|b", "DTSTART:20260302T090000Z", "RRULE:FREQ=DAILY;COUNT=3")))
        first, second = ([found["id"] for found in self.agenda(file)["events"]] for _ in range(2))
        self.assertEqual(first, second)
        self.assertEqual(len({identifier.split("|")[0] for identifier in first}), 1)
        self.assertTrue(all(identifier.count("|") == 1 for identifier in first))

    def grant(self, folder):
        self.write(f"{folder}/access.json", json.dumps({"calendarAccess": "granted"}))

    def test_reads_the_selected_calendars_of_the_profile(self):
        self.grant("profile")
        self.write("profile/calendars/work/a.ics", calendar(event("a", "DTSTART:20260302T090000Z")))
        self.assertEqual(self.starts(more=["--profile", self.folder / "profile"]), ["2026-03-02T10:00:00+01:00"])
        self.write("profile/settings.json", json.dumps({"Vantrel.selectedCalendarIDs": []}))
        self.assertEqual(self.starts(more=["--profile", self.folder / "profile"]), [])

    def test_reads_nothing_that_the_user_has_not_granted(self):
        self.write("home/.local/share/Vantrel/calendars/work/a.ics",
                   calendar(event("a", "DTSTART:20260302T090000Z")))
        access = "home/.config/Vantrel/access.json"
        for answer in [None, '{"calendarAccess": "denied"}', '{"calendarAccess":']:
            with self.subTest(answer=answer):
                if answer:
                    self.write(access, answer)
                result = self.run_vantrel("agenda", "--json", "--now", "2026-03-02T07:00:00Z")
                self.assertEqual(result.returncode, 1)
                self.assertEqual(result.stdout, "")
                self.assertIn("access to the calendars has not been granted", result.stderr)
                if not answer:
                    self.assertFalse((self.folder / access).exists())

    def test_reads_the_users_own_calendars(self):
        self.grant("home/.config/Vantrel")
        self.write("home/.local/share/Vantrel/calendars/work/a.ics",
                   calendar(event("a", "DTSTART:20260302T090000Z")))
        self.assertEqual(self.starts(), ["2026-03-02T10:00:00+01:00"])
        self.assertFalse((self.home / ".config/Vantrel/settings.json").exists())

    def own_agenda(self):
        self.grant("home/.config/Vantrel")
        self.write("home/.local/share/Vantrel/calendars/work/a.ics",
                   calendar(event("a", "DTSTART:20260302T090000Z")))
        result = self.run_vantrel("agenda", "--json", "--now", "2026-03-02T07:00:00Z")
        self.assertEqual(result.returncode, 0, result.stderr)
        answer = json.loads(result.stdout)
        self.assertEqual(len(answer["events"]), 1)
        return answer["isComplete"], result.stderr

    def test_is_complete_where_no_service_of_accounts_is_installed(self):
        self.assertEqual(self.own_agenda(), (True, ""))

    def test_says_that_a_folder_is_missing(self):
        self.write("home/.config/Vantrel/calendars.json", json.dumps({"folders": [str(self.folder / "usb")]}))
        is_complete, errors = self.own_agenda()
        self.assertFalse(is_complete)
        self.assertIn(f"vantrel: {self.folder}/usb could not be read", errors)
        result = self.run_vantrel("agenda", "--now", "2026-03-02T07:00:00Z")
        self.assertEqual(result.returncode, 0)
        self.assertIn("10:00", result.stdout)
        self.assertIn(f"vantrel: {self.folder}/usb could not be read", result.stderr)

    def test_says_that_the_folders_are_not_known(self):
        (self.home / ".config/Vantrel").mkdir(parents=True)
        (self.home / ".config/Vantrel/calendars.json").symlink_to(self.folder / "unmounted/calendars.json")
        is_complete, errors = self.own_agenda()
        self.assertFalse(is_complete)
        self.assertIn("vantrel: not every calendar could be read", errors)

    def test_says_why_accounts_are_not_read(self):
        if not (pathlib.Path(VANTREL).parent / "vantrel-evolution.so").exists():
            self.skipTest("this build reads no accounts")
        self.write("share/dbus-1/services/org.gnome.evolution.dataserver.Sources5.service", "")
        is_complete, errors = self.own_agenda()
        self.assertFalse(is_complete)
        self.assertEqual(errors.count("vantrel: "), 1, errors)
        self.assertIn("vantrel: Accounts of this desktop are not shown: there is no session bus.\n", errors)

    def test_shows_the_rest_of_a_calendar_with_a_bad_file(self):
        self.write("work/bad.ics", "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nDTSTART:2026")
        self.write("work/good.ics", calendar(event("a", "DTSTART:20260302T090000Z")))
        result = self.run_vantrel("agenda", "--json", "--now", "2026-03-02T07:00:00Z",
                                  "--calendars", self.folder / "work")
        self.assertEqual(result.returncode, 0)
        answer = json.loads(result.stdout)
        self.assertEqual(len(answer["events"]), 1)
        self.assertIs(answer["isComplete"], False)
        self.assertIn(f"vantrel: {self.folder}/work/bad.ics is no whole calendar", result.stderr)

    def test_says_on_standard_error_what_is_wrong(self):
        for arguments, code in [
            (["agenda", "--calendars", self.folder / "none"], 1),
            (["agenda", "--calendars", self.folder / "none.ics", "--json"], 1),
            (["agenda", "--calendars", self.write("notes.txt", "x")], 1),
            (["agenda", "--calendars", "/dev/zero"], 1),
            (["agenda", "--now", "yesterday"], 2),
            (["agenda", "--horizon", "-1"], 2),
            (["agneda"], 2),
        ]:
            with self.subTest(arguments=arguments):
                result = self.run_vantrel(*arguments)
                self.assertEqual(result.returncode, code)
                self.assertEqual(result.stdout, "")
                self.assertTrue(result.stderr.startswith("vantrel: "), result.stderr)

    def test_reads_every_form_of_the_zone(self):
        file = self.write("a.ics", calendar(event("a", "DTSTART:20260302T090000Z")))
        for zone, start in [("Europe/Zurich", "10:00:00+01:00"), (":Europe/Zurich", "10:00:00+01:00"),
                            ("/usr/share/zoneinfo/Europe/Zurich", "10:00:00+01:00"),
                            (":/usr/share/zoneinfo/Europe/Zurich", "10:00:00+01:00"),
                            ("CET-1CEST,M3.5.0,M10.5.0/3", "10:00:00+01:00"),
                            ("Nonsense/Zone", "09:00:00+00:00"), ("UTC", "09:00:00+00:00")]:
            with self.subTest(zone=zone):
                self.assertEqual(self.starts(file, zone=zone), ["2026-03-02T" + start])

    def test_fails_when_its_output_is_lost(self):
        file = self.write("a.ics", calendar(event("a", "DTSTART:20260302T090000Z", "RRULE:FREQ=DAILY")))
        for more in [[], ["--json"]]:
            with self.subTest(more=more), open("/dev/full", "wb") as full:
                result = subprocess.run([VANTREL, "agenda", "--calendars", file, "--now",
                                         "2026-03-02T08:00:00Z", "--horizon", "8640000", *more],
                                        stdout=full, stderr=subprocess.PIPE, check=False)
                self.assertEqual(result.returncode, 1)
                self.assertTrue(result.stderr.startswith(b"vantrel: "))

    def test_prints_text_for_people(self):
        file = self.write("a.ics", calendar(
            event("a", "SUMMARY:Stand-up", "DTSTART:20260302T090000Z", "DTEND:20260302T091500Z")))
        result = self.run_vantrel("agenda", "--calendars", file, "--now", "2026-03-02T08:00:00+01:00")
        self.assertEqual(result.returncode, 0)
        self.assertIn("10:00", result.stdout)
        self.assertIn("Stand-up", result.stdout)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
