#!/usr/bin/python3
"""The program as a person meets it: a meeting is written into a calendar folder, and the takeover
comes, covers, answers and leaves."""

import math
import os
import sys
import time
import unittest

from desktop import ACCENT, LEFT, RIGHT, SURFACE, Agent, Desktop, share, within

VANTREL = os.environ["VANTREL"]
FULL_SCREEN = os.environ["FULL_SCREEN_WINDOW"]
LINK = "https://meeting.example.com/stand-up?room=12&pass=a%20b#top"
LEAD = 3


class TakeoverTest(unittest.TestCase):
    window_manager = True

    def setUp(self):
        self.desktop = self.enterContext(Desktop(self.window_manager))
        self.desktop.move_pointer(400, 500)

    def start_agent(self, **settings):
        return Agent(self.desktop, VANTREL, leadTimeSeconds=LEAD, **settings)

    def write_meeting_soon(self, agent, *lines, seconds=4.0, **more):
        """A meeting whose takeover is due in about that many seconds; returns the due time."""
        start = math.ceil(time.time() + seconds) + LEAD
        agent.write_meeting("soon", start, *lines, **more)
        return start - LEAD

    def wait_for_takeover(self, monitors=2, seconds=12):
        within(seconds, lambda: len(self.desktop.panels()) == monitors, f"{monitors} panels are up")
        # The panels fade in and draw their first frame.
        within(3, lambda: share(self.desktop.picture(), LEFT, SURFACE) > 0.7, "the takeover is drawn")

    def wait_for_end(self, seconds=4):
        within(seconds, lambda: not self.desktop.panels(), "the takeover is gone")

    def assert_covered(self, interactive, echo):
        picture = self.desktop.picture()
        for area in [interactive, echo]:
            self.assertGreater(share(picture, area, SURFACE), 0.7)
            left, _, right, bottom = area
            # Where the dock stands there is nothing but the takeover's ground.
            self.assertGreater(share(picture, (left, bottom - 40, right, bottom), SURFACE), 0.85)
        left, _, right, _ = interactive
        centre = (left + right) // 2
        button = (centre - 90, 540, centre + 90, 900)
        self.assertGreater(share(picture, button, ACCENT), 0.05)
        left, _, right, _ = echo
        centre = (left + right) // 2
        self.assertLess(share(picture, (centre - 90, 540, centre + 90, 900), ACCENT), 0.05)

    def test_covers_both_monitors_at_the_lead_time_and_space_opens_the_link(self):
        agent = self.start_agent()
        before = self.desktop.picture()
        self.assertLess(share(before, LEFT, SURFACE), 0.1)
        due = self.write_meeting_soon(agent, f"DESCRIPTION:Join: {LINK} and more")
        while time.time() < due - 0.1:
            self.assertEqual(self.desktop.panels(), [])
            time.sleep(0.05)
        self.wait_for_takeover()
        self.assertLess(time.time() - due, 2.0)
        self.assert_covered(interactive=LEFT, echo=RIGHT)

        self.desktop.press("space")
        joined = time.monotonic()
        within(5, agent.opened_url, "the link was opened")
        self.assertEqual(agent.opened_url(), LINK + "\n")
        within(2, lambda: agent.counts().get("rescuesFromTakeover") == 1, "the rescue was counted")
        self.assertEqual(len(self.desktop.panels()), 2, "the takeover stands a moment after a join")
        self.wait_for_end()
        self.assertGreater(time.monotonic() - joined, 1.4)
        self.assertLess(share(self.desktop.picture(), LEFT, SURFACE), 0.1)
        self.assertEqual(agent.counts(), {"dismisses": 0, "pingsSent": 0, "rescuesFromPopover": 0,
                                          "rescuesFromTakeover": 1, "snoozes": 0})

    def test_puts_the_interactive_panel_where_the_pointer_is_and_return_joins(self):
        self.desktop.move_pointer(2500, 500)
        agent = self.start_agent()
        self.write_meeting_soon(agent, f"LOCATION:{LINK}")
        self.wait_for_takeover()
        self.assert_covered(interactive=RIGHT, echo=LEFT)
        self.desktop.press("Return")
        within(5, agent.opened_url, "the link was opened")
        self.assertEqual(agent.opened_url(), LINK + "\n")
        self.wait_for_end()

    def test_escape_dismisses_without_opening_anything(self):
        agent = self.start_agent()
        self.write_meeting_soon(agent, f"URL:{LINK}")
        self.wait_for_takeover()
        self.desktop.press("Escape")
        self.wait_for_end()
        self.assertEqual(agent.counts()["dismisses"], 1)
        self.assertEqual(agent.counts()["rescuesFromTakeover"], 0)
        self.assertIsNone(agent.opened_url())

    def test_s_snoozes_and_the_takeover_comes_back(self):
        agent = self.start_agent(snoozeDurationMinutes=1)
        self.write_meeting_soon(agent)
        self.wait_for_takeover()
        self.desktop.press("s")
        snoozed = time.monotonic()
        self.wait_for_end()
        self.assertEqual(agent.counts()["snoozes"], 1)
        self.wait_for_takeover(seconds=75)
        self.assertAlmostEqual(time.monotonic() - snoozed, 60, delta=3)
        self.desktop.press("Escape")
        self.wait_for_end()

    def test_covers_a_full_screen_program_that_was_there_before_and_one_that_comes_later(self):
        self.desktop.start(FULL_SCREEN, "before")
        within(10, lambda: self.desktop.windows(name="^before$"), "a program is full screen")
        agent = self.start_agent()
        self.write_meeting_soon(agent, f"URL:{LINK}")
        self.wait_for_takeover()
        self.assert_covered(interactive=LEFT, echo=RIGHT)

        self.desktop.start(FULL_SCREEN, "later")
        within(10, lambda: self.desktop.windows(name="^later$"), "another program is full screen")
        within(3, lambda: share(self.desktop.picture(), LEFT, SURFACE) > 0.7, "the takeover is on top")
        self.assert_covered(interactive=LEFT, echo=RIGHT)
        self.desktop.press("space")
        within(5, agent.opened_url, "the keyboard is the takeover's")
        self.wait_for_end()

    def test_keeps_every_monitor_covered_when_monitors_come_and_go(self):
        self.desktop.move_pointer(2500, 500)
        agent = self.start_agent()
        self.write_meeting_soon(agent, f"URL:{LINK}")
        self.wait_for_takeover()
        self.assert_covered(interactive=RIGHT, echo=LEFT)

        self.desktop.set_monitors({"L": LEFT})
        within(5, lambda: len(self.desktop.panels()) == 1, "one panel is left")
        within(3, lambda: share(self.desktop.picture(), LEFT, ACCENT) > 0.005,
               "the interactive panel moved to the monitor that is left")

        self.desktop.set_monitors({"L": LEFT, "R": RIGHT})
        within(5, lambda: len(self.desktop.panels()) == 2, "the monitor that came is covered")
        within(3, lambda: share(self.desktop.picture(), RIGHT, SURFACE) > 0.7, "it is drawn")
        self.assert_covered(interactive=LEFT, echo=RIGHT)
        self.desktop.press("space")
        within(5, agent.opened_url, "the keyboard followed")
        self.wait_for_end()

    def test_stays_up_and_keeps_the_keyboard_when_the_window_manager_is_replaced(self):
        agent = self.start_agent()
        self.write_meeting_soon(agent, f"URL:{LINK}")
        self.wait_for_takeover()
        manager = self.window_manager_id()
        self.desktop.start_bus()  # Which xfwm4 takes its settings from.
        self.desktop.start("xfwm4", "--replace", "--compositor=off")
        within(20, lambda: self.window_manager_id() not in (None, manager), "another manager runs")
        within(5, lambda: share(self.desktop.picture(), LEFT, SURFACE) > 0.7, "it is on top")
        self.assert_covered(interactive=LEFT, echo=RIGHT)
        self.desktop.press("space")
        within(5, agent.opened_url, "the keyboard is the takeover's")
        self.wait_for_end()

    def test_takes_no_text_that_is_being_typed_for_an_answer(self):
        agent = self.start_agent()
        self.write_meeting_soon(agent, f"URL:{LINK}")
        while not self.desktop.panels():
            self.desktop.press("space")
        self.desktop.press("space")
        # Two seconds after it came up every key counts, and the typing is over long before.
        time.sleep(0.6)
        self.assertIsNone(agent.opened_url())
        self.assertEqual(len(self.desktop.panels()), 2)
        self.desktop.press("space")
        within(5, agent.opened_url, "a press after a pause is an answer")
        self.wait_for_end()

    def test_s_snoozes_on_a_keyboard_without_latin_letters(self):
        self.desktop.ask("setxkbmap", "-layout", "ru")
        agent = self.start_agent()
        self.write_meeting_soon(agent)
        self.wait_for_takeover()
        self.desktop.press("39")  # the key's number, whatever it writes
        self.wait_for_end()
        self.assertEqual(agent.counts()["snoozes"], 1)

    def window_manager_id(self):
        words = self.desktop.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK").decode().split()
        return words[-1] if words and words[-1].startswith("0x") else None

    def test_sees_a_meeting_moved_and_one_deleted_while_it_runs(self):
        agent = self.start_agent()
        start = math.ceil(time.time()) + LEAD + 6
        agent.write_meeting("gone", start, title="Gone")
        agent.write_meeting("moved", start, f"URL:{LINK}", title="Moved")
        agent.write_meeting("moved", start + 3600, f"URL:{LINK}", title="Moved")
        (agent.calendars / "work" / "gone.ics").unlink()
        while time.time() < start - LEAD + 2:
            self.assertEqual(self.desktop.panels(), [])
            time.sleep(0.05)
        self.write_meeting_soon(agent, f"URL:{LINK}")
        self.wait_for_takeover()

    def test_dials_the_number_of_a_meeting_without_a_link(self):
        agent = self.start_agent()
        self.write_meeting_soon(agent, "DESCRIPTION:Dial +41 44 668 18 00 please")
        self.wait_for_takeover()
        self.desktop.press("space")
        within(5, agent.opened_url, "the number was dialled")
        self.assertEqual(agent.opened_url(), "tel:+41446681800\n")


