"""GeoClue 2 on the session bus: the tests of the adapter and of the whole program meet the same one.

Compared with GeoClue 2.6.0 of Debian 12, run on a private bus with an agent of its own and a place
given as NMEA sentences. As there:
- every CreateClient makes an object of its own; after its DeleteClient there is none at the path;
- Start without a DesktopId, or of a program that may not, fails with AccessDenied;
- a client's first place is signalled as soon as it is known: when it is known already, before Start
  has returned; then "Location" holds its path;
- a client that is started twice, or stopped and started again, signals nothing while the machine
  stays within its DistanceThreshold, and "Location" holds the path of before;
- a move beyond the threshold makes another object of the place, and a signal.

That one asks its agent only for sandboxed programs, so the question is after the documentation of
the agent's interface: Start returns when the user has answered. A Start whose client is deleted
meanwhile gets no answer at all here, which is the worst that may happen.
"""

import math

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.freedesktop.GeoClue2"
MANAGER_PATH = "/org/freedesktop/GeoClue2/Manager"
MANAGER_IFACE = "org.freedesktop.GeoClue2.Manager"
CLIENT_IFACE = "org.freedesktop.GeoClue2.Client"
LOCATION_IFACE = "org.freedesktop.GeoClue2.Location"
CONTROL_IFACE = "org.freedesktop.DBus.Mock"
METRES_PER_DEGREE = 111_000  # near enough, of latitude


class Location(dbus.service.Object):
    def __init__(self, connection, path, place):
        super().__init__(connection, path)
        self.path, self.place = path, place

    @dbus.service.method(dbus.PROPERTIES_IFACE, "s", "a{sv}")
    def GetAll(self, _interface):
        latitude, longitude = self.place
        return {"Latitude": latitude, "Longitude": longitude, "Accuracy": 1000.0}


class Client(dbus.service.Object):
    def __init__(self, manager, path):
        super().__init__(manager.connection, path)
        self.manager, self.path = manager, path
        self.properties = {"DesktopId": "", "RequestedAccuracyLevel": dbus.UInt32(4),
                           "DistanceThreshold": dbus.UInt32(0), "Active": False,
                           "Location": dbus.ObjectPath("/")}
        self.found = []
        self.question = None

    @dbus.service.method(dbus.PROPERTIES_IFACE, "ss", "v")
    def Get(self, _interface, name):
        return self.properties[name]

    @dbus.service.method(dbus.PROPERTIES_IFACE, "ssv", "")
    def Set(self, _interface, name, value):
        self.properties[name] = value

    @dbus.service.method(CLIENT_IFACE, "", "", async_callbacks=("done", "failed"))
    def Start(self, done, failed):
        if not self.properties["DesktopId"]:
            failed(refusal("'DesktopId' property must be set"))
        elif self.manager.answer == "ask":
            self.question = done, failed
        else:
            self.decide(self.manager.answer == "allow", done, failed)

    @dbus.service.method(CLIENT_IFACE, "", "")
    def Stop(self):
        self.properties["Active"] = False

    @dbus.service.signal(CLIENT_IFACE, "oo")
    def LocationUpdated(self, old, new):
        pass

    def decide(self, allowed, done, failed):
        self.question = None
        if not allowed:
            failed(refusal("'orvelle' disallowed"))
            return
        self.properties["Active"] = True
        self.update()
        done()

    def update(self):
        place = self.manager.place
        if not self.properties["Active"] or place is None:
            return
        if self.found and \
                distance(self.found[-1].place, place) < self.properties["DistanceThreshold"]:
            return
        old = self.properties["Location"]
        new = Location(self.connection, f"{self.path}/Location/{len(self.found)}", place)
        self.found.append(new)
        self.properties["Location"] = dbus.ObjectPath(new.path)
        self.LocationUpdated(old, new.path)

    def delete(self):
        for each in [*self.found, self]:
            each.remove_from_connection()


def refusal(text):
    return dbus.exceptions.DBusException(text, name="org.freedesktop.DBus.Error.AccessDenied")


def distance(one, other):
    try:
        return METRES_PER_DEGREE * math.dist(one, other)
    except TypeError:  # what is no place is no neighbour of one
        return math.inf


class Manager(dbus.service.Object):
    def __init__(self, connection):
        super().__init__(connection, MANAGER_PATH)
        self.place = None
        self.answer = "allow"
        self.clients = {}
        self.created = 0

    @dbus.service.method(MANAGER_IFACE, "", "o")
    def CreateClient(self):
        self.created += 1
        path = f"/org/freedesktop/GeoClue2/Client/{self.created}"
        self.clients[path] = Client(self, path)
        return dbus.ObjectPath(path)

    @dbus.service.method(MANAGER_IFACE, "o", "")
    def DeleteClient(self, path):
        self.clients.pop(path).delete()

    @dbus.service.method(CONTROL_IFACE, "vv", "")
    def MoveTo(self, latitude, longitude):
        """The machine is here now. Anything but two doubles is a service out of order."""
        self.place = latitude, longitude
        for client in list(self.clients.values()):
            client.update()

    @dbus.service.method(CONTROL_IFACE, "s", "")
    def SetAnswer(self, answer):
        """What a program is told that starts a client: "allow", "deny", or "ask", which waits."""
        self.answer = answer

    @dbus.service.method(CONTROL_IFACE, "b", "")
    def AnswerQuestions(self, allowed):
        """The user has decided, also for programs that start later."""
        self.answer = "allow" if allowed else "deny"
        for client in list(self.clients.values()):
            if client.question:
                client.decide(allowed, *client.question)

    @dbus.service.method(CONTROL_IFACE, "", "", async_callbacks=("done", "failed"))
    def NeverAnswer(self, done, failed):
        pass

    @dbus.service.method(CONTROL_IFACE, "", "uuuu")
    def Counts(self):
        """Clients ever made, those there are, those of them that are started, and questions."""
        clients = self.clients.values()
        return (self.created, len(clients),
                sum(bool(client.properties["Active"]) for client in clients),
                sum(client.question is not None for client in clients))


if __name__ == "__main__":
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    session = dbus.SessionBus()
    manager = Manager(session)
    name = dbus.service.BusName(NAME, session, do_not_queue=True)
    GLib.MainLoop().run()
