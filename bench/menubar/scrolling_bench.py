#!/usr/bin/python3
"""Measures how long after each notch of the wheel the popover's list with 2,000 meetings shows its
frame, beside a bare ListView with as many texts, in turns.

Usage: xvfb-run -a bench/menubar/scrolling_bench.py BUILD_FOLDER [PROCESSES]
"""

import os
import pathlib
import statistics
import subprocess
import sys


def main():
    program = pathlib.Path(sys.argv[1]) / "bench/menubar/bench_scrolling"
    processes = int(sys.argv[2]) if len(sys.argv) > 2 else 5
    figures = {"popover": [], "bare": []}
    for _ in range(processes):
        for kind, found in figures.items():
            printed = subprocess.run([program, kind], check=True, capture_output=True, text=True).stdout
            found.append([float(number) for number in printed.split()])
    for kind, found in figures.items():
        median, most, worst, rows = zip(*found)
        print(f"{kind:8} median {statistics.median(median):5.1f} ms   95 % {statistics.median(most):5.1f} ms"
              f"   worst {max(worst):5.1f} ms   rows {max(rows):.0f}")
    print(f"load {os.getloadavg()[0]:.1f} on {os.cpu_count()} processors")


if __name__ == "__main__":
    main()
