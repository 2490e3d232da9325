"""Drags that break the rules, in both directions. After each the panel answers, takes a file that is dropped
on it, and has read and copied nothing that nobody dropped."""

import contextlib
import ctypes
import json
import os
import pathlib
import select
import shutil
import socket
import struct
import threading
import time

import pytest
from Xlib import X, display as xdisplay, error
from Xlib.protocol import event

from conftest import home, session_bus
from desktop import WIDTH, Desktop, Program, wait_until
from dragging.hostile import Source
from dragging.target import Target

EXPANDED = (566, 220)
COLLAPSED = (180, 32)
ROOM = 15  # files on a shelf of 20; with more it is emptied before the next drag
LONGEST_SILENCE = 1.0  # seconds; far more than the program ever takes, also on a busy machine
GROWTH = 100  # megabytes of memory, far below what is offered in all


def file_list(*uris, **rules):
    return {"uris": ["file://{folder}/" + uri for uri in uris], **rules}


def foreign(*uris, **rules):
    return {"uris": list(uris), **rules}


ANY = file_list("wanted.txt")  # what a source that is to get nowhere offers
PATIENT = {**ANY, "last": "nothing"}

# Each with the names of what is on the shelf afterwards.
SOURCES = {
    # The order of the messages
    "drop without enter": ({**ANY, "enters": False}, []),
    "drop before enter": ({**ANY, "first": "drop", "last": "nothing"}, []),
    "leave before enter": ({**ANY, "first": "leave"}, ["wanted.txt"]),
    "status and no drag": ({**PATIENT, "enters": False, "first": "status"}, []),
    "finished and no drag": ({**PATIENT, "enters": False, "first": "finished"}, []),
    "drop after leave": ({**ANY, "last": "leave and drop"}, []),
    "drop twice": ({**ANY, "last": "drop twice"}, ["wanted.txt"]),
    "enter twice": ({**ANY, "last": "enter twice"}, ["wanted.txt"]),
    "drop at once": ({**ANY, "last": "drop at once"}, ["wanted.txt"]),
    "drop without a move": ({**ANY, "moves": 0, "last": "drop at once"}, ["wanted.txt"]),
    "enter and no more": ({**PATIENT, "moves": 0}, []),
    "moves and no more": (PATIENT, []),
    "leave": ({**ANY, "last": "leave"}, []),
    "flood of moves": ({**PATIENT, "moves": 5_000}, []),
    "flood of moves, refused": ({**PATIENT, "moves": 2_000, "answer": "refuse"}, []),
    # What the messages say
    "version 0": ({**ANY, "version": 0}, None),
    "version 2": ({**ANY, "version": 2}, None),
    "version 6": ({**ANY, "version": 6}, []),
    "version 99": ({**ANY, "version": 99}, []),
    "version 255": ({**ANY, "version": 255}, []),
    "messages of bytes": ({**ANY, "format": 8}, []),
    "messages of short numbers": ({**ANY, "format": 16}, []),
    "action that is none": ({**ANY, "action": 0}, ["wanted.txt"]),
    "action that is no atom": ({**ANY, "action": 0xfffffff0}, ["wanted.txt"]),
    "action of another world": ({**ANY, "action": "XdndActionErase"}, ["wanted.txt"]),
    "place beyond the screen": ({**ANY, "place": (0x7fff, 0xffff)}, None),
    "place before the screen": ({**ANY, "place": (0xffff, 0xfff0)}, None),
    "source that is nothing": ({**ANY, "source": "nothing"}, []),
    "source that is the root": ({**ANY, "source": "root", "last": "nothing"}, []),
    "source that never was": ({**ANY, "source": "dead"}, None),
    # What is offered
    "no type": ({**ANY, "types": "none"}, []),
    "a list of types": ({**ANY, "types": "list"}, ["wanted.txt"]),
    "a thousand types": ({**ANY, "types": "many"}, None),
    "types that are bytes": ({**ANY, "types": "bytes"}, []),
    "types that are missing": ({**ANY, "types": "missing"}, []),
    "nobody has the selection": ({**ANY, "owner": "nobody"}, []),
    # When the source ends
    "dies once entered": ({**ANY, "dies": "entered"}, []),
    "dies once moved": ({**ANY, "dies": "moved"}, []),
    "dies when asked": ({**ANY, "dies": "asked"}, []),
    "dies once dropped": ({**ANY, "dies": "dropped"}, None),
    "dies in a transfer": ({**ANY, "answer": "stall", "dies": "dropped"}, []),
    # How it answers
    "refuses": ({**ANY, "answer": "refuse"}, []),
    "never answers": ({**ANY, "answer": "silence"}, []),
    "never begins its pieces": ({**ANY, "answer": "stall"}, []),
    "never ends its pieces": ({"bytes": "file:///x\r\n" * 6000, "answer": "endless"}, []),
    "trickles": ({**ANY, "answer": "trickle", "repeat": 100, "last": "nothing"}, []),
    "pieces within pieces": ({**ANY, "answer": "nested"}, []),
    "pieces of nothing": ({"uris": [], "answer": "pieces"}, []),
    "pieces": ({**ANY, "answer": "pieces"}, ["wanted.txt"]),
    "answers elsewhere": ({**ANY, "answer": "elsewhere"}, []),
    "answers with nothing": ({**ANY, "answer": "nothing there"}, []),
    "answers twice": ({**ANY, "answer": "twice"}, ["wanted.txt"]),
    "answers unasked": ({**ANY, "answer": "unasked", "enters": False}, []),
    "answers with numbers": ({**ANY, "kind": ["INTEGER", 32]}, []),
    "answers with short numbers": ({**ANY, "kind": ["text/uri-list", 16]}, []),
    "answers with a window": ({**ANY, "kind": ["WINDOW", 32]}, []),
    # What the addresses are
    "nothing": ({"uris": []}, []),
    "no text": ({"bytes": "\xff\xfe\x00\x01" * 999}, []),
    "an address that never ends": ({"bytes": "file:///" + "a" * 3_000_000}, []),
    "32 megabytes": (file_list("wanted.txt", repeat=500_000), []),
    "100,000 addresses of one file": (file_list("wanted.txt", repeat=100_000), None),
    "100,000 addresses of nothing": (foreign("file:///none/#", repeat=100_000), []),
    "100,000 addresses of a pipe": (file_list("pipe", repeat=100_000), []),
    "a pipe": (file_list("pipe"), []),
    "a socket": (file_list("socket"), []),
    "a device": (foreign("file:///dev/full", "file:///dev/tty"), []),
    "a link to a device": (file_list("device link"), []),
    "a link to itself": (file_list("loop"), []),
    "a link to nowhere": (file_list("dangling"), []),
    "a link to what the kernel makes up": (file_list("proc link"), []),
    "what the kernel makes up": (
        foreign("file:///proc/self/environ", "file:///proc/kcore", "file:///proc/self/mem",
                "file:///proc/kmsg", "file:///sys/kernel/notes"), []),
    "folders that the kernel makes up": (foreign("file:///proc/self", "file:///sys/kernel"), []),
    "the whole disk": (foreign("file:///"), []),
    "the whole disk, by a link of the kernel's": (foreign("file:///proc/self/root"), []),
    "the folder that holds the shelf": (foreign("file://{home}"), []),
    "the shelf": (foreign("file://{shelf}"), []),
    "the shelf's own list": (foreign("file://{shelf}/.shelf_metadata.json"), []),
    "another machine's file": (foreign("file://elsewhere.invalid{folder}/wanted.txt",
                                       "file://127.0.0.1{folder}/wanted.txt"), []),
    "what is on the network": (foreign("http://127.0.0.1:{port}/a", "smb://127.0.0.1:{port}/a",
                                       "ftp://127.0.0.1:{port}/a", "file://127.0.0.1:{port}/a"), []),
    "what is no address": (foreign("{folder}/wanted.txt", "wanted.txt", "javascript:alert(1)",
                                   "file:wanted.txt", "file:///%zz", "file:///%00"), []),
    "one good among bad": (file_list("pipe", "loop", "wanted.txt", "socket", "device link"),
                           ["wanted.txt"]),
}

