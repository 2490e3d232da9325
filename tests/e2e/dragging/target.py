"""A window that things are dragged onto, which breaks the rules of the XDND protocol as it is told."""

import select
import threading

from Xlib import X, Xatom, display as xdisplay
from Xlib.protocol import event

SIZE = (160, 120)


class Target(threading.Thread):
    """A window at a place, on a connection of its own, that behaves as the variant says:

    aware     what its property says of the version; "text" or nothing
    proxy     the window that is named to take its messages: "self", "root", "nowhere"
    status    what it answers a movement: "silence", "refuse", "nonsense", "flood", "stranger" (in another
              window's name); else it accepts
    asks      what it asks the source for: "strange" types, "often", "nowhere" (for a window that is none),
              "several" (MULTIPLE without a list), "without" (no property), "all"
    finished  how often it says that it is done with a drop; before the drop too with "early"
    dies      when its window goes: "entered", "moved", "dropped"
    """

    def __init__(self, display_name, x, y, variant):
        super().__init__(daemon=True)
        self.display = xdisplay.Display(display_name)
        self.display.set_error_handler(lambda *_: None)
        self.root = self.display.screen().root
        self.variant = variant
        self.seen = set()
        self.middle = (x + SIZE[0] // 2, y + SIZE[1] // 2)
        self.window = self.root.create_window(x, y, *SIZE, 0, X.CopyFromParent, background_pixel=0x806020,
                                              override_redirect=True)
        self.announce()
        self.window.map()
        self.display.sync()
        self.ended = False

    def atom(self, name):
        return self.display.intern_atom(name)

    def announce(self):
        aware = self.variant.get("aware", 5)
        if isinstance(aware, int):
            self.window.change_property(self.atom("XdndAware"), Xatom.ATOM, 32, [aware])
        elif aware == "text":
            self.window.change_property(self.atom("XdndAware"), Xatom.STRING, 8, b"yes")
        proxy = {"self": self.window.id, "root": self.root.id, "nowhere": 0x1fffffff}.get(
            self.variant.get("proxy"))
        if proxy:
            self.window.change_property(self.atom("XdndProxy"), Xatom.WINDOW, 32, [proxy])

    def run(self):
        while not self.ended:
            if not self.display.pending_events() and \
                    not select.select([self.display.fileno()], [], [], 0.05)[0]:
                continue
            happened = self.display.next_event()
            if happened.type == X.ClientMessage:
                self.handle(happened)

    def stop(self):
        self.ended = True
        self.join()
        self.display.close()

    def send(self, source, name, *data, own=None):
        target = self.display.create_resource_object("window", source)
        data = [own or self.window.id, *data] + [0] * (4 - len(data))
        target.send_event(event.ClientMessage(window=target, client_type=self.atom(name),
                                              data=(32, data)))

    def handle(self, message):
        name = self.display.get_atom_name(message.client_type)
        moment = {"XdndEnter": "entered", "XdndPosition": "moved", "XdndDrop": "dropped"}.get(name)
        if not moment:
            return
        source = message.data[1][0]
        if self.variant.get("dies") == moment:
            self.window.destroy()
        elif moment == "moved":
            self.answer(source)
            if moment not in self.seen:
                self.ask()
                if self.variant.get("finished") == "early":
                    self.send(source, "XdndFinished", 1, self.atom("XdndActionMove"))
        elif moment == "dropped":
            self.ask()
            for _ in range({"never": 0, "twice": 2}.get(self.variant.get("finished"), 1)):
                self.send(source, "XdndFinished", 1, self.atom("XdndActionMove"))
        self.display.sync()
        self.seen.add(moment)

    def answer(self, source):
        how = self.variant.get("status", "accept")
        if how == "silence":
            return
        action = self.atom("XdndActionCopy")
        words = {"refuse": (0, 0, 0, 0), "nonsense": (0xffffffff, 0xfffffff0, 0xffffffff, 0x7ffffff0)}.get(
            how, (1, 0, 0, action))
        for _ in range(2000 if how == "flood" else 1):
            self.send(source, "XdndStatus", *words, own=0x1fffffff if how == "stranger" else None)

    def ask(self):
        files = self.atom("text/uri-list")
        prop = self.atom("DROPPED")
        requestor = self.window
        wanted = {
            "strange": [(self.atom(f"image/x-{number}"), prop) for number in range(50)],
            "often": [(files, prop)] * 500,
            "nowhere": [(files, prop)],
            "several": [(self.atom("MULTIPLE"), prop)],
            "without": [(files, X.NONE)],
            "all": [(self.atom("TARGETS"), prop), (self.atom("DELETE"), prop),
                    (self.atom("SAVE_TARGETS"), prop), (self.atom("TIMESTAMP"), prop), (0x7fffffff, prop)],
        }.get(self.variant.get("asks"), [])
        selection = self.atom("XdndSelection")
        for kind, where in wanted:
            if self.variant["asks"] == "nowhere":
                owner = self.display.get_selection_owner(selection)
                owner.send_event(event.SelectionRequest(
                    time=X.CurrentTime, owner=owner, requestor=0x1fffffff, selection=selection,
                    target=kind, property=where))
            else:
                requestor.convert_selection(selection, kind, where, X.CurrentTime)
