#!/usr/bin/python3
"""The program started again while it runs, as from a launcher or by an action of its desktop entry,
and how it ends."""

import configparser
import json
import os
import pathlib
import shlex
import signal
import subprocess
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "panel"))

from desktop import Agent, Desktop, within
from panel_process import PanelProcess

VANTREL = os.environ["VANTREL"]
ENTRY = pathlib.Path(__file__).parents[2] / "data" / "org.vantrel.Vantrel.desktop.in"
FULL = "vantrel-pawprint-fill-symbolic"
LINK = "https://meeting.example.com/stand-up"
OUTLINE = "vantrel-pawprint-symbolic"


def action(name):
    """What follows the program in the line of an action of the desktop entry."""
    entry = configparser.ConfigParser(interpolation=None)
    entry.read(ENTRY, "utf-8")
    return shlex.split(entry[f"Desktop Action {name}"]["Exec"])[1:]


class ActivationTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.bus = self.desktop.start_bus()
        self.panel = self.enterContext(PanelProcess(self.desktop.environment))
        self.agent = Agent(self.desktop, VANTREL)
        self.panel.item(icon=FULL)

    def start_again(self, *arguments):
        return subprocess.run([*self.agent.command, *arguments], env=self.desktop.environment,
                              timeout=30, check=False).returncode

    def test_leaves_the_running_one_running(self):
        self.assertEqual(self.start_again(), 0)
        self.assertEqual(self.panel.do("properties")["Id"], "vantrel")
        self.assertIsNone(self.agent.process.poll())

    def test_shows_the_list_of_the_running_one(self):
        self.assertEqual(self.start_again(), 0)
        within(20, lambda: self.desktop.windows(name="^Vantrel$"), "the list is shown")

    def test_carries_out_the_actions_of_the_desktop_entry(self):
        self.assertEqual(self.start_again(*action("popover")), 0)
        within(20, lambda: self.desktop.windows(name="^Vantrel$"), "the list is shown")
        self.assertEqual(self.start_again(*action("pause")), 0)
        self.panel.item(icon=OUTLINE)
        self.assertEqual(self.start_again(*action("pause")), 0)
        self.panel.item(icon=FULL)
        self.assertEqual(self.start_again(*action("quit")), 0)
        self.assertEqual(self.agent.process.wait(20), 0)
        # Nothing runs that could be ended, and nothing is started for it.
        self.assertEqual(self.start_again("--action", "quit"), 0)

    def test_is_there_again_after_the_bus_was_restarted(self):
        self.desktop.end(self.bus)
        self.bus = self.desktop.start_bus()
        panel = self.enterContext(PanelProcess(self.desktop.environment))
        panel.item(icon=FULL)
        within(20, lambda: b"org.vantrel.Vantrel" in self.desktop.ask(
            "dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
            "org.freedesktop.DBus.ListNames"), "the program has its name")
        self.assertEqual(self.start_again("--action", "pause"), 0)
        self.assertIsNone(self.agent.process.poll())
        panel.item(icon=OUTLINE)

    def test_does_what_a_verb_asks_for(self):
        for _ in range(2):
            self.assertEqual(self.start_again("pause"), 0)
        self.panel.item(icon=OUTLINE)
        self.assertEqual(self.start_again("resume"), 0)
        self.panel.item(icon=FULL)
        self.assertEqual(self.start_again("recap"), 0)
        within(20, lambda: self.desktop.windows(name="^This Week's Rescues$"), "the recap is shown")
        self.assertEqual(self.start_again("preview"), 0)
        within(20, self.desktop.panels, "the takeover is shown")
        self.assertEqual(self.start_again("quit"), 0)
        self.assertEqual(self.agent.process.wait(20), 0)

    def test_a_preview_makes_way_for_a_meeting(self):
        self.assertEqual(self.start_again("preview"), 0)
        within(20, self.desktop.panels, "the preview is shown")
        preview = set(self.desktop.panels())
        self.agent.write_meeting("soon", time.time() + 66, f"LOCATION:{LINK}")
        within(30, lambda: self.desktop.panels() and not preview & set(self.desktop.panels()),
               "the meeting's own takeover is up")
        self.desktop.answer("space", self.desktop.panels)
        within(10, self.agent.opened_url, "the link was opened")
        self.assertEqual(self.agent.counts()["rescuesFromTakeover"], 1)

    def test_takes_over_what_is_edited_in_the_settings_file(self):
        file = self.agent.profile / "settings.json"
        settings = json.loads(file.read_text())
        file.write_text(json.dumps({**settings, "Vantrel.isPaused": True, "another": 1}))
        self.panel.item(icon=OUTLINE)
        self.assertEqual(self.start_again("resume"), 0)
        self.panel.item(icon=FULL)
        self.assertEqual(json.loads(file.read_text())["another"], 1)

    def status(self):
        return json.loads(subprocess.run(
            [*self.agent.command, "status", "--json"], env=self.desktop.environment, timeout=30,
            check=False, capture_output=True).stdout)

    def test_tells_how_it_is(self):
        self.agent.write_meeting("soon", time.time() + 3600)
        within(20, lambda: self.status()["nextFires"], "the takeover is planned")
        status = self.status()
        self.assertEqual(status["session"], "xcb")
        self.assertEqual(status["shield"], "x11")
        self.assertEqual(status["statusItem"], "host")
        self.assertEqual([status["calendars"], status["watched"]], [1, 1])
        self.assertTrue(status["isComplete"])
        self.assertNotIn("stand-up", json.dumps(status))
        self.assertEqual(self.start_again("status"), 0)
        self.assertEqual(self.start_again("quit"), 0)
        self.assertEqual(self.agent.process.wait(20), 0)
        self.assertEqual(self.start_again("status"), 1)
        self.assertFalse(self.status()["isRunning"])

    def test_starts_nothing_for_a_verb(self):
        self.assertEqual(self.start_again("quit"), 0)
        self.assertEqual(self.agent.process.wait(20), 0)
        for verb in ["preview", "pause", "resume", "preferences", "recap", "quit"]:
            self.assertEqual(self.start_again(verb), 1, verb)
        self.assertNotIn("Vantrel.isPaused", json.loads(
            (self.agent.profile / "settings.json").read_text()))

    def icon_folders(self):
        return [*(self.desktop.folder / "runtime").glob("vantrel-icons-*")]

    def test_ends_on_a_signal_and_leaves_nothing_behind(self):
        for kind in [signal.SIGTERM, signal.SIGINT]:
            self.assertEqual(len(self.icon_folders()), 1)
            self.agent.process.send_signal(kind)
            self.assertEqual(self.agent.process.wait(20), 0)
            self.panel.next(lambda record: record.get("event") == "gone")
            self.assertEqual(self.icon_folders(), [])
            self.agent.start()
            self.panel.item(icon=FULL)

    def test_removes_what_a_killed_one_left(self):
        left = self.icon_folders()
        self.agent.process.kill()
        self.agent.process.wait()
        self.assertEqual(self.icon_folders(), left)
        self.agent.start()
        self.panel.item(icon=FULL)
        self.assertEqual(len(self.icon_folders()), 1)
        self.assertNotEqual(self.icon_folders(), left)


