"""Wayland desktops of the tests' own. The first is sway without a screen or a seat, with two outputs,
a panel, a mouse and a keyboard."""

import io
import json
import os
import pathlib
import shutil
import subprocess

from PIL import Image

import desktop
from desktop import Session, within

LEFT = "HEADLESS-1"
RIGHT = "HEADLESS-2"
SIZE = (1920, 1080)
PANEL = 30


class WaylandDesktop(Session):
    """`with WaylandDesktop() as desktop:` starts it all. The panel is at the top or the bottom of
    each output. With a `scale` the outputs keep their pixels and shrink in between. Headless
    outputs cannot be removed: for that they are windows of another compositor."""

    def __init__(self, panel="top", scale=1, outputs="headless"):
        super().__init__()
        self.panel = panel
        self.scale = scale
        self.backend = outputs
        self.width, self.height = (round(side / scale) for side in SIZE)

    def __enter__(self):
        super().__enter__()
        try:
            self._start_all()
        except BaseException:
            self.close()
            raise
        return self

    def _start_all(self):
        self.folder.chmod(0o711)
        self.environment["QT_QPA_PLATFORM"] = "wayland"
        self.environment.pop("DISPLAY", None)
        if self.backend == "windows":
            self.outer = self._start_sway("outer", self._arrangement(), WLR_BACKENDS="headless",
                                          WLR_HEADLESS_OUTPUTS="1")
            backend = {"WLR_BACKENDS": "wayland", "WLR_WL_OUTPUTS": "2",
                       "WAYLAND_DISPLAY": self.environment["WAYLAND_DISPLAY"]}
        else:
            backend = {"WLR_BACKENDS": "headless", "WLR_HEADLESS_OUTPUTS": "2"}
        self._start_sway("compositor", self._arrangement() + self._bar(), **backend)
        within(20, lambda: len(self.outputs()) == 2, "both outputs are there")
        if self.panel:
            within(20, self.has_panels, "the panels are up")
        # Keyboards that come and go would take the focus with them.
        self.start("wtype", "-s", "3600000", "-k", "Shift_L")
        within(10, self.has_keyboard, "a keyboard is there")
        self.mouse = self.start(os.environ["VIRTUAL_POINTER"], stdin=subprocess.PIPE,
                                stdout=subprocess.PIPE)
        self.callback(self.mouse.stdout.close)
        self.callback(self.mouse.stdin.close)
        self.mouse.stdout.readline()
        self.move_pointer(400, 500)

    def _arrangement(self):
        return (f"output {LEFT} resolution 1920x1080 position 0 0 scale {self.scale}\n"
                f"output {RIGHT} resolution 1920x1080 position {self.width} 0 scale {self.scale}\n"
                "default_border none\nfocus_follows_mouse no\nxwayland disable\n")

    def _bar(self):
        return (f"bar {{\n position {self.panel}\n height {PANEL}\n workspace_buttons no\n"
                " tray_output none\n}\n") if self.panel else ""

    def _start_sway(self, name, configuration, **backend):
        """Makes it the one that the environment names; answers its control socket."""
        runtime = self.folder / name
        runtime.mkdir(mode=0o700)
        (runtime / "config").write_text(configuration)
        environment = {
            "PATH": os.environ["PATH"], "HOME": str(runtime), "XDG_RUNTIME_DIR": str(runtime),
            "SWAYSOCK": str(runtime / "ipc"), "LC_ALL": "C.UTF-8", "WLR_RENDERER": "pixman",
            "WLR_LIBINPUT_NO_DEVICES": "1", **backend,
        }
        # What a full-screen window shows by itself, without being painted, is in no picture.
        command = ["sway", "-Dnoscanout", "--config", str(runtime / "config")]
        if os.geteuid() == 0:
            # It refuses to run as root.
            for path in [*self.folder.glob("outer"), runtime, runtime / "config"]:
                shutil.chown(path, "nobody", "nogroup")
            command = ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups", *command]
        self.start(*command, env=environment)
        self.environment["SWAYSOCK"] = environment["SWAYSOCK"]
        sockets = lambda: [path for path in runtime.glob("wayland-*") if path.suffix != ".lock"]
        self.environment["WAYLAND_DISPLAY"] = str(within(20, sockets, "the compositor runs")[0])
        within(20, self.outputs, "it answers")
        return environment["SWAYSOCK"]

    def remove_output(self, name):
        """Closes the window that it is."""
        self.ask("swaymsg", "--socket", self.outer, f'[title=".*{name}"] kill')

    def message(self, *command):
        return self.ask("swaymsg", "--", *command)

    def query(self, what):
        answer = self.ask("swaymsg", "--raw", "--type", what)
        return json.loads(answer) if answer else []

    def outputs(self):
        return [output["name"] for output in self.query("get_outputs") if output["active"]]

    def has_panels(self):
        """A workspace lacks what panels take."""
        return all(workspace["rect"]["height"] < self.height
                   for workspace in self.query("get_workspaces"))

    def has_keyboard(self):
        return any(device["type"] == "keyboard" for device in self.query("get_inputs"))

    def windows(self):
        """The titles of all windows, and of those that have the keyboard."""
        waiting, titles, focused = [self.query("get_tree")], [], []
        while waiting:
            node = waiting.pop()
            waiting += node.get("nodes", []) + node.get("floating_nodes", [])
            if node.get("pid"):
                titles.append(node["name"])
                if node["focused"]:
                    focused.append(node["name"])
        return titles, focused

    def press(self, key, *modifiers):
        held = [word for modifier in modifiers for word in ("-M", modifier)]
        self.ask("wtype", *held, "-k", key)

    def _mouse(self, line):
        self.mouse.stdin.write(line.encode() + b"\n")
        self.mouse.stdin.flush()
        if not self.mouse.stdout.readline():
            raise AssertionError("the mouse is gone")

    def move_pointer(self, x, y):
        self._mouse(f"move {round(x)} {round(y)} {self.width * 2} {self.height}")

    def click(self, x, y):
        self.move_pointer(x, y)
        self._mouse("press")
        self._mouse("release")

    def picture(self, output=LEFT):
        """In the pixels of the output."""
        data = self.ask("grim", "-t", "ppm", "-o", output, "-")
        return Image.open(io.BytesIO(data)).convert("RGB")

    def keep_picture(self, name):
        keep_picture(self, name)


