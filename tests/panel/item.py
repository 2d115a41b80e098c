"""A status item as a host sees it: its properties, its signals, its menu."""

import base64

import dbus
from gi.repository import GLib

ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
LABELS = {"XAyatanaLabel", "XAyatanaLabelGuide", "XAyatanaOrderingIndex"}


def plain(value):
    """A value of the bus as JSON has it; bytes in base 64."""
    if isinstance(value, dbus.Boolean):
        return bool(value)
    if isinstance(value, dbus.Array) and value.signature == "y":
        return base64.b64encode(bytes(value)).decode()
    if isinstance(value, (dbus.Array, dbus.Struct, list, tuple)):
        return [plain(part) for part in value]
    if isinstance(value, dict):
        return {str(key): plain(part) for key, part in value.items()}
    if isinstance(value, str):
        return str(value)
    return float(value) if isinstance(value, float) else int(value)


class Item:
    """Tells {"event": "item"} with what a panel would show, once and after each change of it."""

    def __init__(self, bus, service, path, shows_label, tell):
        self.bus = bus
        self.service = service
        self.shows_label = shows_label
        self.tell = tell
        self.object = bus.get_object(service, path, introspect=False)
        self.shown = None
        self.showing = None
        self.matches = [
            bus.add_signal_receiver(self.changed, None, ITEM, service, path,
                                    member_keyword="member"),
            bus.add_signal_receiver(self.menu_changed, "LayoutUpdated", MENU, service),
        ]
        self.show_soon()

    def forget(self):
        for match in self.matches:
            match.remove()
        self.matches = []
        if self.showing:
            GLib.source_remove(self.showing)
            self.showing = None

    def properties(self, interface=ITEM, target=None):
        values = (target or self.object).GetAll(interface, dbus_interface=dbus.PROPERTIES_IFACE)
        return {name: plain(value) for name, value in values.items()
                if self.shows_label or name not in LABELS}

    def menu_object(self):
        path = self.properties()["Menu"]
        return self.bus.get_object(self.service, path, introspect=False)

    # What it tells by itself.

    def changed(self, *arguments, member):
        self.tell({"event": "signal", "name": str(member), "arguments": plain(arguments)})
        self.show_soon()

    def menu_changed(self, revision, parent):
        self.tell({"event": "signal", "name": "LayoutUpdated", "arguments": plain((revision, parent))})

    def show_soon(self):
        """Once for all signals that came together."""
        if not self.showing:
            self.showing = GLib.idle_add(self.show)

    def show(self):
        self.showing = None
        try:
            values = self.properties()
        except dbus.DBusException as error:
            self.tell({"event": "unreadable", "error": error.get_dbus_name()})
            return
        shown = {
            "label": values.get("XAyatanaLabel"),
            "title": values["Title"],
            "icon": values["IconName"],
            "overlay": values["OverlayIconName"],
            "tooltip": values["ToolTip"][2:],
            "status": values["Status"],
        }
        if shown != self.shown:
            self.shown = shown
            self.tell({"event": "item", **shown})

    # What the panel's user does, and what a stranger on the bus may.

    def obey(self, command):
        return getattr(self, "do_" + command["do"].replace("-", "_"))(command)

    def do_activate(self, command):
        self.object.Activate(command.get("x", 0), command.get("y", 0), dbus_interface=ITEM)

    def do_secondary_activate(self, command):
        self.object.SecondaryActivate(command.get("x", 0), command.get("y", 0), dbus_interface=ITEM)

    def do_context_menu(self, command):
        self.object.ContextMenu(command.get("x", 0), command.get("y", 0), dbus_interface=ITEM)

    def do_scroll(self, command):
        self.object.Scroll(command.get("delta", 120), command.get("orientation", "vertical"),
                           dbus_interface=ITEM)

    def do_properties(self, _command):
        return self.properties()

    def do_menu(self, _command):
        """Opens the menu as a host does and answers its lines from top to bottom."""
        menu = self.menu_object()
        menu.AboutToShow(0, dbus_interface=MENU)
        _revision, (_id, _properties, children) = menu.GetLayout(
            0, -1, dbus.Array([], signature="s"), dbus_interface=MENU)
        return [{"id": int(child[0])} | plain(child[1]) for child in children]

    def do_click(self, command):
        """Chooses the line of the menu with the label, or the id, that the command names."""
        if "id" in command:
            number = command["id"]
        else:
            lines = self.do_menu(command)
            number = next(line["id"] for line in lines
                          if line.get("label", "").replace("__", "_") == command["label"])
        self.menu_object().Event(number, "clicked", dbus.String("", variant_level=1), dbus.UInt32(0),
                                 dbus_interface=MENU)

    def do_call(self, command):
        """Any call: on "item" or "menu", a member with a signature and arguments."""
        target = self.menu_object() if command["on"] == "menu" else self.object
        method = target.get_dbus_method(command["member"], command.get(
            "interface", MENU if command["on"] == "menu" else ITEM))
        answer = method(*command.get("arguments", []), signature=command.get("signature", ""))
        return plain(answer) if answer is not None else None