TARGETS = {
    "no target": {"aware": "no"},
    "aware in words": {"aware": "text"},
    "version 0": {"aware": 0},
    "version 2": {"aware": 2},
    "version 99": {"aware": 99},
    "a proxy that is itself": {"proxy": "self"},
    "a proxy that is the root": {"proxy": "root"},
    "a proxy that is nowhere": {"proxy": "nowhere"},
    "never says whether": {"status": "silence"},
    "refuses": {"status": "refuse"},
    "answers nonsense": {"status": "nonsense"},
    "answers in a flood": {"status": "flood"},
    "answers in another's name": {"status": "stranger"},
    "never finishes": {"finished": "never"},
    "finishes twice": {"finished": "twice"},
    "finishes before the drop": {"finished": "early"},
    "asks for strange types": {"asks": "strange"},
    "asks 500 times": {"asks": "often"},
    "asks for several and names none": {"asks": "several"},
    "asks without a place": {"asks": "without"},
    "asks for a window that is none": {"asks": "nowhere"},
    "asks for all there is": {"asks": "all"},
    "goes once entered": {"dies": "entered"},
    "goes once moved": {"dies": "moved"},
    "goes once dropped": {"dies": "dropped"},
}


class Opens:
    """Tells of files that are opened or read, by the kernel's word."""

    OPEN_OR_READ = 0x20 | 0x01

    def __init__(self, *paths):
        libc = ctypes.CDLL(None, use_errno=True)
        self.descriptor = libc.inotify_init1(os.O_NONBLOCK | os.O_CLOEXEC)
        for path in paths:
            assert libc.inotify_add_watch(self.descriptor, os.fsencode(path), self.OPEN_OR_READ) > 0

    def taken(self):
        """The names since the last question."""
        names = set()
        while select.select([self.descriptor], [], [], 0)[0]:
            found = os.read(self.descriptor, 65536)
            while found:
                _, _, _, length = struct.unpack_from("iIII", found)
                names.add(found[16:16 + length].rstrip(b"\0").decode() or "a folder or device")
                found = found[16 + length:]
        return names


