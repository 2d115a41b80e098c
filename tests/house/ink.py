#!/usr/bin/python3
"""Checks that text is bold where its colour or its ground is the accent.

Not every palette gives such a pair the contrast that small and thin text needs.
"""

import pathlib
import re
import sys

TEXT = re.compile(r"\b(?:Text|TextInput|TextEdit)\s*\{")
COLOR = re.compile(r"^\s*color:(.*(?:\n\s*[?:].*)*)", re.M)
FONT = re.compile(r"^\s*font:(.*(?:\n\s*[?:].*)*)", re.M)
SELECTED = re.compile(r"\bselectedTextColor:[^\n;]*palette\.accent")
OWN_COLOR = re.compile(r"property color (\w+):(.*(?:\n\s*[?:].*)*)")
ACCENT = re.compile(r"\bpalette\.accent")
BOLD = re.compile(r"\bFont\.(?:DemiBold|Bold)\b")


def block(text, start):
    """From `start`, just behind an opening brace, to the brace that closes it."""
    depth = 1
    for end in range(start, len(text)):
        depth += {"{": 1, "}": -1}.get(text[end], 0)
        if depth == 0:
            return text[start:end]
    return text[start:]


def in_lines(text):
    return re.sub(r"\s*([;{}])\s*", r"\n\1\n", text)


def faults_in(text):
    own = {name for name, value in OWN_COLOR.findall(text) if ACCENT.search(value)}
    for match in TEXT.finditer(text):
        element = in_lines(block(text, match.end()))
        colors = " ".join(COLOR.findall(element))
        uses_own = any(re.search(rf"\broot\.{name}\b", colors) for name in own)
        if not ACCENT.search(colors) and not uses_own:
            continue
        if not BOLD.search(" ".join(FONT.findall(element))):
            line = text.count("\n", 0, match.start()) + 1
            yield f"{line}: text in the accent or on it, and not bold"
    for match in SELECTED.finditer(text):
        line = text.count("\n", 0, match.start()) + 1
        yield f"{line}: selected text on the accent, and it cannot be made bold"


def faults(source):
    for file in sorted(source.rglob("*.qml")):
        yield from (f"{file}:{fault}" for fault in faults_in(file.read_text()))


def main():
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
