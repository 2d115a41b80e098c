"""A desktop of the tests' own: a virtual display with two monitors, a window manager, a dock, and
the program on a scratch profile."""

import contextlib
import datetime
import json
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

from PIL import Image, ImageChops, ImageGrab

LEFT = (0, 0, 1920, 1080)
RIGHT = (1920, 0, 3840, 1080)

# The default theme's ground and its one strong colour.
SURFACE = (0xFA, 0xF3, 0xE7)
ACCENT = (0xE8, 0xA0, 0x4C)

# The settings' key for that the user has been through the first run, whose window opens otherwise.
FIRST_RUN_IS_OVER = "Vantrel.hasCompletedFirstRun"


def within(seconds, condition, what):
    """Waits until `condition()` is truthy and returns that value; fails when the time is over."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {seconds} s: {what}")
        time.sleep(0.02)


def alike(first, second, tolerance=6):
    return all(abs(a - b) <= tolerance for a, b in zip(first, second))


def share(picture, area, color):
    """How much of an area has a colour, from 0 to 1, judged by a grid of its points."""
    left, top, right, bottom = area
    points = [
        picture.getpixel((x, y))
        for x in range(left, right, max(1, (right - left) // 96))
        for y in range(top, bottom, max(1, (bottom - top) // 54))
    ]
    return sum(alike(point, color) for point in points) / len(points)


def bounds(picture, color, tolerance=6):
    """The frame of all that has a colour; None where nothing has."""
    others = ImageChops.difference(picture, Image.new("RGB", picture.size, color))
    channels = [channel.point(lambda value: 255 if value <= tolerance else 0)
                for channel in others.split()]
    return ImageChops.darker(ImageChops.darker(channels[0], channels[1]), channels[2]).getbbox()


def stamp(moment):
    return datetime.datetime.fromtimestamp(moment, datetime.timezone.utc).strftime("%Y%m%dT%H%M%SZ")


class Session(contextlib.ExitStack):
    """A home of the test's own, and what runs in it. Leaving ends just what was started."""

    def __enter__(self):
        super().__enter__()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vantrel-test."))
        self.callback(shutil.rmtree, self.folder, ignore_errors=True)
        self.environment = {
            name: value
            for name, value in os.environ.items()
            if not name.startswith(("XDG_", "QT_", "WAYLAND_", "DESKTOP_STARTUP"))
        }
        for name in ["data", "config", "cache", "runtime"]:
            (self.folder / name).mkdir(mode=0o700)
        self.environment |= {
            "HOME": str(self.folder),
            "XDG_DATA_HOME": str(self.folder / "data"),
            "XDG_CONFIG_HOME": str(self.folder / "config"),
            "XDG_CACHE_HOME": str(self.folder / "cache"),
            "XDG_RUNTIME_DIR": str(self.folder / "runtime"),
            # Nobody is there before start_bus(), and the user's own session stays out of it.
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.folder / 'bus'}",
            "LC_ALL": "C.UTF-8",
            "TZ": "Europe/Zurich",
        }
        return self

    def start_bus(self):
        """The session bus. Programs that were started before look for it again only where a bus was
        to be there."""
        address = self.environment["DBUS_SESSION_BUS_ADDRESS"]
        daemon = self.start("dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address={address}")
        within(10, (self.folder / "bus").exists, "the bus is up")
        return daemon

    def start(self, *command, **options):
        log = open(self.folder / f"{pathlib.Path(command[0]).name}.log", "ab")
        options = {"env": self.environment, "stdin": subprocess.DEVNULL, "stdout": log} | options
        process = subprocess.Popen(command, stderr=log, **options)
        log.close()
        self.callback(self.end, process)
        return process

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.send_signal(signal.SIGTERM)
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
        process.wait()

    def ask(self, *command):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, check=False).stdout


