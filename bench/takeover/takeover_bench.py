#!/usr/bin/python3
"""Measures the built program as a whole under a virtual display with two monitors of 1920x1080:
how long after its due moment a takeover stands on both, and what memory it takes.

Usage: bench/takeover/takeover_bench.py BUILD_FOLDER [TAKEOVERS]
"""

import math
import pathlib
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "endtoend"))
from desktop import Agent, Desktop, within  # noqa: E402

EVERY = 4  # seconds between takeovers; each closes by itself after one
# Points where every takeover shows its plain ground, near a corner of each monitor.
POINTS = ["40", "1000", "1960", "1000"]
SURFACE = "FAF3E7"


def pss(process):
    for line in pathlib.Path(f"/proc/{process.pid}/smaps_rollup").read_text().splitlines():
        if line.startswith("Pss:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError("no Pss in smaps_rollup")


def cpu(process):
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) * 10


def percentile(values, share):
    return sorted(values)[min(len(values) - 1, math.ceil(len(values) * share) - 1)]


def main():
    build = pathlib.Path(sys.argv[1])
    takeovers = int(sys.argv[2]) if len(sys.argv) > 2 else 20
    with Desktop() as desktop:
        desktop.move_pointer(400, 500)
        agent = Agent(desktop, str(build / "src/app/vantrel"), leadTimeSeconds=0, autoCloseSeconds=1)
        time.sleep(3)
        print(f"memory at rest, no window so far      {pss(agent.process):6.1f} MB PSS")

        first = math.ceil(time.time()) + 6
        due = [first + index * EVERY for index in range(takeovers)]
        for index, start in enumerate(due):
            agent.write_meeting(f"meeting-{index}", start, title=f"Meeting {index}", minutes=1)
        watch = subprocess.Popen([str(build / "bench/takeover/watch_pixels"), str(takeovers), *POINTS, SURFACE],
                                 env=desktop.environment, stdout=subprocess.PIPE, text=True)
        latencies, memory = [], []
        for start in due:
            latencies.append((float(watch.stdout.readline()) - start) * 1000)
            time.sleep(0.5)
            memory.append(pss(agent.process))
        watch.wait()
        within(5, lambda: not desktop.panels(), "the last takeover is gone")
        print(f"memory with a takeover on two monitors {max(memory):6.1f} MB PSS (most of {takeovers})")
        print(f"memory at rest after {takeovers} takeovers     {pss(agent.process):6.1f} MB PSS")
        print(f"due moment to full frame, first       {latencies[0]:6.1f} ms")
        print(f"due moment to full frame, later ones  {statistics.median(latencies[1:]):6.1f} ms median, "
              f"{percentile(latencies[1:], 0.95):.1f} ms 95th percentile, {max(latencies[1:]):.1f} ms most "
              f"({takeovers - 1} takeovers)")
        before = cpu(agent.process)
        time.sleep(10)
        print(f"processor time at rest                {cpu(agent.process) - before:6.0f} ms in 10 s")


if __name__ == "__main__":
    main()
