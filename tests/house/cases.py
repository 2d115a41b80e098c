#!/usr/bin/python3
"""Checks that every case of an end-to-end script is run: by its name, or with its whole script."""

import ast
import pathlib
import re
import sys


def cases(script):
    for found in ast.walk(ast.parse(script.read_text())):
        if isinstance(found, ast.FunctionDef) and found.name.startswith("test_"):
            yield found.name


def faults(folder):
    listed = (folder / "CMakeLists.txt").read_text()
    whole = set(re.findall(r'(\w+_test\.py)"\)', listed))
    for script in sorted(folder.glob("*_test.py")):
        for case in cases(script):
            if script.name not in whole and not re.search(rf"\b{case}\b", listed):
                yield f"{script.name}: {case} is never run"


if __name__ == "__main__":
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found))
    sys.exit(bool(found))
