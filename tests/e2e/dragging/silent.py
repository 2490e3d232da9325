"""silent.py X Y: a window at X, Y that offers a list of files to whatever the pointer drags over,
by bare messages of the protocol, and never answers when it is asked for them."""

import sys

from Xlib import X, display as xdisplay
from Xlib.protocol import event

display = xdisplay.Display()
root = display.screen().root
window = root.create_window(int(sys.argv[1]), int(sys.argv[2]), 160, 120, 0, X.CopyFromParent,
                            event_mask=X.ButtonPressMask | X.PointerMotionMask | X.ButtonReleaseMask,
                            override_redirect=True)
window.map()
window.set_selection_owner(display.intern_atom("XdndSelection"), X.CurrentTime)
display.sync()
print("ready", flush=True)
files = display.intern_atom("text/uri-list")
over = None


def send(target, name, *data):
    data = [window.id, *data] + [0] * (4 - len(data))
    target.send_event(event.ClientMessage(window=target, client_type=display.intern_atom(name),
                                          data=(32, data)))


def target_under_pointer():
    at = root.query_pointer()
    found = at.child
    return found if found and found.id != window.id else None


while True:
    happened = display.next_event()
    if happened.type == X.MotionNotify and happened.state & X.Button1Mask:
        target = target_under_pointer()
        if over and target != over:
            send(over, "XdndLeave")
        if target and target != over:
            send(target, "XdndEnter", 5 << 24, files)
        over = target
        if over:
            send(over, "XdndPosition", 0, happened.root_x << 16 | happened.root_y, happened.time,
                 display.intern_atom("XdndActionCopy"))
    elif happened.type == X.ButtonRelease and over:
        send(over, "XdndDrop", 0, happened.time)
        over = None
    display.flush()