class Heartbeat(threading.Thread):
    """Asks the panel's main thread again and again whether it is there, as a window manager does."""

    def __init__(self, display_name, window):
        super().__init__(daemon=True)
        self.display = xdisplay.Display(display_name)
        self.display.set_error_handler(lambda *_: None)
        self.window = self.display.create_resource_object("window", window)
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.StructureNotifyMask)
        self.longest = 0
        self.count = 0
        self.answered = 0
        self.asked = None  # when the question was asked that is not answered yet
        self.ended = False

    def run(self):
        ping, protocols = map(self.display.intern_atom, ("_NET_WM_PING", "WM_PROTOCOLS"))
        while not self.ended:
            self.count += 1
            self.asked = time.monotonic()
            self.window.send_event(event.ClientMessage(
                window=self.window, client_type=protocols,
                data=(32, [ping, self.count, self.window.id, 0, 0])))
            self.display.flush()
            while not self.ended and not self.is_answered(ping):
                pass
            self.longest = max(self.longest, time.monotonic() - self.asked)
            select.select([], [], [], 0.01)  # the pace of asking

    def is_answered(self, ping):
        if not self.display.pending_events():
            select.select([self.display.fileno()], [], [], 0.05)
        while self.display.pending_events():
            happened = self.display.next_event()
            if happened.type == X.ClientMessage and list(happened.data[1][:2]) == [ping, self.count]:
                self.answered += 1
                return True
        return False

    def slowest(self):
        """The longest wait since the last question, also one that goes on."""
        wait_until(lambda: self.answered, "answer of the panel's")
        longest = max(self.longest, time.monotonic() - self.asked)
        self.longest = self.answered = 0
        return longest

    def stop(self):
        self.ended = True
        self.join()
        self.display.close()


