#!/usr/bin/python3
"""The status item as a person meets it, in a panel of the tests' own on a bus of their own."""

import os
import pathlib
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "panel"))

from desktop import Agent, Desktop
from panel_process import PanelProcess

VANTREL = os.environ["VANTREL"]
TITLE = "Morning stand-up"

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

    def test_counts_down_beside_the_paw(self):
        agent = self.start_agent()
        first = self.panel.item(label="")
        # Half a minute from where the figure changes, so that no delay of the machine matters.
        agent.write_meeting("soon", time.time() + 4.5 * 60, title=TITLE)
        shown = self.panel.item(label=label(5))
        self.assertEqual(shown["icon"], first["icon"])
        self.assertIn(TITLE, shown["tooltip"][1])
        self.panel.item(TICK, label=label(4))

    def test_quits_from_its_menu_which_offers_no_window_that_there_is_not(self):
        agent = self.start_agent()
        self.panel.item(label="")
        lines = self.panel.do("menu")
        self.assertEqual([line.get("label") for line in lines if line.get("type") != "separator"],
                         ["Preferences…", "Check for Updates…", "Quit Vantrel"])
        self.assertEqual([line.get("enabled", True) for line in lines], [False, False, True, True])
        self.panel.do("click", label="Quit Vantrel")
        self.assertEqual(agent.process.wait(20), 0)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
