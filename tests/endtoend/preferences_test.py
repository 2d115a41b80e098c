#!/usr/bin/python3
"""The settings' window as a person meets it."""

import json
import os
import subprocess
import sys
import unittest

from desktop import Agent, Desktop, within
from screen_reader import ScreenReader

VANTREL = os.environ["VANTREL"]


class PreferencesTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.start_bus()
        self.desktop.move_pointer(5, 5)
        self.reader = self.enterContext(ScreenReader(self.desktop.environment))
        self.agent = Agent(self.desktop, VANTREL)

    def window(self):
        return self.desktop.windows(name="^Vantrel$")

    def has_keyboard(self):
        name = self.desktop.ask("xdotool", "getactivewindow", "getwindowname")
        return name.decode().strip() == "Vantrel"

    def ask(self, verb):
        """Whether the agent took the verb; it does not before it has come up."""
        return subprocess.run([*self.agent.command, verb], env=self.desktop.environment,
                              timeout=30, check=False).returncode == 0

    def open(self):
        within(20, lambda: self.ask("preferences"), "the agent takes the verb")
        within(20, self.window, "the window is shown")
        within(10, self.has_keyboard, "it has the keyboard")

    def area(self):
        shell = self.desktop.ask("xdotool", "getwindowgeometry", "--shell", self.window()[0]).decode()
        place = dict(line.split("=") for line in shell.splitlines())
        left, top = int(place["X"]), int(place["Y"])
        return left, top, left + int(place["WIDTH"]), top + int(place["HEIGHT"])

    def stored(self, name):
        settings = json.loads((self.agent.profile / "settings.json").read_text())
        return settings.get(f"Vantrel.{name}")

    def go_to_the_takeover_page(self):
        self.desktop.press("Home")
        self.desktop.press("Down")
        self.desktop.press("Down")

    def test_a_setting_is_changed_by_keyboard_and_the_window_comes_back_as_it_was(self):
        self.open()
        left, top, right, bottom = self.area()
        self.assertEqual([right - left, bottom - top], [880, 600])
        self.go_to_the_takeover_page()
        self.desktop.press("Tab")
        self.desktop.press_until("Right", lambda: self.stored("leadTimeSeconds") == 300,
                                 "the lead time is at its end")
        self.desktop.press("Escape")
        within(10, lambda: not self.window(), "the window is gone")
        self.assertIsNone(self.agent.process.poll())
        self.open()
        self.desktop.press_until("Home", lambda: self.stored("leadTimeSeconds") == 0,
                                 "the page and the keyboard's place were kept")

    def test_a_screen_reader_finds_the_pages_and_their_controls(self):
        self.open()
        for page in ["Calendars", "General", "Takeover", "Event Filters", "Menu Bar", "Appearance",
                     "About"]:
            within(10, lambda: self.reader.element("page tab", page), f"there is the page {page}")
        self.assertTrue(self.reader.press("page tab", "Takeover"))
        within(10, lambda: self.reader.element("slider", "Bring me to meetings"), "the page is open")
        self.assertEqual(self.reader.element("slider", "Bring me to meetings")["description"],
                         "1 min before")
        self.assertTrue(self.reader.element("spin button", "Snooze duration"))
        self.assertTrue(self.reader.press("page tab", "Menu Bar"))
        toggle = ("check box", "Show next meeting beside the icon")
        within(10, lambda: self.reader.element(*toggle), "the next page is open")
        self.assertIn("checked", self.reader.element(*toggle)["states"])
        self.assertTrue(self.reader.press(*toggle))
        within(10, lambda: self.stored("showNextMeetingInMenuBar") is False, "it is switched off")
        self.assertNotIn("checked", self.reader.element(*toggle)["states"])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
