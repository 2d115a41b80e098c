#!/usr/bin/python3
"""The first start as a person meets it: nothing of the calendars is opened before they said yes."""

import ctypes
import json
import math
import os
import pathlib
import stat
import sys
import time
import unittest

from desktop import FIRST_RUN_IS_OVER, SURFACE, Agent, Desktop, share, within

VANTREL = os.environ["VANTREL"]
LEAD = 3
IN_ACCESS = 0x1
IN_OPEN = 0x20
IN_NONBLOCK = 0x800


class Openings:
    """Hears from the kernel whether anybody lists a folder or opens a file in it."""

    def __init__(self, *folders):
        libc = ctypes.CDLL(None, use_errno=True)
        self.descriptor = libc.inotify_init1(IN_NONBLOCK)
        for folder in folders:
            if libc.inotify_add_watch(self.descriptor, bytes(folder), IN_OPEN | IN_ACCESS) < 0:
                raise OSError(ctypes.get_errno(), str(folder))

    def heard(self):
        try:
            return len(os.read(self.descriptor, 65536)) > 0
        except BlockingIOError:
            return False


class ConsentTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.move_pointer(400, 500)
        self.agent = Agent(self.desktop, VANTREL, access=None, starts=False, leadTimeSeconds=LEAD)

    def start_with_meeting_in(self, seconds):
        self.start = math.ceil(time.time() + seconds)
        self.agent.write_meeting("soon", self.start)
        self.openings = Openings(self.agent.calendars, self.agent.calendars / "work")
        self.agent.start()

    def dialog(self):
        return self.desktop.windows(name="^Vantrel$")

    def wait_for_dialog(self):
        within(20, self.dialog, "the question is asked")
        within(5, lambda: share(self.desktop.picture(), (700, 300, 1220, 780), SURFACE) > 0.3,
               "the question is drawn")

    def answer_of_the_file(self):
        return json.loads(self.agent.access_file.read_text())["calendarAccess"]

    def test_reads_once_it_is_allowed_and_the_takeover_comes(self):
        self.start_with_meeting_in(LEAD + 12)
        self.wait_for_dialog()
        self.assertFalse(self.openings.heard())
        self.assertFalse(self.agent.access_file.exists())
        self.desktop.answer("Return", self.dialog)
        within(5, self.openings.heard, "the calendars are read")
        self.assertEqual(self.answer_of_the_file(), "granted")
        self.assertEqual(stat.S_IMODE(self.agent.access_file.stat().st_mode), 0o600)
        within(30, lambda: len(self.desktop.panels()) == 2, "the takeover is up")
        self.desktop.press("Escape")
        within(5, lambda: not self.desktop.panels(), "the takeover is gone")

    def test_reads_nothing_after_a_refusal_nor_asks_at_the_next_start(self):
        self.start_with_meeting_in(LEAD + 8)
        self.wait_for_dialog()
        self.desktop.answer("Escape", self.dialog)
        self.assertEqual(self.answer_of_the_file(), "denied")
        self.desktop.end(self.agent.process)
        self.agent.start()
        while time.time() < self.start - LEAD + 3:
            self.assertEqual(self.desktop.panels(), [])
            self.assertEqual(self.dialog(), [])
            time.sleep(0.1)
        self.assertIsNone(self.agent.process.poll())
        self.assertFalse(self.openings.heard())
        (self.agent.calendars / "work" / "soon.ics").read_text()
        self.assertTrue(self.openings.heard(), "the watch works")

    def test_loads_nothing_of_the_accounts_before_it_is_allowed(self):
        self.desktop.start_bus()
        own = self.desktop.folder / "config" / "Vantrel"
        own.mkdir()
        (own / "settings.json").write_text(json.dumps({FIRST_RUN_IS_OVER: True}))
        program = self.desktop.start(VANTREL)
        maps = pathlib.Path(f"/proc/{program.pid}/maps")
        self.wait_for_dialog()
        self.assertNotIn("vantrel-evolution", maps.read_text())
        self.assertNotIn("libecal", maps.read_text())
        self.desktop.answer("Return", self.dialog)
        self.assertEqual(json.loads((own / "access.json").read_text())["calendarAccess"], "granted")
        if not (pathlib.Path(VANTREL).parent / "vantrel-evolution.so").exists():
            self.skipTest("this build comes without the accounts: nothing to load afterwards")
        within(20, lambda: "vantrel-evolution" in maps.read_text(), "the module is loaded")

    def test_a_policy_bars_without_a_question(self):
        policies = self.desktop.folder / "policies"
        (policies / "Vantrel").mkdir(parents=True)
        (policies / "Vantrel" / "policy.json").write_text('{"calendarAccess": "restricted"}')
        self.desktop.environment["XDG_CONFIG_DIRS"] = str(policies)
        self.agent.access_file.write_text('{"calendarAccess": "granted"}')
        self.start_with_meeting_in(LEAD + 4)
        while time.time() < self.start - LEAD + 3:
            self.assertEqual(self.desktop.panels(), [])
            self.assertEqual(self.dialog(), [])
            time.sleep(0.1)
        self.assertIsNone(self.agent.process.poll())
        self.assertFalse(self.openings.heard())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