class WestonDesktop(desktop.Desktop):
    """weston with two outputs, which are windows side by side on a virtual display."""

    width, height = SIZE

    def __init__(self):
        super().__init__(window_manager=False)

    def __enter__(self):
        super().__enter__()
        try:
            self._start_weston()
        except BaseException:
            self.close()
            raise
        return self

    def _start_weston(self):
        socket = self.folder / "runtime" / "weston"
        self.start("weston", "--backend=x11-backend.so", "--use-pixman", "--output-count=2",
                   f"--width={SIZE[0]}", f"--height={SIZE[1]}", f"--socket={socket.name}",
                   "--idle-time=0")
        within(20, socket.exists, "the compositor runs")
        # Made in the order of the outputs.
        windows = lambda: sorted(map(int, self.windows(klass="Weston Compositor")))
        within(20, lambda: len(windows()) == 2, "both outputs are there")
        for window, area in zip(windows(), [desktop.LEFT, desktop.RIGHT]):
            self.ask("xdotool", "windowmove", "--sync", str(window), str(area[0]), str(area[1]))
        self.environment |= {"WAYLAND_DISPLAY": socket.name, "QT_QPA_PLATFORM": "wayland"}
        # Without a window manager the keys are for the window under the pointer.
        self.move_pointer(400, 500)

    def outputs(self):
        return [LEFT, RIGHT]

    def picture(self, output=LEFT):
        return super().picture().crop(desktop.LEFT if output == LEFT else desktop.RIGHT)

    def click(self, x, y):
        self.move_pointer(x, y)
        self.ask("xdotool", "click", "1")

    def keep_picture(self, name):
        keep_picture(self, name)


def keep_picture(shown, name):
    """For people to look at, where the environment names a folder."""
    folder = os.environ.get("VANTREL_TEST_PICTURES")
    if folder:
        for output in shown.outputs():
            shown.picture(output).save(pathlib.Path(folder, f"{name}-{output}.png"))
