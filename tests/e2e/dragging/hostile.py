"""hostile.py PANEL X Y VARIANT: drags onto the window PANEL, whose place X, Y is the pointer's, by bare
messages of the XDND protocol (version 5 of its specification), and breaks its rules as the variant
says, a JSON object:

version   the protocol's version that is announced
types     "list": in a property of the source; "many": a thousand there; "bytes": a property that is no
          list; "missing": a list that is not there; "none"; else in the message
source    whose window is announced: "nothing", "root", "dead"; else the source's own
format    of the messages: 8 or 16 rather than 32
answer    what is given for the files: "text" with "uris" or "bytes", "refuse", "silence",
          "pieces" (INCR) of the text, "endless" (INCR without an end), "trickle" (an INCR of single bytes),
          "stall" (INCR without a piece), "elsewhere" (another property), "nothing there" (a property that was
          never set), "nested" (INCR within INCR), "unasked" (before it is asked, to the panel), "twice"
kind      the answer's type, of items of so many bits: ["STRING", 8]
owner     "nobody" owns the selection
uris      addresses; or bytes as a text in Latin-1
repeat    how many times the addresses are repeated; a "#" in them is the number of the repetition
enters    false: without an XdndEnter
moves     how many times the drag moves
action    the action's atom, by its number or name
place     where it moves to, rather than to the panel
first     what comes before all else: "leave", "drop", "status", "finished"
last      what comes last: "drop", "leave", "nothing", "drop twice", "enter twice", "leave and drop",
          "drop at once" (nothing was asked yet)
patience  seconds without a word of the target's, after which none is expected; else 0.1
longest   seconds that the source serves the target; else 1
dies      when the source ends: "entered", "moved", "asked", "dropped"; never without it

Ends when the target has answered the drop, or has been silent for a while after the last message."""

import contextlib
import json
import select
import sys
import time

from Xlib import X, Xatom, display as xdisplay
from Xlib.protocol import event

PIECE = 60_000
NOWHERE = 0x1fffffff  # a window's number that no client is given


class Died(Exception):
    pass


