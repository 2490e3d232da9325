"""hostile.py PANEL X Y VARIANT: drags onto the window PANEL, whose place X, Y is the pointer's, by bare
messages of the XDND protocol (version 5 of its specification), and breaks its rules as the variant
says, a JSON object:

version   the protocol's version that is announced
types     "list": in a property of the source; "many": a thousand there; "none"; else in the message
answer    what is given for the files: "text" with "uris" or "bytes", "refuse", "silence",
          "pieces" (INCR) of the text, "endless" (INCR without an end), "stall" (INCR without a piece)
uris      addresses; or bytes as a text in Latin-1
repeat    how many times the addresses are repeated
last      what comes last: "drop", "leave", "nothing", "drop twice", "enter twice"
dies      when the source ends: "entered", "moved", "asked", "dropped"; never without it

Ends when the target has answered the drop, or has been silent for a while after the last message."""

import json
import select
import sys
import time

from Xlib import X, Xatom, display as xdisplay
from Xlib.protocol import event

panel_id, x, y = (int(word) for word in sys.argv[1:4])
variant = json.loads(sys.argv[4])
display = xdisplay.Display()
root = display.screen().root
window = root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
panel = display.create_resource_object("window", panel_id)
atom = display.intern_atom
files = atom("text/uri-list")
pieces = []  # left of a transfer in pieces: requestor, property, bytes
PIECE = 60_000


def die_if(moment):
    if variant.get("dies") == moment:
        sys.exit()  # the server ends the connection and its windows


def send(name, *data):
    data = [window.id, *data] + [0] * (4 - len(data))
    panel.send_event(event.ClientMessage(window=panel, client_type=atom(name), data=(32, data)))
    display.flush()


def content():
    if "bytes" in variant:
        return variant["bytes"].encode("latin-1") * variant.get("repeat", 1)
    return b"".join(uri.encode() + b"\r\n" for uri in variant["uris"]) * variant.get("repeat", 1)


def write(requestor, name, kind, data):
    # A property of more than the server takes in one request grows by pieces.
    requestor.change_property(name, kind, 8, data[:200_000])
    for start in range(200_000, len(data), 200_000):
        requestor.change_property(name, kind, 8, data[start:start + 200_000], X.PropModeAppend)


def answer(request):
    die_if("asked")
    how = variant.get("answer", "text")
    if how == "silence":
        return
    prop = request.property
    if how == "refuse":
        prop = X.NONE
    elif how == "text":
        write(request.requestor, prop, files, content())
    else:
        request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
        request.requestor.change_property(prop, atom("INCR"), 32, [len(content())])
        if how != "stall":
            pieces.append((request.requestor, prop, content()))
    request.requestor.send_event(event.SelectionNotify(
        time=request.time, requestor=request.requestor, selection=request.selection,
        target=request.target, property=prop))
    display.flush()


def next_piece(change):
    if change.state != X.PropertyDelete or not pieces:
        return
    requestor, prop, left = pieces.pop()
    requestor.change_property(prop, files, 8, left[:PIECE])
    if left:
        rest = left if variant["answer"] == "endless" else left[PIECE:]
        pieces.append((requestor, prop, rest))
    display.flush()


def listen(seconds):
    """Serves the target until it has answered the drop or nothing came for so long."""
    while True:
        if not display.pending_events() and \
                not select.select([display.fileno()], [], [], seconds)[0]:
            return False
        while display.pending_events():
            happened = display.next_event()
            if happened.type == X.SelectionRequest:
                answer(happened)
            elif happened.type == X.PropertyNotify:
                next_piece(happened)
            elif happened.type == X.ClientMessage and \
                    happened.client_type == atom("XdndFinished"):
                return True
        if time.monotonic() > end:
            return False


end = time.monotonic() + 3
display.set_error_handler(lambda *_: None)  # the requestor may have gone
window.set_selection_owner(atom("XdndSelection"), X.CurrentTime)
kinds = variant.get("types", "message")
if kinds in ("list", "many"):
    others = [atom(f"application/x-{number}") for number in range(1000 if kinds == "many" else 4)]
    window.change_property(atom("XdndTypeList"), Xatom.ATOM, 32, [*others, files])
first = {"list": 0, "many": 0, "none": 0}.get(kinds, files)
enter = (variant.get("version", 5) << 24 | (kinds in ("list", "many")), first)
send("XdndEnter", *enter)
if variant.get("last") == "enter twice":
    send("XdndEnter", *enter)
die_if("entered")
for step in range(4):
    send("XdndPosition", 0, (x + step) << 16 | y, X.CurrentTime, atom("XdndActionCopy"))
die_if("moved")
listen(0.1)
last = variant.get("last", "drop")
if last.startswith("drop") or last == "enter twice":
    send("XdndDrop", 0, X.CurrentTime)
    if last == "drop twice":
        send("XdndDrop", 0, X.CurrentTime)
    display.sync()
    die_if("dropped")
elif last == "leave":
    send("XdndLeave", 0)
listen(0.3)
print("done", flush=True)
