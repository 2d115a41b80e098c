#!/usr/bin/python3
"""The first run as a person goes through it, and the start at login that it offers."""

import json
import os
import subprocess
import sys
import time
import unittest

from desktop import ACCENT, FIRST_RUN_IS_OVER, Agent, Desktop, alike, within
from screen_reader import ScreenReader

VANTREL = os.environ["VANTREL"]
STEPS = 6


class OnboardingTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.start_bus()
        self.desktop.move_pointer(400, 500)
        self.agent = Agent(self.desktop, VANTREL, access=None, first_run=True)

    def window(self):
        return self.desktop.windows(name="^Welcome to Vantrel$")

    def question(self):
        return self.desktop.windows(name="^Vantrel$")

    def active(self):
        return self.desktop.ask("xdotool", "getactivewindow", "getwindowname").decode().strip()

    def place(self):
        """Where the window begins; None without one."""
        windows = self.window()
        if not windows:
            return None
        shell = self.desktop.ask("xdotool", "getwindowgeometry", "--shell", windows[0]).decode()
        values = dict(line.split("=") for line in shell.splitlines())
        return int(values["X"]), int(values["Y"])

    def step(self):
        """How far the strip at the top of the window is filled; 0 while nothing is drawn."""
        place = self.place()
        if not place:
            return 0
        left, top = place[0] + 32, place[1]
        picture = self.desktop.picture()
        width = 660 - 64
        filled = max(sum(alike(picture.getpixel((left + x, top + y)), ACCENT) for x in range(width))
                     for y in range(20, 80))
        return round(filled / width * STEPS)

    def wait_for_step(self, number):
        within(20, lambda: self.step() == number, f"step {number} is shown")
        within(5, lambda: self.active() == "Welcome to Vantrel", "it has the keyboard")

    def settings(self):
        return json.loads((self.agent.profile / "settings.json").read_text())

    def entries(self):
        return [*(self.desktop.folder / "config" / "autostart").glob("org.vantrel.Vantrel*.desktop")]

    def allow_calendars(self):
        self.wait_for_step(1)
        self.desktop.press("Return")
        self.wait_for_step(2)
        self.desktop.press("Return")
        within(20, self.question, "the question is asked")
        within(5, lambda: self.active() == "Vantrel", "the question has the keyboard")
        self.assertEqual(len(self.question()), 1)
        stack = self.desktop.ask("xprop", "-root", "_NET_CLIENT_LIST_STACKING").decode()
        order = [int(window, 16) for window in stack.partition("#")[2].split(",")]
        self.assertGreater(order.index(int(self.question()[0])), order.index(int(self.window()[0])))
        self.desktop.answer("Return", self.question)
        self.assertEqual(json.loads(self.agent.access_file.read_text()), {"calendarAccess": "granted"})
        self.wait_for_step(2)
        self.desktop.press_until("Return", lambda: self.step() == 3, "it goes on")

    def see_the_takeover(self):
        self.desktop.press("Return")
        self.wait_for_step(4)
        self.desktop.press("Return")
        self.wait_for_step(5)
        self.desktop.press("Return")
        within(10, lambda: len(self.desktop.panels()) == 2, "the takeover is shown")
        self.desktop.answer("Escape", self.desktop.panels)
        self.wait_for_step(5)
        for key in ["Tab", "Tab", "Return"]:
            self.desktop.press(key)
        self.wait_for_step(6)

    def finish(self):
        self.desktop.press_until("Return", lambda: not self.window(), "the window is gone")
        self.assertIs(self.settings()[FIRST_RUN_IS_OVER], True)
        self.assertIsNone(self.agent.process.poll())

    def test_goes_from_nothing_to_finish_by_keyboard_alone(self):
        self.allow_calendars()
        self.see_the_takeover()
        self.assertNotIn(FIRST_RUN_IS_OVER, self.settings())
        self.finish()
        self.assertEqual(self.entries(), [])
        self.assertEqual(self.agent.counts(), {})

    def restart(self):
        self.desktop.end(self.agent.process)
        self.agent.start()

    def test_is_moved_by_its_background(self):
        self.wait_for_step(1)
        left, top = self.place()
        self.desktop.move_pointer(left + 600, top + 200)
        self.desktop.ask("xdotool", "mousedown", "1")
        for way in range(10, 101, 10):
            self.desktop.move_pointer(left + 600 + way, top + 200 + way)
        within(5, lambda: self.place() != (left, top), "it follows the pointer")
        self.desktop.ask("xdotool", "mouseup", "1")
        self.wait_for_step(1)

    def test_comes_again_until_it_is_finished_and_not_after(self):
        self.wait_for_step(1)
        self.desktop.press("alt+F4")
        within(5, lambda: not self.window(), "the window is gone")
        self.assertIsNone(self.agent.process.poll())
        self.restart()
        self.allow_calendars()
        self.see_the_takeover()
        self.finish()
        self.agent.write_meeting("soon", time.time() + 30)
        self.restart()
        # What shows that the program runs comes later than the window would.
        within(20, lambda: self.desktop.panels(), "a takeover comes up")
        self.assertEqual(self.window(), [])

    def test_is_started_by_a_session_after_the_switch_for_it_was_thrown(self):
        self.allow_calendars()
        self.see_the_takeover()
        for key in ["Tab", "space"]:
            self.desktop.press(key)
        within(10, self.entries, "the entry is written")
        for key in ["Tab", "Tab"]:
            self.desktop.press(key)
        self.finish()
        self.desktop.end(self.agent.process)
        self.agent.write_meeting("soon", time.time() + 30)
        # A session of openbox's own, which it takes no other window manager for.
        self.desktop.end(self.desktop.manager)
        self.desktop.start("openbox-session")
        within(30, lambda: self.desktop.panels(), "a takeover comes up")
        self.assertEqual(subprocess.run([*self.agent.command, "--action", "quit"],
                                        env=self.desktop.environment, timeout=30, check=False).returncode, 0)
        within(10, lambda: not self.desktop.panels(), "what the session started has ended")


class OnboardingReaderTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.start_bus()
        self.reader = self.enterContext(ScreenReader(self.desktop.environment))
        self.agent = Agent(self.desktop, VANTREL, first_run=True)

    def expect_page(self, title, number, lines, focused):
        within(20, lambda: self.reader.element("heading", title), f"the page: {title}")
        within(10, lambda: self.reader.focused()[-1:] == [focused],
               f"{focused}; heard {self.reader.focused()}")
        self.assertTrue(self.reader.element("progress bar", f"Step {number} of {STEPS}"))
        read = [line.strip() for line in self.reader.lines()]
        page = read[read.index(f"heading '{title}'") + 1:]
        self.assertEqual([line for line in page if not line.startswith(("label", "panel", "heading"))],
                         lines)

    def press(self, role, name):
        self.assertTrue(self.reader.press(role, name), name)

    def states(self, role, name):
        return self.reader.element(role, name)["states"]

    def test_a_screen_reader_is_told_of_each_step_and_goes_through_them(self):
        self.expect_page("Tobble fetches you to your meetings.", 1, ["push button 'Get started'"],
                         "push button 'Get started'")
        self.press("push button", "Get started")
        back, go_on = "push button 'Back'", "push button 'Continue'"
        self.expect_page("Allow notifications", 3, [back, "push button 'Skip'", go_on], go_on)
        self.assertTrue(self.reader.element("label", "Notifications: Optional"))
        self.press("push button", "Skip")
        themes = ["Hearth", "Summit", "Alpine Dawn", "Dusk", "Chestnut"]
        self.expect_page("Pick a theme", 4,
                         [*[f"radio button '{theme}'" for theme in themes], back, go_on], go_on)
        self.assertEqual([theme for theme in themes if "checked" in self.states("radio button", theme)],
                         ["Hearth"])
        self.press("radio button", "Dusk")
        within(10, lambda: "checked" in self.states("radio button", "Dusk"), "it is picked")
        self.press("push button", "Continue")
        show = "push button 'Show me the takeover'"
        self.expect_page("See it in action", 5, [show, back, go_on], show)
        self.press("push button", "Continue")
        switch, finish = "check box 'Launch Vantrel at login'", "push button 'Finish'"
        self.expect_page("One last thing — launch at login?", 6, [switch, back, finish], finish)
        self.press("check box", "Launch Vantrel at login")
        within(10, lambda: "checked" in self.states("check box", "Launch Vantrel at login"), "it is on")
        self.press("push button", "Finish")
        within(10, lambda: not self.desktop.windows(name="^Welcome to Vantrel$"), "the window is gone")
        settings = json.loads((self.agent.profile / "settings.json").read_text())
        self.assertEqual((settings[FIRST_RUN_IS_OVER], settings["Vantrel.selectedTheme"]), (True, "dusk"))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
