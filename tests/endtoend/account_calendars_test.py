#!/usr/bin/python3
"""The calendars verb on the accounts of a desktop: an account, a subscription, birthdays, a calendar
of the desktop's own, and a folder beside them."""

import contextlib
import json
import os
import subprocess
import sys
import unittest

from accounts import Accounts
from desktop import FIRST_RUN_IS_OVER, Session, within

VANTREL = os.environ["VANTREL"]


class AccountCalendarsTest(unittest.TestCase):
    def setUp(self):
        self.session = self.enterContext(Session())
        self.session.environment.pop("DISPLAY", None)
        self.accounts = Accounts(self.session)
        self.accounts.subscribe("UID:h1", "DTSTART;VALUE=DATE:20260303", "SUMMARY:Holiday")
        own = self.session.folder / "config" / "Vantrel"
        own.mkdir(parents=True)
        self.settings = own / "settings.json"
        (own / "access.json").write_text(json.dumps({"calendarAccess": "granted"}))
        folder = self.session.folder / "data" / "Vantrel" / "calendars" / "home"
        folder.mkdir(parents=True)
        (folder / "displayname").write_text("Home")

    def run_vantrel(self, *arguments):
        # Without a profile: one of its own would leave the accounts alone.
        result = subprocess.run([VANTREL, "calendars", *arguments], env=self.session.environment,
                                capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout

    def listed(self):
        return json.loads(self.run_vantrel("--json"))

    def assert_listed(self, part, expected):
        """A question waits a few seconds for the service, which takes longer on a busy machine."""
        last = []
        def is_there():
            last.append(part(self.listed()))
            return last[-1] == expected
        with contextlib.suppress(AssertionError):
            within(90, is_there, "the list")
        self.assertEqual(last[-1], expected)

    def select(self, *identifiers):
        self.settings.write_text(json.dumps({"Vantrel.selectedCalendarIDs": list(identifiers)}))

    def selection(self):
        stored = json.loads(self.settings.read_text()) if self.settings.exists() else {}
        return set(stored.get("Vantrel.selectedCalendarIDs", []))

    def test_lists_each_by_its_account_with_its_kind_and_the_default_marked(self):
        def groups(answer):
            return [(group["title"], [(one["title"], one["type"], one["allowsModifications"], one["isSelected"])
                                      for one in group["calendars"]]) for group in answer["groups"]]
        self.assert_listed(groups, [
            ("CalDAV", [("Office", "standard", True, True)]),
            ("Calendar Folder", [("Home", "standard", True, True)]),
            ("Contacts", [("Birthdays & Anniversaries", "birthday", False, False)]),
            ("On The Web", [("Holidays", "subscription", False, False)]),
            ("On This Computer", [("Personal", "standard", True, True)])])
        answer = self.listed()
        self.assertEqual((answer["isComplete"], answer["isSelectionStored"], answer["notes"]), (True, False, []))
        identifiers = {one["title"]: (one["id"], one["color"]) for group in answer["groups"]
                       for one in group["calendars"]}
        self.assertEqual(identifiers["Office"], ("evolution:office", "#445566"))
        self.assertEqual(identifiers["Holidays"], ("evolution:holidays", "#665544"))
        self.assertRegex(identifiers["Home"][0], "^folder-")
        text = self.run_vantrel()
        self.assertIn("CalDAV\n  [x] Office  (standard, #445566)\n", text)
        self.assertIn("On The Web\n  [ ] Holidays  (subscription, #665544, read-only)\n", text)
        self.assertFalse(self.settings.exists(), "a question changes nothing")

    def test_marks_what_the_user_chose_and_names_what_is_missing_of_it(self):
        self.select("evolution:holidays", "evolution:gone")
        self.assert_listed(lambda answer: {one["title"]: one["isSelected"] for group in answer["groups"]
                                           for one in group["calendars"]},
                           {"Office": False, "Birthdays & Anniversaries": False, "Holidays": True,
                            "Personal": False, "Home": False})
        self.assert_listed(lambda answer: (answer["isSelectionStored"], answer["missing"]),
                           (True, ["evolution:gone"]))

    def test_tells_what_the_agent_has_chosen(self):
        self.session.environment["QT_QPA_PLATFORM"] = "offscreen"
        self.settings.write_text(json.dumps({FIRST_RUN_IS_OVER: True}))
        self.session.start(VANTREL)
        within(90, lambda: {"evolution:office", "evolution:system-calendar"} <= self.selection(),
               "the agent has chosen")
        self.assertFalse({"evolution:holidays", "evolution:birthdays"} & self.selection())
        self.assert_listed(lambda answer: (answer["isSelectionStored"], {
            one["id"] for group in answer["groups"] for one in group["calendars"] if one["isSelected"]}),
            (True, self.selection()))

    def test_keeps_folders_listed_and_says_that_accounts_are_not_without_a_session_bus(self):
        self.select("evolution:office")
        self.session.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.session.folder}/none"
        answer = self.listed()
        self.assertEqual([group["calendars"][0]["title"] for group in answer["groups"]], ["Home"])
        self.assertEqual((answer["isComplete"], answer["missing"]), (False, ["evolution:office"]))
        self.assertEqual(len(answer["notes"]), 1)
        self.assertTrue(answer["notes"][0].startswith("Accounts of this desktop "), answer["notes"])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
