"""A media player that does what no player should. Its behaviour is told by lines on its input; its
argument is the number of questions that it refuses first."""

import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

ROOT = "org.mpris.MediaPlayer2"
PLAYER = "org.mpris.MediaPlayer2.Player"

SENSE = {"PlaybackStatus": "Playing",
         "Metadata": dbus.Dictionary({"mpris:trackid": dbus.ObjectPath("/track/1"),
                                      "xesam:title": "Endless", "xesam:artist": ["Nobody"],
                                      "mpris:length": dbus.Int64(3_000_000)}, signature="sv")}

BEHAVIOURS = {
    "sense": SENSE,
    "nothing": {"PlaybackStatus": "Playing", "Metadata": dbus.Dictionary({}, signature="sv")},
    "nonsense": {"PlaybackStatus": dbus.Int32(1), "Metadata": "no dictionary", "Rate": "fast"},
    "long": {"PlaybackStatus": "Playing",
             "Metadata": dbus.Dictionary({"xesam:title": "שלום 😀 " * 12_500,
                                          "xesam:artist": dbus.Int32(7),
                                          "mpris:artUrl": "file:///dev/zero",
                                          "mpris:length": float("nan")}, signature="sv")},
}


class Player(dbus.service.Object):
    def __init__(self, bus):
        super().__init__(dbus.service.BusName("org.mpris.MediaPlayer2.misbehaving", bus),
                         "/org/mpris/MediaPlayer2")
        self.properties = BEHAVIOURS["sense"]
        self.refusals = int(sys.argv[1])

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="s", out_signature="a{sv}")
    def GetAll(self, interface):
        if self.refusals > 0:
            self.refusals -= 1
            raise dbus.DBusException("Not yet", name="org.freedesktop.DBus.Error.UnknownObject")
        return self.properties if interface == PLAYER else {"Identity": dbus.Int32(3)}

    @dbus.service.method(dbus.PROPERTIES_IFACE, in_signature="ss", out_signature="v",
                         async_callbacks=("answer", "fail"))
    def Get(self, interface, name, answer, fail):
        """Never answers."""

    @dbus.service.signal(dbus.PROPERTIES_IFACE, signature="sa{sv}as")
    def PropertiesChanged(self, interface, changed, invalidated):
        pass


def behave(player, name):
    if name == "flood":
        for _ in range(2000):
            player.PropertiesChanged(PLAYER, player.properties, ["Metadata"])
    else:
        player.properties = BEHAVIOURS[name]
        player.PropertiesChanged(PLAYER, player.properties, [])
    print("done", name, flush=True)


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    player = Player(dbus.SessionBus())
    loop = GLib.MainLoop()

    def read(*_):
        line = sys.stdin.readline()
        if not line:
            loop.quit()
            return False
        behave(player, line.strip())
        return True

    GLib.io_add_watch(0, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, read)
    print("ready", flush=True)
    loop.run()


main()
