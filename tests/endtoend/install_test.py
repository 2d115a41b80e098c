#!/usr/bin/python3
"""The program as it is installed, below a prefix of the test's own."""

import os
import pathlib
import shlex
import subprocess
import sys
import tempfile
import unittest

EVENT = """BEGIN:VCALENDAR\r
VERSION:2.0\r
PRODID:-//test//EN\r
BEGIN:VEVENT\r
UID:a@test\r
DTSTAMP:20260101T000000Z\r
DTSTART:20260302T090000Z\r
DTEND:20260302T093000Z\r
SUMMARY:Stand-up\r
END:VEVENT\r
END:VCALENDAR\r
"""


class InstallTest(unittest.TestCase):
    def install(self, name):
        folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantrel-install.")))
        self.home = folder / "home"
        self.home.mkdir()
        prefix = folder / name
        subprocess.run([os.environ["CMAKE"], "--install", os.environ["BUILD"], "--prefix", prefix],
                       check=True, stdout=subprocess.DEVNULL, timeout=120)
        return prefix

    def entry(self, prefix):
        return prefix / "share" / "applications" / "org.vantrel.Vantrel.desktop"

    def commands(self, prefix):
        return [shlex.split(line.removeprefix("Exec=")) for line in self.entry(prefix).read_text().splitlines()
                if line.startswith("Exec=")]

    def run_installed(self, *command):
        return subprocess.run(command, check=True, capture_output=True, text=True, timeout=60, cwd="/", env={
            "PATH": os.environ["PATH"], "HOME": str(self.home), "TZ": "UTC", "LC_ALL": "C.UTF-8"}).stdout

    def test_the_installed_program_runs_by_the_path_of_its_desktop_entry(self):
        prefix = self.install("prefix")
        subprocess.run(["desktop-file-validate", "--warn-kde", self.entry(prefix)], check=True)
        program = str(prefix / "bin" / "vantrel")
        self.assertEqual([command[0] for command in self.commands(prefix)], [program] * 5)
        self.assertRegex(self.run_installed(program, "--version"), r"^vantrel \d")
        (self.home / "a.ics").write_text(EVENT, newline="")
        agenda = self.run_installed(program, "agenda", "--calendars", self.home / "a.ics",
                                    "--now", "2026-03-02T08:00:00Z")
        self.assertIn("Stand-up", agenda)

    def test_the_desktop_entry_quotes_a_path_with_blanks(self):
        prefix = self.install("a prefix")
        subprocess.run(["desktop-file-validate", self.entry(prefix)], check=True)
        self.assertEqual(self.commands(prefix)[0], [str(prefix / "bin" / "vantrel")])

    def test_icons_are_where_themes_look_for_them(self):
        icons = self.install("prefix") / "share" / "icons" / "hicolor"
        for icon in ["scalable/apps/org.vantrel.Vantrel.svg", "symbolic/apps/org.vantrel.Vantrel-symbolic.svg"]:
            self.assertTrue((icons / icon).read_text().startswith("<svg"), icon)

    @unittest.skipIf(os.environ["MODULE"] == "", "built without the accounts of the desktop")
    def test_the_module_of_the_accounts_is_where_the_program_looks_for_it(self):
        prefix = self.install("prefix")
        module = os.environ["MODULE"]
        self.assertTrue((prefix / "bin" / module).is_file(), module)
        # The path as the program has it.
        self.assertIn(f"/{module}".encode(), (prefix / "bin" / "vantrel").read_bytes().replace(b"\0", b""))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[1:]])
