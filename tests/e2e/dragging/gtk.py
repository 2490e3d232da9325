"""gtk.py X Y [URI...]: a window at X, Y that files are dragged from and dropped on, made with GTK.
Prints "ready", "over" with each movement of a drag above it, the addresses that were dropped, and
how a drag of its own ended."""

import sys

import gi

gi.require_version("Gtk", "3.0")
gi.require_version("Gdk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

x, y = map(int, sys.argv[1:3])
uris = sys.argv[3:]
types = [Gtk.TargetEntry.new("text/uri-list", 0, 0)]


def tell(*words):
    print(*words, flush=True)


window = Gtk.Window(title="GTK")
window.set_default_size(160, 120)
area = Gtk.EventBox()
area.add(Gtk.Label(label="GTK"))
window.add(area)
area.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, types,
                     Gdk.DragAction.COPY | Gdk.DragAction.MOVE)
area.connect("drag-data-get", lambda widget, context, data, info, time: data.set_uris(uris))
area.connect("drag-failed", lambda widget, context, result: tell("failed"))
area.connect("drag-end", lambda widget, context: tell("ended"))
area.drag_dest_set(Gtk.DestDefaults.ALL, types, Gdk.DragAction.COPY)
area.connect("drag-motion", lambda *_: tell("over"))
area.connect("drag-data-received",
             lambda widget, context, x, y, data, info, time: tell("dropped", *data.get_uris()))
window.connect("map-event", lambda *_: tell("ready"))
window.show_all()
window.move(x, y)
Gtk.main()
