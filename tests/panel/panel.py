#!/usr/bin/python3
"""A desktop's panel without a picture: the watcher and the host of status items, on the session bus.

It is a process of its own, as a panel is. Commands come as lines of JSON on standard input, each
with the key "do"; what it sees goes out as lines of JSON on standard output. It ends with its
input. README.md beside it lists both."""

import argparse
import json
import os
import sys
import traceback

import dbus
import dbus.mainloop.glib
from gi.repository import GLib

from item import Item
from watcher import WATCHER, Watcher


class Panel:
    def __init__(self, options):
        dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
        self.loop = GLib.MainLoop()
        self.bus = dbus.SessionBus()
        self.bus.set_exit_on_disconnect(False)
        self.shows_label = options.label == "shown"
        self.items = {}
        self.watcher = Watcher(self.bus, self.added, self.removed)
        self.watcher.has_host = options.host == "now"
        self.watcher.refuses = options.items == "refused"
        self.pending = b""
        GLib.io_add_watch(sys.stdin.fileno(), GLib.IO_IN | GLib.IO_HUP, self.read)
        if options.start == "now":
            self.start({})
        self.tell({"event": "ready"})

    @staticmethod
    def tell(record):
        print(json.dumps(record), flush=True)

    def answer(self, record):
        """Tells it behind everything that had come over the bus by then."""
        GLib.idle_add(self.tell, record, priority=GLib.PRIORITY_LOW)

    # What the watcher sees.

    def added(self, service, path):
        self.tell({"event": "registered", "service": service, "path": path})
        self.items[service] = Item(self.bus, service, path, self.shows_label, self.tell)

    def removed(self, service):
        if service in self.items:
            self.items.pop(service).forget()
            self.tell({"event": "gone", "service": service})

    # What standard input asks for.

    def read(self, descriptor, _condition):
        chunk = os.read(descriptor, 65536)
        if not chunk:
            self.loop.quit()
            return False
        *lines, self.pending = (self.pending + chunk).split(b"\n")
        for line in lines:
            try:
                self.obey(json.loads(line))
            except Exception:  # the main loop would only print it
                traceback.print_exc()
                os._exit(1)
        return True

    def obey(self, command):
        name = command["do"]
        try:
            if name in {"start", "stop", "host", "quit"}:
                getattr(self, name)(command)
            elif not self.items:
                self.answer({"answer": name, "error": "no item"})
            else:
                value = next(reversed(self.items.values())).obey(command)
                self.answer({"answer": name} | ({} if value is None else {"value": value}))
        except dbus.DBusException as error:
            self.answer({"answer": name, "error": error.get_dbus_name()})

    def start(self, _command):
        self.bus.request_name(WATCHER, dbus.bus.NAME_FLAG_DO_NOT_QUEUE)
        self.watcher.set_host(self.watcher.has_host)
        self.tell({"event": "started"})

    def host(self, command):
        self.watcher.set_host(command["there"])
        self.answer({"answer": "host"})

    def stop(self, _command):
        self.bus.release_name(WATCHER)
        for service in [*self.items]:
            self.watcher.forget(service)
            self.items.pop(service).forget()
        self.tell({"event": "stopped"})

    def quit(self, _command):
        self.loop.quit()


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--label", choices=["shown", "hidden"], default="shown",
                        help="whether the panel knows the text beside an icon")
    parser.add_argument("--start", choices=["now", "later"], default="now",
                        help="later: waits for the command \"start\" before it takes its name")
    parser.add_argument("--host", choices=["now", "later"], default="now",
                        help="later: a watcher alone, which nobody shows the items of")
    parser.add_argument("--items", choices=["entered", "refused"], default="entered",
                        help="refused: answers an error to each item that registers")
    panel = Panel(parser.parse_args())
    panel.loop.run()
