"""A screen reader as a test written in Python drives it: what it finds in a program, hears and presses
on the accessibility bus. Run as a program it is the process behind, since a process meets one such
bus in its life."""

import contextlib
import json
import os
import queue
import subprocess
import sys
import threading
import warnings


class ScreenReader:
    """`with ScreenReader(environment) as reader:` runs one on the bus of that environment. Programs
    that are started from then on know of it."""

    def __init__(self, environment):
        self.process = subprocess.Popen(["/usr/bin/python3", __file__], env=environment,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.records = queue.Queue()
        self.heard = []
        threading.Thread(target=self._listen, daemon=True).start()

    def __enter__(self):
        self._next("ready")
        return self

    def __exit__(self, *_):
        self.process.stdin.close()
        self.process.wait(30)
        self.process.stdout.close()

    def _listen(self):
        for line in self.process.stdout:
            self.records.put(json.loads(line))

    def _next(self, kind):
        while True:
            try:
                record = self.records.get(timeout=30)
            except queue.Empty:
                raise AssertionError(f"no {kind}; heard {self.heard}") from None
            if record["kind"] == kind:
                return record
            self.heard.append(record)

    def _ask(self, **request):
        self.process.stdin.write(json.dumps(request) + "\n")
        self.process.stdin.flush()
        return self._next("answer")["value"]

    def tree(self):
        """What is seen of the program, from the top of each window on: each element with its depth,
        role, name, description, states and actions."""
        return self._ask(do="tree")

    def lines(self):
        """The same, an element a line: its role and name, moved in by its depth."""
        return [f"{'  ' * element['depth']}{element['role']} '{element['name']}'"
                for element in self.tree()]

    def element(self, role, name):
        """The element of that role and name; None where there is none."""
        found = [element for element in self.tree()
                 if (element["role"], element["name"]) == (role, name)]
        return found[0] if found else None

    def press(self, role, name):
        """Does what the element offers as a press; answers whether it could."""
        return self._ask(do="press", role=role, name=name)

    def focused(self):
        """Roles and names of what got the keyboard, in the order in which it was told."""
        self._ask(do="nothing")
        return [f"{record['role']} '{record['name']}'" for record in self.heard]


def serve():
    import gi
    # The binding calls its own names for actions old; the others are hidden by an element's name.
    warnings.simplefilter("ignore", DeprecationWarning)
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, Gio, GLib

    def say(kind, **record):
        print(json.dumps({"kind": kind, **record}), flush=True)

    def announce_screen_reader():
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        for name in ["IsEnabled", "ScreenReaderEnabled"]:
            bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                          GLib.Variant("(ssv)", ("org.a11y.Status", name, GLib.Variant("b", True))),
                          None, Gio.DBusCallFlags.NONE, 20000, None)

    def states(element):
        return sorted(state.value_nick for state in element.get_state_set().get_states())

    def actions(element):
        if "Action" not in element.get_interfaces():
            return []
        return [element.get_action_name(index) for index in range(element.get_n_actions())]

    def walk(element, depth=0):
        """Each element that is seen, with its depth."""
        yield element, depth
        for index in range(element.get_child_count()):
            child = element.get_child_at_index(index)
            if child and "showing" in states(child):
                yield from walk(child, depth + 1)

    def programs():
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            program = desktop.get_child_at_index(index)
            if program and program.get_name() == "vantrel":
                yield program

    def elements():
        for program in programs():
            program.clear_cache()
            yield from walk(program)

    def press(role, name):
        for element, _ in elements():
            if (element.get_role_name(), element.get_name()) == (role, name):
                offered = actions(element)
                return "Press" in offered and element.do_action(offered.index("Press"))
        return False

    def answer(request):
        if request["do"] == "tree":
            return [{"depth": depth, "role": element.get_role_name(), "name": element.get_name(),
                     "description": element.get_description(), "states": states(element),
                     "actions": actions(element)} for element, depth in elements()]
        if request["do"] == "press":
            return press(request["role"], request["name"])
        return None

    def take_line(stream, _condition):
        line = stream.readline()
        goes_on = False
        try:
            if line:
                say("answer", value=answer(json.loads(line)))
                goes_on = True
        finally:
            if not goes_on:
                loop.quit()
        return goes_on

    def hear(event, *_):
        # What had the keyboard may be gone by now.
        with contextlib.suppress(GLib.GError):
            if event.detail1:
                say("focus", role=event.source.get_role_name(), name=event.source.get_name())

    os.environ["LC_ALL"] = "C.UTF-8"
    announce_screen_reader()
    Atspi.init()
    listener = Atspi.EventListener.new(hear)
    listener.register("object:state-changed:focused")
    loop = GLib.MainLoop()
    GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IOCondition.IN | GLib.IOCondition.HUP,
                      take_line)
    say("ready")
    loop.run()


if __name__ == "__main__":
    serve()
