#!/usr/bin/python3
"""The popover and its menu as somebody meets them who does not see them."""

import datetime
import os
import pathlib
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "panel"))

from desktop import Agent, Desktop, within
from panel_process import PanelProcess
from screen_reader import ScreenReader

VANTREL = os.environ["VANTREL"]
LINK = "https://meeting.example.com/stand-up?room=12"
EMPTY_LINES = ["all clear today", "nothing on the books", "Tobble's keeping watch"]


def zone_where_it_is_noon():
    """So that no day ends while a test runs. The sign is the reverse of the usual one."""
    return f"Etc/GMT{datetime.datetime.now(datetime.timezone.utc).hour - 12:+d}"


class AccessibilityTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.start_bus()
        self.zone = zone_where_it_is_noon()
        self.desktop.environment["TZ"] = self.zone
        self.panel = self.enterContext(PanelProcess(self.desktop.environment))
        self.reader = self.enterContext(ScreenReader(self.desktop.environment))
        self.agent = Agent(self.desktop, VANTREL)
        self.panel.item(label="")

    def add(self, name, minutes_ahead, *lines, title):
        """Answers the start and the end as the list tells them."""
        start = time.time() + 60 * minutes_ahead
        self.agent.write_meeting(name, start, *lines, title=title)
        zone = datetime.timezone(datetime.timedelta(hours=-int(self.zone.removeprefix("Etc/GMT"))))
        times = [datetime.datetime.fromtimestamp(moment, zone) for moment in (start, start + 1800)]
        return " – ".join(f"{moment:%H:%M}" for moment in times), f"{times[0]:%A}"

    def open(self):
        self.panel.do("activate", x=1700, y=12)
        within(20, lambda: self.reader.element("dialog", "Vantrel"), "the popover is there")

    def within_the_popover(self):
        lines = self.reader.lines()
        first = lines.index("    dialog 'Vantrel'") + 1
        return [line.removeprefix("      ") for line in lines[first:]]

    def states(self, role, name):
        return self.reader.element(role, name)["states"]

    def test_a_screen_reader_finds_every_part_of_the_popover(self):
        standup, _ = self.add("one", 30, f"DESCRIPTION:Join: {LINK}", title="Stand-up")
        planning, weekday = self.add("two", 3 * 24 * 60, "LOCATION:Room 12", title="Planning")
        self.panel.next(lambda record: "Stand-up" in record.get("label", ""))
        self.open()
        self.assertTrue(self.reader.press("radio button", "all"))
        row = f"Stand-up, {standup}, {LINK}"
        expected = [
            "heading 'Vantrel'",
            "panel 'Meetings'",
            "  radio button 'today'",
            "  radio button 'all'",
            "push button 'Pause alerts'",
            "push button 'More'",
            "list 'Upcoming meetings'",
            f"  list item '{row}'",
            "    push button 'Join Stand-up'",
            f"  list item 'Planning, {planning}, Room 12'",
            f"  heading '{weekday}'",
            "  heading 'Today'",
        ]
        within(10, lambda: sorted(self.within_the_popover()) == sorted(expected),
               f"{expected}; there is {self.within_the_popover()}")
        self.assertEqual([line for line in self.within_the_popover() if not line.startswith(" ")],
                         [line for line in expected if not line.startswith(" ")])
        self.assertIn("checked", self.states("radio button", "all"))
        self.assertNotIn("checked", self.states("radio button", "today"))
        for element in self.reader.tree():
            is_control = element["role"] in {"list", "list item", "push button", "radio button"}
            self.assertEqual("focusable" in element["states"], is_control, element)
        self.assertEqual(self.reader.element("list item", row)["description"], "Today")
        self.assertTrue(self.reader.press("push button", "Join Stand-up"))
        within(10, self.agent.opened_url, "the link was opened")

    def test_a_screen_reader_hears_where_the_keyboard_is(self):
        standup, _ = self.add("one", 30, title="Stand-up")
        self.panel.next(lambda record: "Stand-up" in record.get("label", ""))
        self.open()
        for key, focused in [("Down", f"list item 'Stand-up, {standup}'"),
                             ("Tab", "radio button 'today'"),
                             ("Tab", "radio button 'all'"),
                             ("Tab", "push button 'Pause alerts'"),
                             ("Tab", "push button 'More'"),
                             ("Tab", f"list item 'Stand-up, {standup}'")]:
            self.desktop.press(key)
            within(10, lambda: self.reader.focused()[-1:] == [focused],
                   f"{focused}; heard {self.reader.focused()}")
        self.assertIn("selected", self.states("list item", f"Stand-up, {standup}"))
        self.desktop.press("Escape")
        within(10, lambda: not self.reader.element("dialog", "Vantrel"), "the popover is gone")
        self.desktop.ask(*self.agent.command)
        within(10, lambda: self.reader.focused()[-1:] == ["list 'Upcoming meetings'"],
               f"no row is focused at first; heard {self.reader.focused()}")

    def test_a_screen_reader_finds_what_stands_in_place_of_meetings(self):
        self.open()
        self.assertTrue(self.reader.press("push button", "Pause alerts"))
        within(10, lambda: self.reader.element("push button", "Resume alerts"), "alerts are paused")
        self.assertTrue(self.reader.element("label", "paused"))
        self.assertFalse(self.reader.element("list", "Upcoming meetings"))
        labels = [element["name"] for element in self.reader.tree() if element["role"] == "label"]
        self.assertEqual(len(set(labels) & set(EMPTY_LINES)), 1, labels)

    def test_a_screen_reader_finds_the_entries_of_the_menu_and_hears_the_lit_one(self):
        self.open()
        self.assertTrue(self.reader.press("push button", "More"))
        within(10, lambda: self.reader.element("popup menu", "Menu"), "the menu is there")
        lines = self.reader.lines()
        self.assertEqual([line.strip() for line in lines[lines.index("    popup menu 'Menu'") + 1:]],
                         ["menu item 'This week's rescues'", "menu item 'Preferences…'",
                          "menu item 'Preview takeover'", "separator ''", "menu item 'Quit Vantrel'"])
        self.assertIn("focusable", self.states("menu item", "Quit Vantrel"))
        self.assertIn("focusable", self.states("menu item", "Preferences…"))
        self.assertEqual(self.reader.element("menu item", "Quit Vantrel")["description"], "Q")
        self.desktop.press("Down")
        within(10, lambda: self.reader.focused()[-1:] == ["menu item 'This week's rescues'"],
               f"the first is lit; heard {self.reader.focused()}")
        self.assertTrue(self.reader.press("menu item", "Quit Vantrel"))
        self.assertEqual(self.agent.process.wait(20), 0)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
