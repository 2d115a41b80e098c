#!/usr/bin/python3
"""Runs every command that the README shows, in its order, on a copy of the sources, as somebody
does who sees the project for the first time. A command that this test does not know fails it."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

from desktop import Desktop, share, stamp, within, LEFT, SURFACE

ROOT = pathlib.Path(__file__).resolve().parents[2]


def shown_commands():
    blocks = re.findall(r"^```sh\n(.*?)^```", (ROOT / "README.md").read_text(), re.MULTILINE | re.DOTALL)
    return [line for block in blocks for line in block.splitlines() if line.strip()]


def sources():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                            capture_output=True, text=True).stdout.splitlines()
    return [name for name in listed if (ROOT / name).is_file()]


class ReadmeTest(unittest.TestCase):
    def test_every_command_works(self):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantrel-readme.")))
        self.tree = folder / "vantrel"
        self.home = folder / "home"
        self.home.mkdir()
        known = {
            "git clone https://example.org/vantrel.git && cd vantrel": self.copy_sources,
            "./run": self.run_demonstration,
            "./run --mine": self.run_mine,
            "build/run/src/app/vantrel agenda": self.run_agenda,
            "build/run/src/app/vantrel agenda --json --calendars ~/calendars --horizon 86400": self.run_agenda,
            "./test": self.expect_the_main_job_to_run_it,
        }
        commands = shown_commands()
        self.assertEqual(len(commands), len(known))
        for command in commands:
            with self.subTest(command=command):
                known[command](command)

    def environment(self):
        kept = {name: value for name, value in os.environ.items()
                if not name.startswith(("XDG_", "QT_")) and name not in {"DISPLAY", "WAYLAND_DISPLAY"}}
        return kept | {"HOME": str(self.home)}

    def copy_sources(self, _command):
        for name in sources():
            target = self.tree / name
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(ROOT / name, target)

    def run_demonstration(self, command):
        result = subprocess.run(command, shell=True, cwd=self.tree, env=self.environment(), check=False,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        print(result.stdout, flush=True)
        self.assertEqual(result.returncode, 0)
        self.assertIn("Opened: https://meeting.example.com/stand-up?room=12\n", result.stdout)
        self.assertIn('"rescuesFromTakeover": 1', result.stdout)
        pictures = re.findall(r"picture: (\S+)", result.stdout)
        self.assertEqual(len(pictures), 4)
        for picture in pictures:
            self.assertTrue(pathlib.Path(picture).read_bytes().startswith(b"\x89PNG"))

    def run_mine(self, command):
        with Desktop() as desktop:
            calendar = desktop.folder / "data" / "Vantrel" / "calendars" / "work"
            calendar.mkdir(parents=True)
            start = time.time() + 65
            (calendar / "a.ics").write_text(
                "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:a\r\nSUMMARY:Mine\r\n"
                f"DTSTART:{stamp(start)}\r\nDURATION:PT30M\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n")
            desktop.move_pointer(960, 540)  # The question comes up on the monitor with the pointer.
            desktop.start("bash", "-c", f"cd '{self.tree}' && exec {command}")
            within(60, lambda: desktop.windows(name="^Welcome to Vantrel$"), "it said welcome")
            desktop.press_until("Return", lambda: desktop.windows(name="^Vantrel$"),
                                "it asked for the calendars")
            within(5, lambda: share(desktop.picture(), (700, 300, 1220, 780), SURFACE) > 0.3,
                   "the question is drawn")
            desktop.answer("Return", lambda: desktop.windows(name="^Vantrel$"))
            within(60, lambda: len(desktop.panels()) == 2, "the takeover came")
            within(3, lambda: share(desktop.picture(), LEFT, SURFACE) > 0.7, "the takeover is drawn")
            desktop.press("Escape")
            within(5, lambda: not desktop.panels(), "it left")
            self.assertTrue((desktop.folder / "data" / "Vantrel" / "rescues.json").exists())

    def run_agenda(self, command):
        (self.home / "calendars").mkdir(exist_ok=True)
        configuration = self.home / ".config" / "Vantrel"
        configuration.mkdir(parents=True, exist_ok=True)
        (configuration / "access.json").write_text('{"calendarAccess": "granted"}')
        result = subprocess.run(command, shell=True, cwd=self.tree, env=self.environment(), check=False,
                                capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)

    def expect_the_main_job_to_run_it(self, command):
        self.assertIn(f"exec {command}\n", (ROOT / ".ci" / "run").read_text())


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
