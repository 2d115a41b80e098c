#!/usr/bin/python3
"""The takeover on a Wayland desktop, with the compositor's layer shell and without."""

import math
import os
import pathlib
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "panel"))

from desktop import ACCENT, SURFACE, Agent, bounds, share, within
from panel_process import PanelProcess
from wayland import LEFT, RIGHT, SIZE, WaylandDesktop, WestonDesktop

VANTREL = os.environ["VANTREL"]
FULL_SCREEN = os.environ["FULL_SCREEN_WINDOW"]
LINK = "https://meeting.example.com/stand-up?room=12&pass=a%20b#top"
LEAD = 3


class TakeoverCases:
    """What is the same on every compositor."""

    layer_shell = "on"
    desktops = WaylandDesktop

    def start(self, **options):
        self.desktop = self.enterContext(self.desktops(**options))
        self.desktop.environment["VANTREL_LAYER_SHELL"] = self.layer_shell
        self.agent = Agent(self.desktop, VANTREL, leadTimeSeconds=LEAD)

    def write_meeting_soon(self, *lines, seconds=4.0):
        """A meeting whose takeover is due in about that many seconds."""
        self.agent.write_meeting("soon", math.ceil(time.time() + seconds) + LEAD, *lines)

    def is_covered(self, output):
        """From edge to edge, and with the desktop's panel."""
        picture = self.desktop.picture(output)
        return (bounds(picture, SURFACE) == (0, 0, *picture.size)
                and share(picture, (0, 0, *picture.size), SURFACE) > 0.7)

    def is_interactive(self, output):
        """Whether the buttons are there."""
        picture = self.desktop.picture(output)
        width, height = picture.size
        button = (width * 9 // 20, height // 2, width * 11 // 20, height * 9 // 10)
        return share(picture, button, ACCENT) > 0.05

    def show_takeover(self, *lines, interactive=LEFT):
        self.write_meeting_soon(*lines)
        self.wait_for_takeover(interactive)

    def wait_for_takeover(self, interactive=LEFT):
        for output in self.desktop.outputs():
            within(20, lambda: self.is_covered(output), f"{output} is covered")
        within(5, lambda: self.is_interactive(interactive), "the buttons are there")

    def answer(self, key):
        """Presses a key now and then until it counts, since none does at first."""
        pressed = 0.0

        def is_answered():
            nonlocal pressed
            if not any(self.is_interactive(output) for output in self.desktop.outputs()):
                return True
            if time.monotonic() > pressed + 1:
                self.desktop.press(key)
                pressed = time.monotonic()
            return False

        within(20, is_answered, f"{key} is an answer")

    def wait_for_end(self):
        for output in self.desktop.outputs():
            within(5, lambda: not bounds(self.desktop.picture(output), SURFACE), "it is gone")

    def test_covers_both_outputs_and_space_opens_the_link(self):
        self.start()
        self.show_takeover(f"DESCRIPTION:Join: {LINK} and more")
        self.assertFalse(self.is_interactive(RIGHT))
        self.desktop.keep_picture(type(self).__name__)
        self.answer("space")
        within(5, self.agent.opened_url, "the link was opened")
        self.assertEqual(self.agent.opened_url(), LINK + "\n")
        self.wait_for_end()
        self.assertEqual(self.agent.counts()["rescuesFromTakeover"], 1)

    def test_s_snoozes_it(self):
        self.start()
        self.show_takeover()
        self.answer("s")
        self.wait_for_end()
        self.assertEqual(self.agent.counts()["snoozes"], 1)

    def test_a_click_on_the_other_output_does_nothing_and_one_on_its_button_joins(self):
        self.start()
        self.show_takeover(f"URL:{LINK}")
        left, top, right, bottom = bounds(self.desktop.picture(LEFT), ACCENT)
        middle = (left + right) // 2, bottom - 100
        picture = self.desktop.picture(LEFT)
        rows = [y for y in range(SIZE[1] // 2, SIZE[1])
                if share(picture, (middle[0] - 20, y, middle[0] + 20, y + 1), ACCENT) > 0.3]
        button = middle[0], rows[len(rows) // 2]
        self.desktop.click(self.desktop.width + button[0], button[1])
        self.assertTrue(self.is_covered(LEFT))

        def is_joined():
            self.desktop.click(*button)  # Nor does a click count at first.
            return self.agent.opened_url()

        within(5, is_joined, "the link was opened")
        self.wait_for_end()



class SwayCases(TakeoverCases):
    def full_screen(self, name):
        self.desktop.start(FULL_SCREEN, name)
        within(10, lambda: name in self.desktop.windows()[0], "a program is full screen")

    def test_escape_dismisses_it_and_the_keyboard_goes_back_to_a_full_screen_program(self):
        self.start()
        self.full_screen("before")
        within(10, lambda: "before" in self.desktop.windows()[1], "it has the keyboard")
        self.show_takeover(f"URL:{LINK}")
        self.answer("Escape")
        self.wait_for_end()
        self.assertEqual(self.agent.counts()["dismisses"], 1)
        self.assertIsNone(self.agent.opened_url())
        within(5, lambda: "before" in self.desktop.windows()[1], "the keyboard is back")

    def test_covers_every_output_that_comes_and_follows_when_its_own_goes(self):
        self.start(outputs="windows", panel=None)
        first, second = self.desktop.outputs()
        self.show_takeover(f"URL:{LINK}", interactive=first)
        self.desktop.message("create_output")
        within(5, lambda: len(self.desktop.outputs()) == 3, "a third output is there")
        third = self.desktop.outputs()[2]
        within(10, lambda: self.is_covered(third), "it is covered")
        self.assertTrue(self.is_interactive(first))
        self.desktop.remove_output(first)
        within(5, lambda: self.desktop.outputs() == [second, third], "the first output is gone")
        within(10, lambda: self.is_covered(second) and self.is_covered(third), "both are covered")
        within(5, lambda: self.is_interactive(second) != self.is_interactive(third),
               "one of them has the buttons")
        self.answer("space")
        within(5, self.agent.opened_url, "the keyboard followed")
        self.wait_for_end()

    def test_leaves_no_line_free_on_screens_that_scale(self):
        for scale in [1.25, 1.5, 2]:
            with self.subTest(scale=scale):
                self.start(scale=scale)
                self.show_takeover()
                self.desktop.keep_picture(f"takeover-scale-{scale}-layer-shell-{self.layer_shell}")
                self.agent.process.terminate()
                self.agent.process.wait(20)
                self.doCleanups()

    def test_text_that_is_being_typed_is_no_answer_to_it(self):
        self.start()
        self.write_meeting_soon(f"URL:{LINK}")
        # Twenty a second, for longer than it takes.
        typist = self.desktop.start("wtype", *["-s", "50", "-k", "space"] * 1000)
        within(20, lambda: self.is_covered(LEFT), "it is up")
        self.desktop.end(typist)
        self.assertTrue(self.is_interactive(LEFT), "no key has joined")
        self.assertIsNone(self.agent.opened_url())

        self.answer("space")
        within(5, self.agent.opened_url, "after a pause a key is an answer")

    def test_takes_the_keyboard_over_from_the_list(self):
        self.start()
        self.desktop.start_bus()
        self.agent.process.terminate()
        self.agent.process.wait(20)
        with PanelProcess(self.desktop.environment) as panel:
            self.agent.start()
            panel.item(label="")
            self.write_meeting_soon(f"URL:{LINK}", seconds=6)
            panel.do("activate", x=0, y=0)
            within(3, lambda: bounds(self.desktop.picture(), SURFACE), "the list is shown")
            self.wait_for_takeover()
            self.answer("space")
            within(5, self.agent.opened_url, "the link was opened")
            self.wait_for_end()


class WaylandTakeoverTest(SwayCases, unittest.TestCase):
    def test_stays_above_a_program_that_goes_full_screen_later(self):
        self.start()
        self.show_takeover(f"URL:{LINK}")
        self.full_screen("later")
        self.assertTrue(self.is_covered(LEFT))
        self.assertTrue(self.is_covered(RIGHT))
        self.answer("Return")
        within(5, self.agent.opened_url, "the keyboard is the takeover's")
        self.wait_for_end()


class WaylandTakeoverWithoutLayerShellTest(SwayCases, unittest.TestCase):
    layer_shell = "off"


class WaylandTakeoverOnWestonTest(TakeoverCases, unittest.TestCase):
    """A compositor that has no layer shell."""

    desktops = WestonDesktop


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