class Source:
    def __init__(self, display, panel, x, y, variant):
        self.display = display
        self.display.set_error_handler(lambda *_: None)  # the requestor may have gone
        self.panel = self.display.create_resource_object("window", panel)
        self.place = variant.get("place", (x, y))
        self.variant = variant
        self.patience = variant.get("patience", 0.1)
        self.pieces = []  # left of a transfer in pieces: requestor, property, bytes
        self.end = time.monotonic() + variant.get("longest", 1)
        root = self.display.screen().root
        self.window = root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.announced = {"nothing": 0, "root": root.id, "dead": NOWHERE}.get(
            variant.get("source"), self.window.id)

    def atom(self, name):
        return self.display.intern_atom(name)

    def die_if(self, moment):
        if self.variant.get("dies") == moment:
            raise Died

    def send(self, name, *data):
        data = [self.announced, *data] + [0] * (4 - len(data))
        size = self.variant.get("format", 32)
        if size != 32:
            data = [1] * (160 // size) if size == 16 else bytes(20)
        self.panel.send_event(event.ClientMessage(window=self.panel, client_type=self.atom(name),
                                                  data=(size, data)))
        self.display.flush()

    def content(self):
        times = self.variant.get("repeat", 1)
        if "bytes" in self.variant:
            return self.variant["bytes"].encode("latin-1") * times
        return "".join(uri.replace("#", str(number)) + "\r\n" for number in range(times)
                       for uri in self.variant["uris"]).encode()

    def write(self, requestor, name, data):
        kind, size = self.variant.get("kind", ["text/uri-list", 8])
        if size != 8:
            data = [0xfffe] * 100
        # A property of more than the server takes in one request grows by pieces.
        requestor.change_property(name, self.atom(kind), size, data[:200_000])
        for start in range(200_000, len(data), 200_000):
            requestor.change_property(name, self.atom(kind), size, data[start:start + 200_000],
                                      X.PropModeAppend)

    def answer(self, request):
        self.die_if("asked")
        how = self.variant.get("answer", "text")
        if how == "silence":
            return
        prop = request.property
        if how == "refuse":
            prop = X.NONE
        elif how in ("text", "twice"):
            self.write(request.requestor, prop, self.content())
        elif how == "elsewhere":
            prop = self.atom("WM_NAME")
            self.write(request.requestor, prop, self.content())
        elif how in ("pieces", "endless", "trickle", "stall", "nested"):
            request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
            request.requestor.change_property(prop, self.atom("INCR"), 32, [len(self.content())])
            if how != "stall":
                self.pieces.append((request.requestor, prop, self.content()))
        for _ in range(2 if how == "twice" else 1):
            self.notify(request.requestor, request.selection, request.target, prop, request.time)

    def notify(self, requestor, selection, target, prop, moment=X.CurrentTime):
        requestor.send_event(event.SelectionNotify(
            time=moment, requestor=requestor, selection=selection, target=target, property=prop))
        self.display.flush()

    def next_piece(self, change):
        if change.state != X.PropertyDelete or not self.pieces:
            return
        requestor, prop, left = self.pieces.pop()
        how = self.variant["answer"]
        kind = self.atom("INCR" if how == "nested" else "text/uri-list")
        size = 1 if how == "trickle" else PIECE
        requestor.change_property(prop, kind, 8, left[:size])
        if left:
            rest = left if how in ("endless", "nested") else left[size:]
            self.pieces.append((requestor, prop, rest))
        self.display.flush()

    def listen(self, seconds):
        """Serves the target until it has answered the drop or nothing came for so long."""
        while time.monotonic() < self.end:
            if not self.display.pending_events() and \
                    not select.select([self.display.fileno()], [], [], seconds)[0]:
                return
            while self.display.pending_events():
                happened = self.display.next_event()
                if happened.type == X.SelectionRequest:
                    self.answer(happened)
                elif happened.type == X.PropertyNotify:
                    self.next_piece(happened)
                elif happened.type == X.ClientMessage and \
                        happened.client_type == self.atom("XdndFinished"):
                    return

    def types(self):
        """The last two data of an XdndEnter."""
        files = self.atom("text/uri-list")
        kinds = self.variant.get("types", "message")
        if kinds == "none":
            return 0, 0
        if kinds == "message":
            return 0, files
        if kinds == "bytes":
            self.window.change_property(self.atom("XdndTypeList"), Xatom.STRING, 8, b"files" * 999)
        elif kinds != "missing":
            others = [self.atom(f"application/x-{number}")
                      for number in range(1000 if kinds == "many" else 4)]
            self.window.change_property(self.atom("XdndTypeList"), Xatom.ATOM, 32,
                                        [*others, files])
        return 1, 0

    def action(self):
        wanted = self.variant.get("action", "XdndActionCopy")
        return wanted if isinstance(wanted, int) else self.atom(wanted)

    def drag(self):
        variant = self.variant
        if variant.get("owner") != "nobody":
            self.window.set_selection_owner(self.atom("XdndSelection"), X.CurrentTime)
        if "first" in variant:
            self.send("Xdnd" + variant["first"].capitalize())
        if variant.get("answer") == "unasked":
            prop = self.atom("ORVELLE_SELECTION")
            self.write(self.panel, prop, self.content())
            self.notify(self.panel, self.atom("XdndSelection"), self.atom("text/uri-list"), prop)
        has_list, kind = self.types()
        last = variant.get("last", "drop")
        for _ in range((2 if last == "enter twice" else 1) if variant.get("enters", True) else 0):
            self.send("XdndEnter", variant.get("version", 5) << 24 | has_list, kind)
        self.die_if("entered")
        x, y = self.place
        for step in range(variant.get("moves", 4)):
            self.send("XdndPosition", 0, (x + step % 4) << 16 & 0xffffffff | y & 0xffff,
                      X.CurrentTime, self.action())
        self.die_if("moved")
        if last != "drop at once":
            self.listen(0.1)
        if last.startswith("leave"):
            self.send("XdndLeave", 0)
        if "drop" in last or last == "enter twice":
            for _ in range(2 if last == "drop twice" else 1):
                self.send("XdndDrop", 0, X.CurrentTime)
            self.display.sync()
            self.die_if("dropped")
        self.listen(self.patience)

    def run(self):
        with contextlib.suppress(Died):
            self.drag()
            self.window.destroy()
            self.display.sync()


if __name__ == "__main__":
    window, left, top = (int(word) for word in sys.argv[1:4])
    Source(xdisplay.Display(), window, left, top, json.loads(sys.argv[4])).run()
    print("done", flush=True)
