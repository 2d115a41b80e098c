#!/usr/bin/python3
"""The list of meetings and the menu on a Wayland desktop whose compositor has a layer shell."""

import os
import pathlib
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "panel"))

from desktop import SURFACE, Agent, bounds, within
from panel_process import PanelProcess
from wayland import LEFT, PANEL, RIGHT, WaylandDesktop

VANTREL = os.environ["VANTREL"]
FULL_SCREEN = os.environ["FULL_SCREEN_WINDOW"]
LINK = "https://meeting.example.com/stand-up?room=12&pass=a%20b#top"


class LayerPopupTest(unittest.TestCase):
    def start(self, **options):
        self.desktop = self.enterContext(WaylandDesktop(**options))
        self.desktop.start_bus()
        self.panel = self.enterContext(PanelProcess(self.desktop.environment))
        self.agent = Agent(self.desktop, VANTREL)
        self.panel.item(label="")

    def shown(self, output=LEFT):
        """The frame of what is shown, in the desktop's pixels and from the output's corner."""
        box = bounds(self.desktop.picture(output), SURFACE)
        return box and tuple(side / self.desktop.scale for side in box)

    def click_item(self, x, y):
        """What a panel does once its own window was clicked there: it tells no place."""
        self.desktop.move_pointer(x, y)
        self.panel.do("activate", x=0, y=0)

    def open_popover(self, x=None, y=10, output=LEFT):
        # Until the last frame of what it does as it appears. A click right after the end of the
        # list before may be the one that ended it, and opens nothing.
        frames, clicked = [], 0.0

        def stands():
            nonlocal clicked
            frames.append(self.shown(output))
            if not frames[-1] and time.monotonic() > clicked + 1:
                self.click_item(self.desktop.width - 60 if x is None else x, y)
                clicked = time.monotonic()
            return frames[-1] and len(set(frames[-3:])) == 1 and len(frames) > 3

        within(20, stands, "the popover is shown")
        return frames[-1]

    def assert_gone(self):
        for output in self.desktop.outputs():
            within(5, lambda: not self.shown(output), "nothing is shown any more")

    def assert_hangs(self, frame, right=None, left=None, top=None, bottom=None):
        """Eight pixels from the edges that are named, but for the corners' rounding."""
        for name, side, edge in [("left", 0, left), ("top", 1, top), ("right", 2, right),
                                 ("bottom", 3, bottom)]:
            if edge is not None:
                self.assertAlmostEqual(frame[side], edge, delta=2.5, msg=f"{name} of {frame}")

    def test_hangs_in_the_corner_of_the_panel_that_was_clicked(self):
        self.start()
        width = self.desktop.width
        frame = self.open_popover()
        self.desktop.keep_picture("popover-top-right")
        self.assert_hangs(frame, right=width - 8, top=PANEL + 8)
        self.assertAlmostEqual(frame[2] - frame[0], 360, delta=3)
        self.desktop.press("Escape")
        self.assert_gone()
        self.assert_hangs(self.open_popover(x=60), left=8, top=PANEL + 8)
        self.desktop.press("Escape")
        self.assert_gone()
        frame = self.open_popover(x=width + width - 60, output=RIGHT)
        self.assertIsNone(self.shown(LEFT))
        self.assert_hangs(frame, right=width - 8, top=PANEL + 8)

    def test_hangs_above_a_panel_at_the_bottom(self):
        self.start(panel="bottom")
        frame = self.open_popover(y=self.desktop.height - 10)
        self.assert_hangs(frame, right=self.desktop.width - 8,
                          bottom=self.desktop.height - PANEL - 8)

    def test_comes_up_at_the_top_where_the_pointer_is_in_no_panel(self):
        self.start(panel=None)
        frame = self.open_popover(x=400, y=700)
        self.assert_hangs(frame, right=self.desktop.width - 8, top=8)

    def test_is_whole_on_screens_that_scale(self):
        for scale in [1.5, 2]:
            with self.subTest(scale=scale):
                self.start(scale=scale)
                frame = self.open_popover()
                self.desktop.keep_picture(f"popover-scale-{scale}")
                self.assert_hangs(frame, right=self.desktop.width - 8, top=PANEL + 8)
                self.assertLess(frame[3], self.desktop.height)
                self.agent.process.terminate()
                self.agent.process.wait(20)
                self.doCleanups()

    def test_a_click_elsewhere_closes_it_and_so_does_one_on_the_panel(self):
        self.start()
        self.open_popover()
        self.desktop.click(500, 700)
        self.assert_gone()
        self.open_popover()
        self.desktop.click(self.desktop.width + 500, 700)  # the other output
        self.assert_gone()
        self.open_popover()
        self.desktop.click(self.desktop.width - 60, 10)
        self.assert_gone()

    def test_a_second_click_that_the_panel_tells_of_closes_it(self):
        self.start()
        self.open_popover()
        self.panel.do("activate", x=0, y=0)
        self.assert_gone()

    def test_arrows_and_return_join_a_meeting_and_the_keyboard_goes_back(self):
        self.start()
        self.desktop.start(FULL_SCREEN, "behind")
        within(10, lambda: "behind" in self.desktop.windows()[1], "a program has the keyboard")
        self.agent.write_meeting("soon", time.time() + 270, f"URL:{LINK}", title="Morning stand-up")
        self.panel.next(lambda record: "Morning" in record.get("label", ""))
        self.open_popover(y=10)
        self.desktop.press("a", "alt")  # Meetings may be tomorrow's when the tests run late.
        self.desktop.press("Down")
        self.desktop.press("Return")
        within(10, self.agent.opened_url, "the link was opened")
        self.assertEqual(self.agent.opened_url(), LINK + "\n")
        self.assert_gone()
        within(5, lambda: "behind" in self.desktop.windows()[1], "the keyboard is back")

    def test_a_window_of_the_programs_own_gets_the_keyboard(self):
        self.start()
        popover = self.open_popover()
        self.desktop.click(popover[2] - 26, popover[1] + 24)  # the gear
        within(5, lambda: self.shown() != popover, "the menu is shown")
        self.desktop.press("Down")
        self.desktop.press("Return")
        within(20, lambda: self.desktop.windows()[1], "the recap is shown")
        self.desktop.press("Escape")
        within(5, lambda: not self.desktop.windows()[0], "the key was the recap's")

    def test_starting_it_again_shows_it_where_the_pointer_is(self):
        self.start()
        self.desktop.move_pointer(self.desktop.width + 400, 700)
        self.desktop.start(*self.agent.command)
        frame = within(20, lambda: self.shown(RIGHT), "the list is shown")
        self.assert_hangs(frame, right=self.desktop.width - 8, top=PANEL + 8)
        self.desktop.press("Escape")
        self.assert_gone()

    def test_its_menu_lies_on_it_whole_and_closes_by_itself(self):
        self.start()
        popover = self.open_popover()
        self.desktop.click(popover[2] - 26, popover[1] + 24)  # the gear
        frame = within(5, lambda: self.shown() != popover and self.shown(), "the menu is shown")
        self.desktop.keep_picture("popover-menu")
        self.assertLessEqual(frame[2], self.desktop.width)
        self.desktop.press("Escape")
        within(5, lambda: self.shown() == popover, "the list is alone again")
        self.desktop.press("Escape")
        self.assert_gone()

    def test_the_items_menu_is_shown_at_the_click_and_q_quits(self):
        self.start()
        self.desktop.move_pointer(900, 10)
        self.panel.do("context-menu", x=0, y=0)
        frame = within(20, self.shown, "the menu is shown")
        self.assert_hangs(frame, top=PANEL)
        self.assertAlmostEqual(frame[0], 900, delta=3)
        self.desktop.press("q")
        self.assertEqual(self.agent.process.wait(20), 0)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
