"""A media player that goes to another track for each line on its input."""

import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

PLAYER = "org.mpris.MediaPlayer2.Player"


class Player(dbus.service.Object):
    def __init__(self, bus):
        super().__init__(dbus.service.BusName("org.mpris.MediaPlayer2.soak", bus),
                         "/org/mpris/MediaPlayer2")
        self.track = 0

    def properties(self):
        return {"PlaybackStatus": "Playing",
                "Metadata": dbus.Dictionary(
                    {"mpris:trackid": dbus.ObjectPath(f"/track/{self.track}"),
                     "xesam:title": f"Track {self.track}", "xesam:artist": ["Somebody"],
                     "mpris:length": dbus.Int64(180_000_000)}, signature="sv")}

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="s", out_signature="a{sv}")
    def GetAll(self, interface):
        return self.properties() if interface == PLAYER else {"Identity": "Soak"}

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        return dbus.Int64(0) if name == "Position" else self.GetAll(interface).get(name, "")

    @dbus.service.signal(dbus.PROPERTIES_IFACE, signature="sa{sv}as")
    def PropertiesChanged(self, interface, changed, invalidated):
        pass

    def next(self):
        self.track += 1
        self.PropertiesChanged(PLAYER, self.properties(), [])


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    player = Player(dbus.SessionBus())
    loop = GLib.MainLoop()

    def read(*_):
        if not sys.stdin.readline():
            loop.quit()
            return False
        player.next()
        return True

    GLib.io_add_watch(0, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, read)
    loop.run()


main()
