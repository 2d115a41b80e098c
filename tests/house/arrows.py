#!/usr/bin/python3
"""Checks that no room of src/ includes what it may not, and that only the queue reads a clock."""

import pathlib
import re
import sys

# Ground floor first. A room may use the rooms of every floor below its own, and those it is
# listed with here.
FLOORS = [
    ["platform"],
    ["links", "copy", "theme", "system"],
    ["calendar"],
    ["preferences"],
    ["rescues"],
    ["takeover", "menubar", "onboarding"],
    ["app"],
]
# What every service of the desktop may stand on.
GROUND_OF_SERVICES = {"linux/layershell", "linux/sessionbus", "linux/views"}
FLOOR_OF = {room: floor for floor, rooms in enumerate(FLOORS) for room in rooms}

# What belongs to the desktop's services, by the beginning of the header's name.
SERVICES = re.compile(
    r"^(linux/|libical/|libecal/|glib|gio/|gobject/|xcb/|X11/|wayland|wlr-|dbus/|systemd/"
    r"|QDBus|QtDBus|QtWidgets|QWidget|QApplication|qpa/|QtGui/private)"
)
CLOCKS = re.compile(
    r"currentDateTime|currentMSecsSinceEpoch|currentSecsSinceEpoch|currentTime\(|currentDate\("
    r"|(system|steady|high_resolution|utc)_clock::now|\bQTimer\b|\bQBasicTimer\b|\bQElapsedTimer\b"
    r"|\bQDeadlineTimer\b|\bstartTimer\b|\bclock_gettime\b|\bgettimeofday\b|\btime\(nullptr\)"
    r"|\btime\(NULL\)|sleep_for|sleep_until|\busleep\b|QThread::m?u?sleep"
)
QML_CLOCKS = re.compile(r"^\s*Timer\s*\{|new Date\(\s*\)|Date\.now|setTimeout|setInterval")
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')


def room_of(path):
    """The room of a path below src/: its first folder, and for linux/ the first two."""
    parts = path.parts
    return "/".join(parts[:2]) if parts[0] == "linux" else parts[0]


def include_fault(path, header):
    room = room_of(path)
    target = header.split("/")[0]
    if room.startswith("linux/"):
        if target == "linux":
            other = "/".join(header.split("/")[:2])
            if other == room or other in GROUND_OF_SERVICES:
                return None
            return f"{room} includes another service, {other}"
        if target in FLOOR_OF and target != "platform":
            return f"{room} may use platform alone, not {target}"
        return None
    if str(path) != "app/main.cpp" and SERVICES.match(header):
        return f"{room} includes {header}, which belongs to linux/"
    if target in FLOOR_OF and target != room and FLOOR_OF[target] >= FLOOR_OF[room]:
        return f"{room} includes {target}, which is no floor below it"
    return None


def faults(source):
    for path in sorted(source.rglob("*")):
        if path.suffix not in {".h", ".cpp", ".qml", ".js"}:
            continue
        relative = path.relative_to(source)
        if room_of(relative) not in FLOOR_OF and relative.parts[0] != "linux":
            yield f"{relative}: stands in no room of the house"
            continue
        may_read_clock = relative.parts[:2] == ("linux", "mainqueue")
        for number, line in enumerate(path.read_text().splitlines(), 1):
            where = f"{relative}:{number}"
            included = INCLUDE.match(line)
            if included and (fault := include_fault(relative, included.group(1))):
                yield f"{where}: {fault}"
            code = line.split("//")[0]
            clocks = CLOCKS if path.suffix in {".h", ".cpp"} else QML_CLOCKS
            if not may_read_clock and (found := clocks.search(code)):
                yield f"{where}: reads a clock or sets a timer outside MainQueue ({found.group()})"


if __name__ == "__main__":
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found))
    sys.exit(1 if found else 0)
