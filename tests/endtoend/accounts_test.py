#!/usr/bin/python3
"""The accounts of a desktop: a meeting that a CalDAV server gets takes over the screen, and nobody
touches the program."""

import json
import os
import time
import unittest

from accounts import Accounts
from desktop import FIRST_RUN_IS_OVER, LEFT, SURFACE, Desktop, share, within

VANTREL = os.environ["VANTREL"]
LEAD = 3


class AccountsTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.move_pointer(400, 500)
        self.accounts = Accounts(self.desktop)

    def start_agent(self):
        """On the desktop's own files: a profile of its own would leave the accounts alone."""
        own = self.desktop.folder / "config" / "Vantrel"
        own.mkdir(parents=True)
        (own / "settings.json").write_text(json.dumps(
            {"Vantrel.leadTimeSeconds": LEAD, FIRST_RUN_IS_OVER: True}))
        (own / "access.json").write_text(json.dumps({"calendarAccess": "granted"}))
        self.desktop.start(VANTREL)

    def test_a_meeting_added_on_the_server_takes_over_the_screen(self):
        self.accounts.put_meeting("later", int(time.time()) + 3 * 3600)
        self.start_agent()
        within(30, lambda: b"Meeting later" in self.desktop.ask(VANTREL, "agenda"),
               "the service has read what the server had before")
        # It looks at the server once a minute; nobody asks it to.
        due = int(time.time()) + 85
        self.accounts.put_meeting("soon", due + LEAD)
        while time.time() < due - 0.1:
            self.assertEqual(self.desktop.panels(), [])
            time.sleep(0.05)
        within(12, lambda: len(self.desktop.panels()) == 2, "both monitors have a panel")
        within(3, lambda: share(self.desktop.picture(), LEFT, SURFACE) > 0.7, "it is drawn")
        self.desktop.press("Escape")
        within(4, lambda: not self.desktop.panels(), "the takeover is gone")


if __name__ == "__main__":
    unittest.main()
