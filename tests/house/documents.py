#!/usr/bin/python3
"""Checks that every path and link target named in the documents exists."""

import pathlib
import re
import sys

CODE = re.compile(r"`([^`\n]+)`")
LINK = re.compile(r"\]\(([^)#\s]+)")
# A path of this tree is named from its root, with one of these first.
OURS = re.compile(r"^(\./)?(src|tests|docs|tools|bench|cmake|\.ci)/[\w./-]*$|^\./(run|test)$")


def faults(root):
    documents = [*root.glob("*.md"), *(root / "docs").rglob("*.md")]
    for document in sorted(documents):
        for number, line in enumerate(document.read_text().splitlines(), 1):
            where = f"{document.relative_to(root)}:{number}"
            for named in CODE.findall(line):
                path = named.split()[0] if named.split() else ""
                if OURS.match(path) and not (root / path).exists():
                    yield f"{where}: {path} does not exist"
            for target in LINK.findall(line):
                if "://" not in target and not (document.parent / target).exists():
                    yield f"{where}: {target} does not exist"


if __name__ == "__main__":
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found))
    sys.exit(1 if found else 0)
