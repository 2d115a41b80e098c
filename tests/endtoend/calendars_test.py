#!/usr/bin/python3
"""The calendars verb as scripts and bug reports use it: the built program, files, a pipe."""

import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

from desktop import stamp, within

VANTREL = os.environ["VANTREL"]


class CalendarsTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.profile = self.folder / "profile"
        self.profile.mkdir()

    def write(self, path, text):
        file = self.profile / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def allow(self):
        self.write("access.json", '{"calendarAccess": "granted"}')

    def run_vantrel(self, *arguments, stdout=subprocess.PIPE):
        # No bus: what needs a service is not there, and the folders are.
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "LC_ALL": "C.UTF-8",
                       "XDG_CONFIG_DIRS": str(self.folder / "etc"),
                       "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.folder}/none"}
        return subprocess.run([VANTREL, "calendars", "--profile", self.profile, *arguments],
                              env=environment, stdout=stdout, stderr=subprocess.PIPE, text=True,
                              timeout=60, check=False)

    def listed(self):
        result = self.run_vantrel("--json")
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)

    def calendars(self):
        return [calendar for group in self.listed()["groups"] for calendar in group["calendars"]]

    def test_lists_every_member_in_the_order_of_titles(self):
        self.allow()
        self.write("calendars/1/displayname", "Team")
        self.write("calendars/1/color", "#4A6FA5")
        self.write("calendars/2/displayname", "home")
        self.write("calendars/3/displayname", "Birthdays")
        answer = self.listed()
        self.assertEqual(answer["accessStatus"], "fullAccess")
        self.assertFalse(answer["isSelectionStored"])
        self.assertEqual(answer["missing"], [])
        self.assertEqual([group["title"] for group in answer["groups"]], ["Calendar Folder"])
        found = answer["groups"][0]["calendars"]
        self.assertEqual([calendar["title"] for calendar in found], ["Birthdays", "home", "Team"])
        self.assertRegex(found[2].pop("id"), "^folder-")
        self.assertEqual(found[2], {"title": "Team", "color": "#4a6fa5", "type": "standard",
                                    "allowsModifications": True, "isSelected": True})

    def test_tells_what_is_selected_and_what_of_it_is_missing(self):
        self.allow()
        self.write("calendars/work/displayname", "Work")
        self.write("calendars/home/displayname", "Home")
        work = next(calendar["id"] for calendar in self.calendars() if calendar["title"] == "Work")
        self.write("settings.json", json.dumps({"Vantrel.selectedCalendarIDs": [work, "folder-gone"]}))
        answer = self.listed()
        self.assertTrue(answer["isSelectionStored"])
        self.assertEqual(answer["missing"], ["folder-gone"])
        self.assertEqual([(calendar["title"], calendar["isSelected"]) for calendar in self.calendars()],
                         [("Home", False), ("Work", True)])
        self.assertIn("  [ ] Home", self.run_vantrel().stdout)
        self.assertIn("  [x] Work", self.run_vantrel().stdout)

    def test_changes_no_settings(self):
        self.allow()
        self.write("calendars/work/displayname", "Work")
        self.listed()
        self.assertFalse((self.profile / "settings.json").exists())

    def test_is_not_complete_while_a_named_place_is_missing(self):
        self.allow()
        self.write("calendars/work/displayname", "Work")
        self.write("calendars.json", json.dumps({"folders": [str(self.folder / "usb")]}))
        self.assertFalse(self.listed()["isComplete"])

    def test_says_on_standard_error_that_access_was_not_granted(self):
        self.write("calendars/work/displayname", "Work")
        for answer, status in [(None, "notDetermined"), ("denied", "denied")]:
            with self.subTest(status=status):
                if answer:
                    self.write("access.json", json.dumps({"calendarAccess": answer}))
                text, structured = self.run_vantrel(), self.run_vantrel("--json")
                for result in (text, structured):
                    self.assertEqual(result.returncode, 1)
                    self.assertTrue(result.stderr.startswith("vantrel: access "), result.stderr)
                self.assertEqual(text.stdout, "")
                listed = json.loads(structured.stdout)
                self.assertEqual((listed["accessStatus"], listed["groups"]), (status, []))

    def test_says_that_a_policy_bars_access(self):
        self.allow()
        policy = self.folder / "etc/Vantrel/policy.json"
        policy.parent.mkdir(parents=True)
        policy.write_text('{"calendarAccess": "restricted"}')
        result = self.run_vantrel("--json")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(json.loads(result.stdout)["accessStatus"], "restricted")
        self.assertIn("policy", result.stderr)

    def test_keeps_a_title_from_driving_a_terminal(self):
        self.allow()
        self.write("calendars/work/displayname", "a\x1b[2Jb\u009b2Jc\u202egnp")
        for result in (self.run_vantrel(), self.run_vantrel("--json")):
            self.assertFalse({"\x1b", "\u009b", "\u202e"} & set(result.stdout), result.stdout)
        self.assertEqual(self.calendars()[0]["title"], "a\x1b[2Jb\u009b2Jc\u202egnp")

    def test_fails_when_its_output_is_lost(self):
        self.allow()
        for more in [[], ["--json"]]:
            with self.subTest(more=more), open("/dev/full", "w") as full:
                self.assertEqual(self.run_vantrel(*more, stdout=full).returncode, 1)

    def selection(self):
        file = self.profile / "settings.json"
        stored = json.loads(file.read_text()) if file.exists() else {}
        return set(stored.get("Vantrel.selectedCalendarIDs", []))

    def wait_for_selection(self, expected, seconds=30):
        within(seconds, lambda: self.selection() == expected, f"{expected} is selected")

    def run_agent(self):
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.folder), "LC_ALL": "C.UTF-8",
                       "QT_QPA_PLATFORM": "offscreen",
                       "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.folder}/none"}
        agent = subprocess.Popen([VANTREL, "--profile", self.profile], env=environment,
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(agent.wait)
        self.addCleanup(agent.kill)
        return agent

    def write_meeting(self, path):
        """One that begins right away; its takeover closes by itself and is counted."""
        now = stamp(time.time())
        self.write(path, "\r\n".join([
            "BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//test//EN", "BEGIN:VEVENT", "UID:a", f"DTSTAMP:{now}",
            f"DTSTART:{now}", "DURATION:PT30M", "END:VEVENT", "END:VCALENDAR", ""]))

    def test_the_agent_keeps_what_is_out_of_reach_and_drops_what_was_deleted(self):
        self.allow()
        self.write("settings.json", json.dumps({
            "Vantrel.autoCloseSeconds": 1, "Vantrel.hasCompletedFirstRun": True}))
        for name in ("work", "home", "old"):
            self.write(f"calendars/{name}/displayname", name)
        disk = self.folder / "disk"
        (disk / "usb").mkdir(parents=True)
        (disk / "usb/displayname").write_text("usb")
        (self.profile / "calendars/usb").symlink_to(disk / "usb")
        ids = {calendar["title"]: calendar["id"] for calendar in self.calendars()}
        everything = set(ids.values())
        self.run_agent()
        self.wait_for_selection(everything)
        # The disk goes, and a calendar is deleted: as long as the disk is away nobody can
        # be certain of either. That the agent has seen it shows by a meeting that comes after.
        disk.rename(self.folder / "away")
        (self.profile / "calendars/old/displayname").unlink()
        (self.profile / "calendars/old").rmdir()
        self.write_meeting("calendars/work/a.ics")
        within(30, (self.profile / "rescues.json").exists, "the takeover came and went")
        self.assertEqual(self.selection(), everything)
        (self.folder / "away").rename(disk)
        (self.profile / "calendars/home/displayname").write_text("home again")
        # What is gone counts as deleted after a minute.
        self.wait_for_selection(everything - {ids["old"]}, seconds=110)

    def test_refuses_what_it_does_not_know(self):
        self.assertEqual(self.run_vantrel("--horizon", "60").returncode, 2)
        self.assertEqual(self.run_vantrel("more").returncode, 2)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
