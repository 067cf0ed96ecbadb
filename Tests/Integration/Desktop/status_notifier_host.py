#!/usr/bin/python3
"""A tray on the session bus: the watcher and one host in one program. Takes commands on standard input, answers each
with one line: item, menu, changes, activate X Y, click ID, clicks ID ID,
host yes|no."""
import json
import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"


def plain(properties):
    return {str(name): bool(value) if isinstance(value, dbus.Boolean) else value for name, value in properties.items()}


class Watcher(dbus.service.Object):
    def __init__(self, bus):
        super().__init__(dbus.service.BusName(WATCHER, bus), "/StatusNotifierWatcher")
        self.items = []
        self.has_host = True
        self.changes = []

    @dbus.service.method(WATCHER, in_signature="s")
    def RegisterStatusNotifierItem(self, service):
        self.items.append(str(service))
        item = self.connection.get_object(service, "/StatusNotifierItem", introspect=False)
        for signal in ("NewIcon", "NewToolTip"):
            item.connect_to_signal(signal, lambda name=signal: self.changes.append(name), dbus_interface=ITEM)
        self.connection.get_object(service, "/MenuBar", introspect=False).connect_to_signal(
            "LayoutUpdated", lambda *_: self.changes.append("LayoutUpdated"), dbus_interface=MENU)

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        assert (interface, name) == (WATCHER, "IsStatusNotifierHostRegistered")
        return self.has_host

    @dbus.service.signal(WATCHER)
    def StatusNotifierHostRegistered(self):
        self.has_host = True

    @dbus.service.signal(WATCHER)
    def StatusNotifierHostUnregistered(self):
        self.has_host = False

    def item(self):
        proxy = self.connection.get_object(self.items[-1], "/StatusNotifierItem", introspect=False)
        found = proxy.GetAll(ITEM, dbus_interface=dbus.PROPERTIES_IFACE)
        width, height, pixels = found["IconPixmap"][0]
        return {"id": found["Id"], "status": found["Status"], "menu": found["Menu"], "isMenu": bool(found["ItemIsMenu"]),
                "size": [width, height, len(pixels)], "pixel": [int(byte) for byte in pixels[:4]],
                "icons": found["IconPixmap"].signature, "toolTip": found["ToolTip"][2],
                "toolTipTypes": found["ToolTip"].signature}

    def menu(self):
        proxy = self.connection.get_object(self.items[-1], "/MenuBar", introspect=False)
        revision, (root, _, children) = proxy.GetLayout(0, -1, dbus.Array([], "s"), dbus_interface=MENU)
        return [root, [[identifier, plain(properties)] for identifier, properties, _ in children]]

    def answer(self, words):
        command, arguments = words[0], words[1:]
        if command == "activate":
            proxy = self.connection.get_object(self.items[-1], "/StatusNotifierItem", introspect=False)
            proxy.Activate(int(arguments[0]), int(arguments[1]), dbus_interface=ITEM)
        elif command == "click":
            proxy = self.connection.get_object(self.items[-1], "/MenuBar", introspect=False)
            proxy.Event(int(arguments[0]), "clicked", dbus.String("", variant_level=1), dbus.UInt32(0), dbus_interface=MENU)
        elif command == "clicks":
            proxy = self.connection.get_object(self.items[-1], "/MenuBar", introspect=False)
            events = [(int(each), "clicked", dbus.String("", variant_level=1), dbus.UInt32(0)) for each in arguments]
            return [int(each) for each in proxy.EventGroup(dbus.Array(events, "(isvu)"), dbus_interface=MENU)]
        elif command == "host":
            self.StatusNotifierHostRegistered() if arguments[0] == "yes" else self.StatusNotifierHostUnregistered()
        elif command == "changes":
            changes, self.changes = self.changes, []
            return changes
        else:
            return getattr(self, command)()
        return "done"


def read(_source, _condition, watcher):
    line = sys.stdin.readline()
    if not line:
        loop.quit()
        return False
    print(json.dumps(watcher.answer(line.split())), flush=True)
    return True


DBusGMainLoop(set_as_default=True)
loop = GLib.MainLoop()
tray = Watcher(dbus.SessionBus())
GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, read, tray)
loop.run()