class Stage:
    """One program for many drags; it begins anew when its shelf is full."""

    def __init__(self, folder, desktop, binary):
        self.folder = folder
        self.desktop = desktop
        self.binary = binary
        self.shelf = folder / "data/Orvelle/FileShelf"
        self.program = None
        self.drops = 0
        self.well_behaved = xdisplay.Display(desktop.name)
        self.make_traps()

    def make_traps(self):
        self.traps = self.folder / "traps"
        self.traps.mkdir()
        os.mkfifo(self.traps / "pipe")
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.bind(str(self.traps / "socket"))
        self.server = socket.create_server(("127.0.0.1", 0))
        self.server.setblocking(False)
        for name, target in (("device link", "/dev/full"), ("loop", "loop"), ("dangling", "none"),
                             ("proc link", "/proc/self/environ")):
            (self.traps / name).symlink_to(target)
        (self.traps / "wanted.txt").write_text("wanted")
        self.opens = Opens(self.traps, "/dev/full")

    def start(self):
        with contextlib.suppress(FileNotFoundError):
            shutil.rmtree(self.shelf)
        self.program = Program(self.desktop, [self.binary])
        wait_until(self.program.is_shown, "panel", self.program.describe)
        self.drops = 0
        self.drop_one()
        self.memory = self.program.megabytes("VmRSS")
        self.heartbeat = Heartbeat(self.desktop.name, self.program.window().id)
        self.heartbeat.start()

    def stop(self):
        if not self.program:
            return
        self.heartbeat.stop()
        self.program.stop()
        self.program = None

    def ready(self):
        listing = self.shelf / ".shelf_metadata.json"
        if listing.exists() and len(json.loads(listing.read_text())) > ROOM:
            self.stop()
        if not self.program:
            self.start()
        self.heartbeat.slowest()
        self.opens.taken()
        return self

    def drag(self, variant, display=None):
        """By a program of its own, which ends after it; its number may then be given to another."""
        window = self.program.window()
        x, y, width, _ = self.desktop.geometry(window)
        source = display or xdisplay.Display(self.desktop.name)
        Source(source, window.id, x + width // 2, y + 10, variant).run()
        if not display:
            source.close()  # and so the server ends its windows

    def filled(self, variant):
        """The variant with its addresses' places."""
        places = {"folder": self.traps, "shelf": self.shelf, "home": self.folder,
                  "port": self.server.getsockname()[1]}
        uris = [uri.format(**places).replace(" ", "%20") for uri in variant.get("uris", [])]
        return {**variant, **({"uris": uris} if "uris" in variant else {})}

    def drop_one(self):
        """Drops a file as programs do, and waits until the shelf has it."""
        self.drops += 1
        file = self.folder / f"good {self.drops}.txt"
        file.write_text(file.name)
        self.drag({"uris": [file.as_uri()], "patience": 5, "longest": 10},
                  self.well_behaved)
        copy = self.shelf / file.name
        wait_until(copy.exists, f"{file.name} on the shelf", self.program.describe)
        assert copy.read_text() == file.name
        return copy

    def on_the_shelf(self):
        """Names of what came there that nobody of good will has dropped."""
        return sorted(path.name for path in self.shelf.iterdir() if path.name[0] != "." and
                      path.name not in {f"good {number}.txt" for number in range(1, self.drops + 1)})

    def remove(self, name):
        path = self.shelf / name
        if path.is_dir():
            shutil.rmtree(path)
        else:
            path.unlink()

    def close(self):
        self.program.leave()
        self.desktop.click()
        self.program.wait_for_size(COLLAPSED)

    def check(self):
        slowest = self.heartbeat.slowest()
        assert slowest < LONGEST_SILENCE, f"the panel was silent for {slowest} s"
        with pytest.raises(BlockingIOError):
            self.server.accept()
        grown = self.program.megabytes("VmRSS") - self.memory
        assert grown < GROWTH, f"it holds {grown} MB more"
        self.close()
        self.program.is_shown()


@pytest.fixture(scope="module")
def running(tmp_path_factory):
    folder = tmp_path_factory.mktemp("stage")
    binary = pathlib.Path(os.environ.get(
        "ORVELLE_BINARY", pathlib.Path(__file__).resolve().parents[2] / "build/dev/orvelle"))
    with session_bus(folder) as bus:
        environment = home(folder, bus)
        # The sanitizer's allocator else keeps a quarter of a gigabyte of what was freed.
        environment["ASAN_OPTIONS"] = \
            f"{environment.get('ASAN_OPTIONS', '')}:quarantine_size_mb=8".lstrip(":")
        settings = folder / "config/orvelle/defaults.json"
        settings.parent.mkdir()
        settings.write_text('{"hasCompletedOnboarding": true}')
        with Desktop(environment) as desktop:
            desktop.start_window_manager()
            found = Stage(folder, desktop, binary)
            yield found
            found.stop()


@pytest.fixture
def stage(running):
    yield running.ready()


@pytest.mark.parametrize("name", SOURCES)
def test_a_hostile_source(stage, name):
    variant, expected = SOURCES[name]
    stage.drag(stage.filled(variant))
    last = stage.drop_one()  # copies come one after the other: what was taken before it is there
    found = stage.on_the_shelf()
    for name in found:
        stage.remove(name)
    stage.check()
    assert found in ([[], ["wanted.txt"]] if expected is None else [expected])
    assert stage.opens.taken() <= ({"wanted.txt"} if found else set())
    assert last.exists()


@pytest.mark.parametrize("name", TARGETS)
def test_a_hostile_target(stage, name):
    program, desktop = stage.program, stage.desktop
    copy = stage.drop_one()
    wait_until(lambda: max((y + height for _, y, _, height in
                            desktop.shape_boxes(program.window())), default=0) == EXPANDED[1],
               "panel at rest", program.describe)
    target = Target(desktop.name, 100, 500, TARGETS[name])
    target.start()
    try:
        # The first cell: the panel's padding, the grid's and half a cell.
        x, y, _, _ = program.geometry()
        cell = (x + 12 + 8 + 34, y + 73 + 24)
        desktop.move_pointer(*cell)
        desktop.press(1)
        for step in range(1, 21):
            desktop.move_pointer(cell[0] + (target.middle[0] - cell[0]) * step // 20,
                                 cell[1] + (target.middle[1] - cell[1]) * step // 20)
            time.sleep(0.005)  # a hand's pace
        for step in range(20):
            desktop.move_pointer(target.middle[0] + step % 3, target.middle[1])
            time.sleep(0.005)  # likewise
        assert "entered" in target.seen or TARGETS[name].keys() & {"aware", "proxy"}
        desktop.release(1)
    finally:
        target.stop()
    assert copy.exists(), "a copy is given, the shelf keeps its own"
    stage.drop_one()
    stage.check()
