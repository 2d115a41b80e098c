#!/usr/bin/python3
"""Tests of the check itself: each kind of fault, planted in a small tree, has to be found."""

import pathlib
import tempfile
import unittest

import arrows


class ArrowsTest(unittest.TestCase):
    def faults(self, path, text):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder, path)
            file.parent.mkdir(parents=True)
            file.write_text(text)
            return list(arrows.faults(pathlib.Path(folder)))

    def test_finds_what_may_not_be_included(self):
        for path, header in [
            ("links/A.cpp", "linux/eventstore/B.h"),
            ("calendar/A.cpp", "libical/ical.h"),
            ("calendar/A.h", "glib.h"),
            ("takeover/A.cpp", "QDBusConnection"),
            ("takeover/A.cpp", "QtWidgets/QWidget"),
            ("takeover/A.cpp", "xcb/xcb.h"),
            ("platform/A.h", "links/MeetingLink.h"),
            ("links/A.h", "theme/Theme.h"),
            ("calendar/A.h", "takeover/B.h"),
            ("linux/shield/A.h", "linux/workspace/B.h"),
            ("linux/shield/A.h", "takeover/B.h"),
            ("linux/views/A.h", "linux/shield/B.h"),
            ("linux/layershell/A.h", "linux/popup/B.h"),
            ("takeover/A.cpp", "wlr-layer-shell-unstable-v1.h"),
            ("takeover/A.h", "linux/views/B.h"),
            ("app/AppCoordinator.cpp", "linux/shield/B.h"),
        ]:
            with self.subTest(path=path, header=header):
                self.assertEqual(len(self.faults(path, f"#include <{header}>\n")), 1)

    def test_lets_arrows_that_point_down_pass(self):
        for path, header in [
            ("app/main.cpp", "linux/shield/B.h"),
            ("takeover/A.cpp", "preferences/B.h"),
            ("takeover/A.cpp", "takeover/B.h"),
            ("linux/eventstore/A.cpp", "libical/ical.h"),
            ("linux/eventstore/A.cpp", "linux/eventstore/B.h"),
            ("linux/eventstore/A.cpp", "platform/EventStore.h"),
            ("linux/shield/A.cpp", "linux/views/B.h"),
            ("linux/popup/A.cpp", "linux/layershell/B.h"),
            ("links/A.cpp", "QString"),
        ]:
            with self.subTest(path=path, header=header):
                self.assertEqual(self.faults(path, f"#include <{header}>\n"), [])

    def test_finds_a_clock_outside_the_queue(self):
        for path, line in [
            ("takeover/A.cpp", "auto now = QDateTime::currentDateTime();"),
            ("rescues/A.cpp", "auto now = std::chrono::system_clock::now();"),
            ("app/A.cpp", "QTimer timer;"),
            ("linux/eventstore/A.cpp", "std::this_thread::sleep_for(second);"),
            ("takeover/A.qml", "    Timer {"),
            ("takeover/A.qml", "property var now: new Date()"),
        ]:
            with self.subTest(path=path, line=line):
                self.assertEqual(len(self.faults(path, line + "\n")), 1)

    def test_lets_the_queue_read_the_clock_and_comments_speak_of_it(self):
        self.assertEqual(self.faults("linux/mainqueue/A.cpp", "QTimer timer;\n"), [])
        self.assertEqual(self.faults("takeover/A.cpp", "// No QTimer here.\n"), [])

    def test_finds_a_file_in_a_room_that_is_none(self):
        self.assertEqual(len(self.faults("utils/A.cpp", "\n")), 1)


if __name__ == "__main__":
    unittest.main()
