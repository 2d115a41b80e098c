#!/usr/bin/python3
"""Measures what calendars cost in the accounts of a desktop, on a real Evolution Data Server, and in
a folder: first list, change to plan, memory, beside plain programs on the same 10,000 events.
Usage: bench/eventstore/evolution_bench.py BUILD [agent]
With "agent" the memory of the program alone."""

import json
import os
import pathlib
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "endtoend"))
from desktop import FIRST_RUN_IS_OVER, Desktop, Session, within  # noqa: E402

COUNT = 10_000
ROUNDS = 3
CHANGES = 9


class Bench:
    def __init__(self, build):
        self.programs = build / "bench" / "eventstore"
        self.agent = build / "src" / "app" / "vantrel"

    def write_account(self, session, *moment):
        """As the service keeps its own calendar."""
        folder = session.folder / "data" / "evolution" / "calendar" / "system"
        folder.mkdir(parents=True)
        subprocess.run([self.programs / "measure_evolution", "write", folder / "calendar.ics", str(COUNT),
                        *map(str, moment)], check=True)

    def write_folder(self, folder, *moment):
        subprocess.run([self.programs / "measure_folder", "write", folder, str(COUNT), *map(str, moment)],
                       check=True)

    def run(self, session, title, program, *arguments):
        result = subprocess.run([self.programs / program, *map(str, arguments)], env=session.environment,
                                check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        for line in result.stdout.splitlines():
            print(f"{title}: {line}", flush=True)

    def lists_and_plans(self):
        with Session() as session:
            session.environment.pop("DISPLAY", None)
            session.environment["GSETTINGS_BACKEND"] = "memory"
            self.write_account(session)
            folder, empty = session.folder / "sample", session.folder / "empty"
            self.write_folder(folder)
            empty.mkdir()
            session.start_bus()
            self.run(session, "folder, first time", "measure_folder", "list", folder)
            for _ in range(ROUNDS):
                self.run(session, "folder", "measure_folder", "list", folder)
            self.run(session, "empty folder", "measure_folder", "list", empty)
            self.run(session, "plain libical loop over the folder", "measure_folder", "libical", folder)
            self.run(session, "accounts, the service not running", "measure_evolution", "list")
            for _ in range(ROUNDS):
                self.run(session, "accounts", "measure_evolution", "list")
                self.run(session, "plain libecal client", "measure_evolution", "client")
            self.run(session, "accounts", "measure_evolution", "plans", CHANGES)
            self.run(session, "plain libecal client", "measure_evolution", "watch", CHANGES)
            self.run(session, "folder", "measure_folder", "plans", folder, CHANGES)

    def agent_memory(self, title, has_accounts, has_folder):
        """The program itself, without a takeover: it is paused, since the sample lies around the
        present and has a meeting at almost any moment."""
        with Desktop(window_manager=False) as session:
            session.environment["GSETTINGS_BACKEND"] = "memory"
            own = session.folder / "config" / "Vantrel"
            own.mkdir(parents=True)
            (own / "access.json").write_text('{"calendarAccess": "granted"}')
            (own / "settings.json").write_text(json.dumps(
                {"Vantrel.isPaused": True, FIRST_RUN_IS_OVER: True}))
            now = int(time.time())
            if has_accounts:
                self.write_account(session, now)
                session.start_bus()
            if has_folder:
                self.write_folder(session.folder / "data" / "Vantrel" / "calendars" / "sample", now)
            process = session.start(str(self.agent))
            if has_accounts or has_folder:
                within(120, lambda: "selectedCalendarIDs" in (own / "settings.json").read_text(),
                       "the calendars are known")
            await_rest(process)
            print(f"agent, {title}: {memory(process, 'Pss')} kB, of it anonymous "
                  f"{memory(process, 'Pss_Anon')} kB", flush=True)


def memory(process, kind):
    """In kB. What of it is not anonymous hangs on how many programs share the libraries at the time."""
    return int(re.search(rf"^{kind}:\s+(\d+)", pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text(),
                         re.MULTILINE).group(1))


def ticks(process):
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rsplit(")", 1)[1].split()
    return int(fields[11]) + int(fields[12])


def await_rest(process):
    """Until it has used no processor for five seconds."""
    last, since = ticks(process), time.monotonic()
    while time.monotonic() < since + 5:
        time.sleep(0.2)
        if ticks(process) > last:
            last, since = ticks(process), time.monotonic()


def main():
    print(f"load of the machine: {os.getloadavg()[0]:.1f} on {os.cpu_count()} processors", flush=True)
    bench = Bench(pathlib.Path(sys.argv[1]).resolve())
    if sys.argv[2:] != ["agent"]:
        bench.lists_and_plans()
    bench.agent_memory("no calendars", has_accounts=False, has_folder=False)
    bench.agent_memory("the folder", has_accounts=False, has_folder=True)
    bench.agent_memory("the accounts", has_accounts=True, has_folder=False)
    bench.agent_memory("both", has_accounts=True, has_folder=True)
    print(f"load of the machine: {os.getloadavg()[0]:.1f}")


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    main()