class TakeoverWithoutWindowManagerTest(unittest.TestCase):
    def test_has_the_keyboard_at_once(self):
        with Desktop(window_manager=False) as desktop:
            desktop.move_pointer(400, 500)
            agent = Agent(desktop, VANTREL, leadTimeSeconds=LEAD)
            agent.write_meeting("soon", math.ceil(time.time()) + LEAD + 4, f"URL:{LINK}")
            within(12, lambda: len(desktop.panels()) == 2, "the takeover is up")
            within(3, lambda: share(desktop.picture(), RIGHT, SURFACE) > 0.7, "it is drawn")
            desktop.press("space")
            within(5, agent.opened_url, "the link was opened")

    def test_takes_the_keyboard_from_a_popover_and_gives_it_back_to_whom_it_was_before(self):
        with Desktop(window_manager=False) as desktop:
            desktop.start_bus()
            desktop.move_pointer(400, 500)
            desktop.start("xev", "-name", "editor")
            editor = within(10, lambda: desktop.windows(name="^editor$"), "a program is there")[0]
            desktop.ask("xdotool", "windowfocus", "--sync", editor)
            agent = Agent(desktop, VANTREL, leadTimeSeconds=LEAD)
            agent.write_meeting("soon", math.ceil(time.time()) + LEAD + 6, f"URL:{LINK}")
            desktop.start(*agent.command)
            within(5, lambda: desktop.windows(name="^Vantrel$"), "the popover is open")
            within(14, lambda: len(desktop.panels()) == 2, "the takeover is up")
            within(3, lambda: share(desktop.picture(), RIGHT, SURFACE) > 0.7, "it is drawn")
            self.assertFalse(desktop.windows(name="^Vantrel$"))
            desktop.answer("Escape", desktop.panels)
            within(5, lambda: desktop.ask("xdotool", "getwindowfocus").split() == [editor],
                   "the program has the keyboard again")


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