class ActivationWithoutATrayTest(unittest.TestCase):
    def test_starting_it_again_shows_the_list_where_there_is_no_tray(self):
        # Without a window manager there is no dock, and thus no tray.
        desktop = self.enterContext(Desktop(window_manager=False))
        desktop.start_bus()
        agent = Agent(desktop, VANTREL)

        def status():
            return subprocess.run([*agent.command, "status", "--json"], env=desktop.environment,
                                  timeout=30, check=False, capture_output=True).stdout

        within(30, lambda: json.loads(status())["isRunning"], "the program runs")
        self.assertEqual(json.loads(status())["statusItem"], "none")
        self.assertEqual(subprocess.run(agent.command, env=desktop.environment, timeout=30,
                                        check=False).returncode, 0)
        within(20, lambda: desktop.windows(name="^Vantrel$"), "the list is shown")
        self.assertIsNone(agent.process.poll())


class ActivationOnAStalledBusTest(unittest.TestCase):
    """At login the bus may stand still for longer than the program waits for it."""

    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        bus = self.desktop.start_bus()
        self.panel = self.enterContext(PanelProcess(self.desktop.environment))
        bus.send_signal(signal.SIGSTOP)
        self.addCleanup(bus.send_signal, signal.SIGCONT)
        self.agent = Agent(self.desktop, VANTREL)
        log = self.desktop.folder / "vantrel.log"
        within(30, lambda: b"There is no session bus" in log.read_bytes(), "the bus was given up")
        bus.send_signal(signal.SIGCONT)

    def test_has_its_item_and_its_name_once_a_stalled_bus_goes_on(self):
        self.panel.item(icon=FULL)
        within(30, lambda: subprocess.run([*self.agent.command, "pause"], check=False,
                                          env=self.desktop.environment, timeout=30).returncode == 0,
               "another start finds the one that runs")
        self.panel.item(icon=OUTLINE)
        self.assertEqual(subprocess.run(self.agent.command, env=self.desktop.environment, timeout=30,
                                        check=False).returncode, 0)
        self.assertIsNone(self.agent.process.poll())

    def test_starts_a_browser_that_finds_the_bus_that_stalled(self):
        (self.desktop.folder / "browser").write_text(
            f"#!/bin/sh\nprintf %s \"$DBUS_SESSION_BUS_ADDRESS\" >'{self.agent.opened}'\n")
        self.agent.write_meeting("soon", time.time() + 270, f"LOCATION:{LINK}", title="Stand-up")
        self.panel.item(label="● Stand-up • in 5 min")
        self.panel.do("activate", x=1700, y=12)
        within(20, lambda: self.desktop.windows(name="^Vantrel$"), "the list is shown")
        for key in ["alt+a", "Down", "Return"]:
            self.desktop.press(key)
        self.assertEqual(within(20, self.agent.opened_url, "the link was opened"),
                         self.desktop.environment["DBUS_SESSION_BUS_ADDRESS"])


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