class Desktop(Session):
    """`with Desktop() as desktop:` starts it all: a display, a window manager, a dock."""

    def __init__(self, window_manager=True):
        super().__init__()
        self.window_manager = window_manager

    def __enter__(self):
        super().__enter__()
        self.environment["QT_QPA_PLATFORM"] = "xcb"
        self._start_display()
        self.set_monitors({"L": LEFT, "R": RIGHT})
        if self.window_manager:
            self.manager = self.start("openbox")
            within(10, lambda: b"window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                   "the window manager runs")
            self.start("tint2")
            within(10, lambda: self.windows(klass="tint2"), "the dock is up")
        return self

    def _start_display(self):
        reading, writing = os.pipe()
        self.start("Xvfb", "-displayfd", str(writing), "-screen", "0", "3840x1080x24", "-nolisten", "tcp",
                   "-noreset", pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            self.display = ":" + pipe.readline().strip()
        self.environment["DISPLAY"] = self.display

    def set_monitors(self, monitors):
        """Makes just these monitors of the one large screen."""
        present = [line.split()[1].lstrip("+*") for line in
                   self.ask("xrandr", "--listactivemonitors").decode().splitlines()[1:]]
        for name in present:
            if name not in monitors and name != "screen":
                self.ask("xrandr", "--delmonitor", name)
        for index, (name, (left, top, right, bottom)) in enumerate(monitors.items()):
            geometry = f"{right - left}/508x{bottom - top}/286+{left}+{top}"
            self.ask("xrandr", "--setmonitor", name, geometry, "screen" if index == 0 else "none")

    def windows(self, name=None, klass=None):
        pattern = ["--class", klass] if klass else ["--name", name]
        return self.ask("xdotool", "search", "--onlyvisible", *pattern).split()

    def panels(self):
        return self.windows(name="^Vantrel takeover$")

    def press(self, key):
        self.ask("xdotool", "key", key)

    def press_until(self, key, condition, what):
        """Presses a key now and then until the condition holds, since none counts at first."""
        pressed = 0.0

        def holds():
            nonlocal pressed
            if condition():
                return True
            if time.monotonic() > pressed + 1:
                self.press(key)
                pressed = time.monotonic()
            return False

        within(20, holds, what)

    def answer(self, key, window):
        """Presses a key until `window()` is gone."""
        self.press_until(key, lambda: not window(), f"{key} is an answer")

    def move_pointer(self, x, y):
        self.ask("xdotool", "mousemove", str(x), str(y))

    def picture(self):
        return ImageGrab.grab(xdisplay=self.display).convert("RGB")


class Agent:
    """The program on a profile of its own, with a browser that writes down what it opens."""

    def __init__(self, desktop, vantrel, access="granted", starts=True, first_run=False, **settings):
        """`access` is the answer that the user gave before; None when nobody has been asked.
        With `first_run` they have never been through the first run."""
        self.desktop = desktop
        self.profile = desktop.folder / "profile"
        self.calendars = self.profile / "calendars"
        (self.calendars / "work").mkdir(parents=True)
        self.settings = {f"Vantrel.{name}": value for name, value in settings.items()}
        if not first_run:
            self.settings[FIRST_RUN_IS_OVER] = True
        (self.profile / "settings.json").write_text(json.dumps(self.settings))
        self.access_file = self.profile / "access.json"
        if access:
            self.access_file.write_text(json.dumps({"calendarAccess": access}))
        self.opened = desktop.folder / "opened"
        self._register_browser()
        self.command = [vantrel, "--profile", str(self.profile)]
        if starts:
            self.start()

    def start(self):
        self.process = self.desktop.start(*self.command)

    def _register_browser(self):
        script = self.desktop.folder / "browser"
        script.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$@\" >'{self.opened}.part'\n"
                          f"mv '{self.opened}.part' '{self.opened}'\n")
        script.chmod(0o755)
        applications = self.desktop.folder / "data" / "applications"
        applications.mkdir(parents=True)
        (applications / "test-browser.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Test Browser\nExec={script} %u\n"
            "MimeType=x-scheme-handler/https;x-scheme-handler/http;x-scheme-handler/tel;\n")
        (self.desktop.folder / "config" / "mimeapps.list").write_text(
            "[Default Applications]\n" + "".join(
                f"x-scheme-handler/{scheme}=test-browser.desktop\n"
                for scheme in ["https", "http", "tel"]))

    def write_meeting(self, name, starts_at, *lines, title="Morning stand-up", minutes=30):
        """Writes one item as calendar programs do: a temporary file that is renamed."""
        text = "\r\n".join([
            "BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//test//EN", "BEGIN:VEVENT",
            f"UID:{name}@test", f"DTSTAMP:{stamp(starts_at)}", f"DTSTART:{stamp(starts_at)}",
            f"DTEND:{stamp(starts_at + minutes * 60)}", f"SUMMARY:{title}", *lines,
            "END:VEVENT", "END:VCALENDAR", ""])
        file = self.calendars / "work" / f"{name}.ics"
        part = file.with_suffix(".tmp")
        part.write_text(text)
        part.rename(file)

    def counts(self):
        """The counts of the one day in the rescue log; empty while nothing was counted."""
        file = self.profile / "rescues.json"
        days = json.loads(file.read_text()) if file.exists() else {}
        return next(iter(days.values()), {})

    def opened_url(self):
        return self.opened.read_text() if self.opened.exists() else None
