#!/usr/bin/python3
"""The status item in a real panel that shows its label: MATE's, with the applet of the Ayatana
indicators (Debian's mate-panel, mate-indicator-applet, ayatana-indicator-application and
librsvg2-common).

With the name of a file as its only argument it also writes the picture of item and menu there."""

import os
import re
import shutil
import sys
import time
import unittest

from desktop import Agent, Desktop, alike, within

VANTREL = os.environ["VANTREL"]
SERVICE = "/usr/libexec/ayatana-indicator-application/ayatana-indicator-application-service"
APPLET = "/usr/lib/mate-indicator-applet/mate-indicator-applet"
SETTINGS = """
[org/mate/panel/general]
toplevel-id-list=['top']
object-id-list=['indicators']
enable-program-list=false

[org/mate/panel/toplevels/top]
orientation='top'
size=28
expand=true

[org/mate/panel/objects/indicators]
object-type='applet'
applet-iid='IndicatorAppletFactory::IndicatorApplet'
toplevel-id='top'
position=12
"""
PANEL = (0, 0, 420, 28)
SHOWN = (0, 0, 420, 130)  # The panel's beginning with the menu below it.
TITLE = "Design review & retro"
SKIPPED = 77  # What CTest is told to take for it.

picture_file = None


class RealPanelTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.desktop.environment |= {"GSETTINGS_BACKEND": "keyfile", "GTK_THEME": "Adwaita:dark",
                                     "XDG_CURRENT_DESKTOP": "MATE"}
        settings = self.desktop.folder / "config" / "glib-2.0" / "settings"
        settings.mkdir(parents=True)
        (settings / "keyfile").write_text(SETTINGS)
        self.desktop.start_bus()
        self.desktop.start(SERVICE)
        self.desktop.start("mate-panel")
        within(30, lambda: self.desktop.windows(klass="mate-panel"), "the panel is up")
        self.desktop.move_pointer(1900, 600)

    def applications(self):
        """What the panel's service has been told of: position, icon, label and the like."""
        return self.desktop.ask(
            "gdbus", "call", "--session", "--dest", "org.ayatana.indicator.application",
            "--object-path", "/org/ayatana/indicator/application/service", "--method",
            "org.ayatana.indicator.application.service.GetApplications").decode()

    def shown(self, area=SHOWN):
        return self.desktop.picture().crop(area)

    def columns(self, wanted):
        """The columns of the panel that hold a pixel that `wanted` holds for."""
        picture = self.shown(PANEL)
        return [x for x in range(picture.width)
                if any(wanted(picture.getpixel((x, y))) for y in range(picture.height))]

    def pixels(self, color):
        picture = self.shown(PANEL)
        return sum(alike(picture.getpixel((x, y)), color)
                   for x in range(picture.width) for y in range(picture.height))

    def test_shows_icon_label_and_menu(self):
        within(60, lambda: "vantrel" not in self.applications() and "(" in self.applications(),
               "the service of the indicators answers")
        agent = Agent(self.desktop, VANTREL)
        is_bright = lambda pixel: min(pixel) > 0xB0
        paw = within(60, lambda: len(self.columns(is_bright)) > 8 and self.columns(is_bright),
                     "the paw is drawn in the panel's own bright colour")
        self.assertLess(len(paw), 28)

        agent.write_meeting("soon", time.time() + 12.5 * 60, title=TITLE)
        label = "● Design review & ret… • in 13 min"
        within(60, lambda: label in self.applications(), "the service has the label")
        icon = re.search(r"vantrel-pawprint-fill-([0-9a-f]{6})-symbolic", self.applications())
        dot = tuple(bytes.fromhex(icon.group(1)))
        within(30, lambda: self.pixels(dot) > 20, "the dot keeps the calendar's colour")
        within(30, lambda: max(self.columns(is_bright), default=0) > max(paw) + 150,
               "the label is drawn beside the paw")
        item = self.shown()

        self.desktop.move_pointer(min(paw) + 8, 14)
        self.desktop.ask("xdotool", "click", "1")
        within(30, lambda: self.shown((0, 40, 420, 130)).tobytes() != item.crop((0, 40, 420, 130)).tobytes(),
               "the menu opens below the item")
        self.keep_picture()
        self.desktop.press("Up")  # The last line.
        self.desktop.press("Return")
        self.assertEqual(agent.process.wait(20), 0)
        within(30, lambda: not self.columns(is_bright), "the item goes with the program")

    def keep_picture(self):
        if not picture_file:
            return

        def at_rest():
            before = self.shown()
            time.sleep(1)  # Menus fade in.
            after = self.shown()
            return after if after.tobytes() == before.tobytes() else None

        within(60, at_rest, "the menu is drawn").save(picture_file)


if __name__ == "__main__":
    if absent := [program for program in ["mate-panel", SERVICE, APPLET] if not shutil.which(program)]:
        print("skipped: this machine lacks " + ", ".join(absent))
        sys.exit(SKIPPED)
    picture_file = sys.argv[1] if len(sys.argv) > 1 else None
    unittest.main(argv=[sys.argv[0], "-v"])
