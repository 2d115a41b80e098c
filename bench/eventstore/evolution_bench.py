#!/usr/bin/python3
"""Measures the accounts of a desktop on a real Evolution Data Server, in a session of its own.
Usage: bench/eventstore/evolution_bench.py BUILD"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

COUNT = 10_000


def measure(build, home):
    places = {"HOME": ".", "XDG_DATA_HOME": "data", "XDG_CONFIG_HOME": "config",
              "XDG_CACHE_HOME": "cache", "XDG_RUNTIME_DIR": "runtime"}
    environment = {name: value for name, value in os.environ.items()
                   if not name.startswith(("XDG_", "DISPLAY", "WAYLAND"))}
    for name, place in places.items():
        (home / place).mkdir(mode=0o700, exist_ok=True)
        environment[name] = str(home / place)
    environment["GSETTINGS_BACKEND"] = "memory"
    bus = home / "runtime" / "bus"
    environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={bus}"
    program = build / "bench" / "eventstore" / "measure_evolution"

    def run(title, *arguments):
        result = subprocess.run([program, *map(str, arguments)], env=environment, check=True,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        print(f"{title}: {result.stdout.strip()}", flush=True)

    calendar = home / "data" / "evolution" / "calendar" / "system"
    calendar.mkdir(parents=True)
    subprocess.run([program, "write", calendar / "calendar.ics", str(COUNT)], check=True)
    subprocess.run([build / "bench" / "eventstore" / "measure_eventstore_memory", "write",
                    home / "folder"], check=True)
    with open(home / "bus.log", "w", encoding="utf-8") as log:
        daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address",
                                   f"--address=unix:path={bus}"], env=environment,
                                  stdout=subprocess.PIPE, stderr=log)
    daemon.stdout.readline()
    try:
        run("folder, first time", "folder", home / "folder")
        for _ in range(3):
            run("folder", "folder", home / "folder")
        run("accounts, the services not running", "store")
        for _ in range(3):
            run("accounts", "store")
            run("plain libecal client", "client")
        run("accounts", "changes", 9)
    finally:
        daemon.terminate()
        daemon.wait()


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    scratch = pathlib.Path(tempfile.mkdtemp(prefix="vantrel-bench."))
    try:
        measure(pathlib.Path(sys.argv[1]).resolve(), scratch)
    finally:
        shutil.rmtree(scratch, ignore_errors=True)
