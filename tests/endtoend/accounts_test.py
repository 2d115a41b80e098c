#!/usr/bin/python3
"""The accounts of a desktop: a meeting that a CalDAV server gets takes over the screen, and nobody
touches the program."""

import http.client
import json
import os
import socket
import time
import unittest

from desktop import LEFT, SURFACE, Desktop, share, stamp, within

VANTREL = os.environ["VANTREL"]
LEAD = 3

SOURCE = """[Data Source]
DisplayName=Office
Enabled=true
Parent=caldav-stub

[Calendar]
BackendName=caldav

[Authentication]
Host=127.0.0.1
Port={port}
Method=none
ProxyUid=system-proxy

[Security]
Method=none

[WebDAV Backend]
ResourcePath=/me/work/

[Offline]
StaySynchronized=true

[Refresh]
Enabled=true
IntervalMinutes=1
"""


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


class Accounts:
    """A session bus, on which the desktop's services start, and a CalDAV server on loopback."""

    def __init__(self, desktop):
        self.port = free_port()
        configuration = desktop.folder / "radicale.conf"
        configuration.write_text(
            f"[server]\nhosts = 127.0.0.1:{self.port}\n[auth]\ntype = none\n"
            f"[rights]\ntype = owner_only\n[storage]\nfilesystem_folder = {desktop.folder}/caldav\n")
        desktop.start("/usr/bin/python3", "-m", "radicale", "--config", str(configuration))
        within(30, self.answers, "the CalDAV server answers")
        # The owner first, or nobody owns what lies below.
        self.ask("MKCOL", "/me/")
        self.ask("MKCALENDAR", "/me/work/")

        sources = desktop.folder / "config" / "evolution" / "sources"
        sources.mkdir(parents=True)
        (sources / "office.source").write_text(SOURCE.format(port=self.port))
        bus = desktop.folder / "runtime" / "bus"
        desktop.environment |= {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={bus}",
                                "GSETTINGS_BACKEND": "memory"}
        desktop.start("dbus-daemon", "--session", "--nofork", f"--address=unix:path={bus}")
        within(10, bus.exists, "the session bus is there")

    def answers(self):
        try:
            return self.ask("GET", "/", succeeds=False)
        except OSError:
            return None

    def ask(self, method, path, body=None, succeeds=True):
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=30)
        connection.request(method, path, body, {"Content-Type": "text/calendar"} if body else {})
        status = connection.getresponse().status
        connection.close()
        if succeeds and status >= 300:
            raise AssertionError(f"{method} {path}: {status}")
        return status

    def put_meeting(self, name, starts_at):
        self.ask("PUT", f"/me/work/{name}.ics", "\r\n".join([
            "BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//test//EN", "BEGIN:VEVENT", f"UID:{name}",
            f"DTSTAMP:{stamp(starts_at)}", f"DTSTART:{stamp(starts_at)}", "DURATION:PT30M",
            f"SUMMARY:Meeting {name}", "END:VEVENT", "END:VCALENDAR", ""]))


class AccountsTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.move_pointer(400, 500)
        self.accounts = Accounts(self.desktop)

    def start_agent(self):
        """On the desktop's own files: a profile of its own would leave the accounts alone."""
        own = self.desktop.folder / "config" / "Vantrel"
        own.mkdir(parents=True)
        (own / "settings.json").write_text(json.dumps({"Vantrel.leadTimeSeconds": LEAD}))
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
