#!/usr/bin/python3
"""Takes pictures of the status item in a real panel that shows its label: MATE's, with the applet of
the Ayatana indicators. For a person to look at; it installs nothing.

Usage: VANTREL=build/dev/src/app/vantrel /usr/bin/python3 tests/endtoend/real_panel.py FOLDER

It needs, besides what the tests need, the Debian packages mate-panel, mate-indicator-applet,
ayatana-indicator-application and librsvg2-common (33 MB with all that they bring). The pictures are
item.png (icon and label), menu.png (the menu opened by a click) and paused.png (the outline)."""

import os
import pathlib
import shutil
import sys
import time

from desktop import Agent, Desktop, within

SERVICE = "/usr/libexec/ayatana-indicator-application/ayatana-indicator-application-service"
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


def missing():
    programs = ["mate-panel", SERVICE, "/usr/lib/mate-indicator-applet/mate-indicator-applet"]
    return [program for program in programs if not shutil.which(program)]


def start_panel(desktop):
    desktop.environment |= {"GSETTINGS_BACKEND": "keyfile", "GTK_THEME": "Adwaita:dark",
                            "XDG_CURRENT_DESKTOP": "MATE"}
    settings = desktop.folder / "config" / "glib-2.0" / "settings"
    settings.mkdir(parents=True)
    (settings / "keyfile").write_text(SETTINGS)
    desktop.start_bus()
    desktop.start(SERVICE)
    desktop.start("mate-panel")
    within(30, lambda: desktop.windows(klass="mate-panel"), "the panel is up")


def changed(desktop, before, what):
    """Waits for another picture of the panel's beginning than the one before; answers the one at
    which it comes to rest."""
    def settled():
        picture = desktop.picture().crop((0, 0, 420, 130))
        if before and picture.tobytes() == before.tobytes():
            return None
        time.sleep(1)
        again = desktop.picture().crop((0, 0, 420, 130))
        return again if again.tobytes() == picture.tobytes() else None
    return within(90, settled, what)


def main(folder):
    if absent := missing():
        sys.exit("real_panel.py: please install what has " + ", ".join(absent))
    folder.mkdir(parents=True, exist_ok=True)

    with Desktop() as desktop:
        start_panel(desktop)
        desktop.move_pointer(1900, 600)
        empty = changed(desktop, None, "the panel is drawn")
        agent = Agent(desktop, os.environ["VANTREL"])
        paw = changed(desktop, empty, "the item appears")
        agent.write_meeting("soon", time.time() + 12.5 * 60, title="Design review & retro")
        item = changed(desktop, paw, "the label appears")
        item.save(folder / "item.png")
        desktop.move_pointer(30, 12)
        desktop.ask("xdotool", "click", "1")
        menu = changed(desktop, item, "the menu opens")
        menu.save(folder / "menu.png")
        desktop.press("Escape")
        desktop.move_pointer(1900, 600)
        changed(desktop, menu, "the menu closes")
        desktop.ask(*agent.command, "--action", "pause")
        changed(desktop, item, "the item is outlined").save(folder / "paused.png")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(pathlib.Path(sys.argv[1]))
