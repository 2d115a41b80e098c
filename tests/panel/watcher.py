"""The watcher of status items: the list that items enter themselves in."""

import dbus
import dbus.service

WATCHER = "org.kde.StatusNotifierWatcher"


class Watcher(dbus.service.Object):
    """Calls `added(service, path)` for each item that registers, `removed(service)` when it goes."""

    def __init__(self, bus, added, removed):
        super().__init__(bus, "/StatusNotifierWatcher")
        self.bus = bus
        self.added = added
        self.removed = removed
        self.has_host = True
        self.refuses = False
        self.paths = {}
        self.owners = {}

    def forget(self, service):
        self.paths.pop(service, None)
        if service in self.owners:
            self.owners.pop(service).cancel()

    @dbus.service.method(WATCHER, in_signature="s", sender_keyword="sender")
    def RegisterStatusNotifierItem(self, name, sender=None):
        if self.refuses:
            raise dbus.DBusException("No item is wanted", name="org.freedesktop.DBus.Error.AccessDenied")
        # Some items give their path alone.
        service, path = (sender, name) if name.startswith("/") else (name, "/StatusNotifierItem")
        if service in self.paths:
            return
        self.paths[service] = path
        self.owners[service] = self.bus.watch_name_owner(
            service, lambda owner: owner or self.lost(service))
        self.StatusNotifierItemRegistered(service + path)
        self.added(str(service), str(path))

    def lost(self, service):
        # The first answer about a name that another request has not taken yet says "nobody".
        if service in self.paths and not self.bus.name_has_owner(service):
            path = self.paths[service]
            self.forget(service)
            self.StatusNotifierItemUnregistered(service + path)
            self.removed(str(service))

    def set_host(self, has_host):
        self.has_host = has_host
        if has_host:
            self.StatusNotifierHostRegistered()
        else:
            self.StatusNotifierHostUnregistered()

    @dbus.service.method(WATCHER, in_signature="s")
    def RegisterStatusNotifierHost(self, _service):
        self.set_host(True)

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, _interface, name):
        return self.GetAll(_interface)[name]

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="s", out_signature="a{sv}")
    def GetAll(self, _interface):
        items = [service + path for service, path in self.paths.items()]
        return {
            "RegisteredStatusNotifierItems": dbus.Array(items, signature="s"),
            "IsStatusNotifierHostRegistered": self.has_host,
            "ProtocolVersion": dbus.Int32(0),
        }

    @dbus.service.signal(WATCHER, signature="s")
    def StatusNotifierItemRegistered(self, item):
        pass

    @dbus.service.signal(WATCHER, signature="s")
    def StatusNotifierItemUnregistered(self, item):
        pass

    @dbus.service.signal(WATCHER, signature="")
    def StatusNotifierHostRegistered(self):
        pass

    @dbus.service.signal(WATCHER, signature="")
    def StatusNotifierHostUnregistered(self):
        pass
