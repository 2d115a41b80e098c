#!/usr/bin/python3
"""Measures how long after a click the popover with 2,000 meetings shows its first frame, the first
time in a process and again, beside a bare QQuickView with an empty ListView, in turns.

Usage: xvfb-run -a bench/menubar/popover_bench.py BUILD_FOLDER [PROCESSES]
"""

import pathlib
import statistics
import subprocess
import sys


def main():
    program = pathlib.Path(sys.argv[1]) / "bench/menubar/bench_popover"
    processes = int(sys.argv[2]) if len(sys.argv) > 2 else 9
    figures = {"popover": [], "bare": []}
    for _ in range(processes):
        for kind, found in figures.items():
            printed = subprocess.run([program, kind], check=True, capture_output=True, text=True).stdout
            found.append([float(number) for number in printed.split()])
    for kind, found in figures.items():
        first, again = zip(*found)
        print(f"{kind:8} first {statistics.median(first):6.1f} ms (worst {max(first):6.1f})"
              f"   again {statistics.median(again):6.1f} ms (worst {max(again):6.1f})")


if __name__ == "__main__":
    main()
