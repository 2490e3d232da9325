"""GeoClue as python3-dbusmock plays it, on the bus of the test."""

import subprocess

CREATE_CLIENT = """
if '/org/freedesktop/GeoClue2/Client/1' not in objects:
    self.AddObject('/org/freedesktop/GeoClue2/Client/1', 'org.freedesktop.GeoClue2.Client',
                   {'DesktopId': '', 'RequestedAccuracyLevel': dbus.UInt32(0),
                    'DistanceThreshold': dbus.UInt32(0)},
                   [('Start', '', '', '''%s'''), ('Stop', '', '', '')])
ret = dbus.ObjectPath('/org/freedesktop/GeoClue2/Client/1')
"""
FIND_PLACE = """
path = '/org/freedesktop/GeoClue2/Location/1'
if path not in objects:
    self.AddObject(path, 'org.freedesktop.GeoClue2.Location',
                   {'Latitude': %r, 'Longitude': %r, 'Accuracy': 1000.0}, [])
self.EmitSignal('org.freedesktop.GeoClue2.Client', 'LocationUpdated', 'oo',
                [dbus.ObjectPath('/'), dbus.ObjectPath(path)])
"""
MANAGER = ("org.freedesktop.GeoClue2", "/org/freedesktop/GeoClue2/Manager",
           "org.freedesktop.GeoClue2.Manager")


def start(desktop, latitude, longitude):
    """The machine is at this place."""
    code = CREATE_CLIENT % (FIND_PLACE % (latitude, longitude))
    script = f"""
import dbusmock, gi.repository.GLib, dbus, dbus.mainloop.glib
dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
bus = dbus.SessionBus()
name = dbus.service.BusName({MANAGER[0]!r}, bus, allow_replacement=False)
manager = dbusmock.mockobject.DBusMockObject(name, {MANAGER[1]!r}, {MANAGER[2]!r}, {{}})
dbusmock.mockobject.objects[{MANAGER[1]!r}] = manager
manager.AddMethods({MANAGER[2]!r}, [('CreateClient', '', 'o', {code!r}),
                                    ('DeleteClient', 'o', '', '')])
print('ready', flush=True)
gi.repository.GLib.MainLoop().run()
"""
    process = desktop.spawn(["/usr/bin/python3", "-c", script], stdout=subprocess.PIPE, text=True)
    # The mock writes its log to the same pipe.
    for line in process.stdout:
        if line.startswith("ready"):
            return process
    raise AssertionError("GeoClue's mock did not start")
