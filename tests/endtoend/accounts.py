"""The accounts of a desktop as tests have them: a session bus, on which Evolution Data Server starts
when it is asked for, and servers on loopback that an account and a subscription belong to."""

import http.client
import socket

from desktop import stamp, within

REMOTE = """
[Authentication]
Host=127.0.0.1
Port={port}
Method=none
ProxyUid=system-proxy

[Security]
Method=none

[WebDAV Backend]
ResourcePath={path}

[Offline]
StaySynchronized=true

[Refresh]
Enabled=true
IntervalMinutes=1
"""

ACCOUNT = """[Data Source]
DisplayName=Office
Enabled=true
Parent=caldav-stub

[Calendar]
BackendName=caldav
Color=#445566
""" + REMOTE

SUBSCRIPTION = """[Data Source]
DisplayName=Holidays
Enabled=true
Parent=webcal-stub

[Calendar]
BackendName=webcal
Color=#665544
""" + REMOTE


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


def calendar_text(*lines):
    return "\r\n".join(["BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//test//EN", "BEGIN:VEVENT",
                        *lines, "END:VEVENT", "END:VCALENDAR", ""])


def ask(port, method, path, body=None):
    connection = http.client.HTTPConnection("127.0.0.1", port, timeout=30)
    connection.request(method, path, body, {"Content-Type": "text/calendar"} if body else {})
    status = connection.getresponse().status
    connection.close()
    return status


def answers(port):
    try:
        return ask(port, "GET", "/")
    except OSError:
        return None


class Accounts:
    """In a session of `desktop.py`: a CalDAV account "Office" with the calendar of its owner. What
    is set up comes before the first question to the service, which starts with it."""

    def __init__(self, session):
        self.session = session
        self.sources = session.folder / "config" / "evolution" / "sources"
        self.sources.mkdir(parents=True)
        session.environment["GSETTINGS_BACKEND"] = "memory"
        session.start_bus()
        self._add_account()

    def _add_account(self):
        self.port = free_port()
        configuration = self.session.folder / "radicale.conf"
        configuration.write_text(
            f"[server]\nhosts = 127.0.0.1:{self.port}\n[auth]\ntype = none\n[rights]\ntype = owner_only\n"
            f"[storage]\nfilesystem_folder = {self.session.folder}/caldav\n")
        self.session.start("/usr/bin/python3", "-m", "radicale", "--config", str(configuration))
        within(30, lambda: answers(self.port), "the CalDAV server answers")
        # The owner first, or nobody owns what lies below.
        self.ask("MKCOL", "/me/")
        self.ask("MKCALENDAR", "/me/work/")
        self._write_source("office", ACCOUNT, self.port, "/me/work/")

    def subscribe(self, *lines):
        """Subscribes to a calendar of the web, "Holidays", with one event of those lines."""
        pages = self.session.folder / "www"
        pages.mkdir()
        (pages / "holidays.ics").write_text(calendar_text(*lines))
        port = free_port()
        self.session.start("/usr/bin/python3", "-m", "http.server", "--bind", "127.0.0.1",
                           "--directory", str(pages), str(port))
        within(30, lambda: answers(port), "the web server answers")
        self._write_source("holidays", SUBSCRIPTION, port, "/holidays.ics")

    def _write_source(self, name, keys, port, path):
        (self.sources / f"{name}.source").write_text(keys.format(port=port, path=path))

    def ask(self, method, path, body=None):
        status = ask(self.port, method, path, body)
        if status >= 300:
            raise AssertionError(f"{method} {path}: {status}")

    def put_meeting(self, name, starts_at):
        self.ask("PUT", f"/me/work/{name}.ics", calendar_text(
            f"UID:{name}", f"DTSTAMP:{stamp(starts_at)}", f"DTSTART:{stamp(starts_at)}",
            "DURATION:PT30M", f"SUMMARY:Meeting {name}"))
