"""A desktop's tray for status notifier items, and what such a tray sees of an item."""

import threading

from gi.repository import Gio, GLib
from Xlib import X
from Xlib.protocol import event

WATCHER = "org.kde.StatusNotifierWatcher"
WATCHER_PATH = "/StatusNotifierWatcher"
INTERFACE = f"""<node><interface name="{WATCHER}">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
</interface></node>"""


class TrayHost:
    """The watcher with a host of its own; answers from a thread until it is stopped."""

    def __init__(self, address):
        self.items = []  # the bus names of the programs that registered, in order
        self.loop = None
        self.connection = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
            | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)
        ready = threading.Event()
        self.thread = threading.Thread(target=self._serve, args=[ready], daemon=True)
        self.thread.start()
        assert ready.wait(10)
        self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                  "RequestName", GLib.Variant("(su)", (WATCHER, 0)))

    def stop(self):
        if self.connection.is_closed():
            return
        self.connection.close_sync(None)
        self.loop.quit()
        self.thread.join(10)

    def _serve(self, ready):
        context = GLib.MainContext()
        context.push_thread_default()
        self.loop = GLib.MainLoop(context)
        interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
        self.connection.register_object(WATCHER_PATH, interface, self._called, self._property)
        ready.set()
        self.loop.run()

    def _called(self, _connection, sender, _path, _interface, method, _arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self.items.append(sender)
        invocation.return_value(None)

    def _property(self, _connection, _sender, _path, _interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", self.items),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]

    def call(self, name, path, interface, method, arguments=None):
        return self.connection.call_sync(name, path, interface, method, arguments, None,
                                         Gio.DBusCallFlags.NONE, 10000, None).unpack()

    def item(self, name):
        """A property of the item that registered last."""
        return self.call(self.items[-1], "/StatusNotifierItem", "org.freedesktop.DBus.Properties",
                         "Get", GLib.Variant("(ss)", ("org.kde.StatusNotifierItem", name)))[0]

    def menu(self):
        """The item's menu: its lines, top to bottom."""
        _, (_, _, lines) = self._menu("GetLayout", GLib.Variant("(iias)", (0, -1, [])))
        return [MenuLine(*line) for line in lines]

    def choose(self, label):
        line = next(line for line in self.menu() if line.label == label)
        self._menu("Event", GLib.Variant("(isvu)", (line.number, "clicked", GLib.Variant("i", 0), 0)))

    def _menu(self, method, arguments):
        return self.call(self.items[-1], self.item("Menu"), "com.canonical.dbusmenu", method,
                         arguments)


class XEmbedTray:
    """The older kind of tray, which takes the icons' windows into its own."""

    def __init__(self, desktop):
        self.desktop = desktop
        selection = desktop.atom("_NET_SYSTEM_TRAY_S0")
        self.window = desktop.root.create_window(0, 900, 100, 24, 0, X.CopyFromParent)
        self.window.set_selection_owner(selection, X.CurrentTime)
        told = event.ClientMessage(window=desktop.root, client_type=desktop.atom("MANAGER"),
                                   data=(32, [X.CurrentTime, selection, self.window.id, 0, 0]))
        desktop.root.send_event(told, X.StructureNotifyMask)
        desktop.display.sync()

    def icons(self):
        """The windows that asked to be taken in since the last question."""
        opcode = self.desktop.atom("_NET_SYSTEM_TRAY_OPCODE")
        display = self.desktop.display
        events = [display.next_event() for _ in range(display.pending_events())]
        return [each.data[1][2] for each in events
                if each.type == X.ClientMessage and each.client_type == opcode]


class MenuLine:
    def __init__(self, number, properties, lines):
        self.number = number
        self.is_separator = properties.get("type") == "separator"
        self.label = "" if self.is_separator else properties["label"]
        self.is_enabled = properties.get("enabled", True)
        self.shortcut = properties.get("shortcut", [])
        self.has_picture = bool(properties.get("icon-data"))
        self.lines = [MenuLine(*line) for line in lines]
