#!/usr/bin/python3
"""The status item as a person meets it, in a panel of the tests' own on a bus of their own."""

import os
import pathlib
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "panel"))

from desktop import Agent, Desktop, within
from panel_process import PanelProcess

VANTREL = os.environ["VANTREL"]
TITLE = "Morning stand-up"
LINK = "https://meeting.example.com/stand-up?room=12&pass=a%20b#top"

# Longer than the minute between two displays, on a machine that has much else to do.
TICK = 80


def label(minutes):
    return f"● {TITLE} • in {minutes} min"


class MenuBarTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.start_bus()
        self.panel = self.enterContext(PanelProcess(self.desktop.environment))

    def start_agent(self, **settings):
        return Agent(self.desktop, VANTREL, **settings)

    def popups(self):
        return self.desktop.windows(name="^Vantrel$")

    def click(self):
        """Clicks the item, which lies at the top of the left monitor."""
        self.panel.do("activate", x=1700, y=12)

    def open_popover(self):
        self.click()
        within(20, self.popups, "the popover is shown")
        # Meetings may be tomorrow's when the tests run late.
        self.desktop.press("alt+a")

    def meeting_soon(self, agent, *lines):
        """Half a minute from where the figure changes; a slow machine may be past that."""
        agent.write_meeting("soon", time.time() + 4.5 * 60, *lines, title=TITLE)
        return self.panel.next(lambda record: record.get("label") in {label(5), label(4)})

    def test_counts_down_beside_the_paw(self):
        agent = self.start_agent()
        self.panel.item(label="")
        shown = self.meeting_soon(agent)
        # The paw that tells of no pause, with the calendar's dot.
        self.assertRegex(shown["icon"], "^vantrel-pawprint-fill-[0-9a-f]{6}-symbolic$")
        self.assertIn(TITLE, shown["tooltip"][1])
        self.panel.item(TICK, label=label(4 if shown["label"] == label(5) else 3))

    def test_pausing_empties_it_and_outlines_the_paw(self):
        agent = self.start_agent()
        shown = self.meeting_soon(agent)
        self.open_popover()
        self.desktop.press("alt+p")
        paused = self.panel.item(label="")
        self.assertNotEqual(paused["icon"], shown["icon"])
        self.assertIn("pawprint", paused["icon"])
        self.assertNotIn("fill", paused["icon"])
        self.assertIn("Vantrel (paused)", paused["tooltip"][1])
        self.desktop.press("alt+p")
        self.assertIn(self.panel.item(icon=shown["icon"])["label"], [label(5), label(4), label(3)])

    def test_joining_from_a_row_opens_the_link(self):
        agent = self.start_agent()
        self.meeting_soon(agent, f"DESCRIPTION:Join: {LINK} and more")
        self.open_popover()
        self.desktop.press("Down")
        self.desktop.press("Return")
        within(10, agent.opened_url, "the link was opened")
        self.assertEqual(agent.opened_url(), LINK + "\n")
        within(5, lambda: not self.popups(), "the popover is gone")
        self.assertEqual(agent.counts()["rescuesFromPopover"], 1)
        self.assertEqual(agent.counts()["rescuesFromTakeover"], 0)

    def test_a_second_click_closes_the_popover_and_a_third_one_opens_it(self):
        self.start_agent()
        self.panel.item(label="")
        self.open_popover()
        self.click()
        within(5, lambda: not self.popups(), "the popover is gone")
        self.click()
        within(5, self.popups, "the popover is back")
        self.desktop.press("Escape")
        within(5, lambda: not self.popups(), "the popover is gone")

    def open_menu(self):
        self.panel.do("context-menu", x=1700, y=12)
        within(20, self.popups, "the menu is shown")

    def test_a_right_click_shows_the_menu_in_which_a_comma_opens_the_preferences(self):
        self.start_agent()
        self.panel.item(label="")
        self.open_menu()
        menu = self.popups()
        self.desktop.press("comma")
        within(20, lambda: self.popups() and not set(menu) & set(self.popups()),
               "a window has taken the menu's place")
        geometry = self.desktop.ask("xdotool", "getwindowgeometry", "--shell", self.popups()[0].decode())
        self.assertIn("WIDTH=880", geometry.decode().split())

    def test_a_right_click_shows_the_menu_in_which_q_quits(self):
        agent = self.start_agent()
        self.panel.item(label="")
        self.open_menu()
        self.desktop.press("q")
        self.assertEqual(agent.process.wait(20), 0)

    def test_tells_how_it_is_updated_where_there_is_no_software_centre(self):
        self.start_agent()
        self.panel.item(label="")
        self.panel.do("click", label="Check for Updates…")
        within(20, lambda: self.desktop.windows(name="^Updates$"), "the window is shown")
        self.desktop.press("Escape")
        within(5, lambda: not self.desktop.windows(name="^Updates$"), "the window is gone")

    def test_quits_from_its_menu_which_offers_each_window(self):
        agent = self.start_agent()
        self.panel.item(label="")
        lines = self.panel.do("menu")
        self.assertEqual([line.get("label") for line in lines if line.get("type") != "separator"],
                         ["Preferences…", "Check for Updates…", "Quit Vantrel"])
        self.assertEqual([line.get("enabled", True) for line in lines], [True, True, True, True])
        self.panel.do("click", label="Quit Vantrel")
        self.assertEqual(agent.process.wait(20), 0)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
