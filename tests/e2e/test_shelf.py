"""Files that are dragged onto the notch and out of it again, with real programs at the other end."""

import json
import pathlib
import socket
import subprocess
import threading
import time

import pytest
from Xlib import X
from Xlib.ext import xtest

from accessible import accessible_nodes, choose_tab, click_on, open_panel, resting_place
from desktop import HEIGHT, WIDTH, wait_until

EXPANDED = (566, 220)
COLLAPSED = (180, 32)
DRAGGING = pathlib.Path(__file__).with_name("dragging")


class Partner:
    """A program of the folder "dragging", in a window of 160 by 120."""

    def __init__(self, desktop, kind, x, y, *uris):
        self.desktop = desktop
        self.middle = (x + 80, y + 60)
        self.process = desktop.spawn(
            ["/usr/bin/python3", DRAGGING / f"{kind}.py", x, y, *uris], stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL, text=True)
        self.lines = []
        threading.Thread(target=self.read, daemon=True).start()
        self.wait_for("ready")
        desktop.move_pointer(*self.middle)
        wait_until(lambda: desktop.root.query_pointer().child, f"window of {kind} at its place")

    def read(self):
        for line in self.process.stdout:
            self.lines.append(line.strip())

    def wait_for(self, beginning):
        return wait_until(
            lambda: next((line for line in self.lines if line.startswith(beginning)), None),
            f"line {beginning!r}", lambda: str(self.lines))


@pytest.fixture
def shelf(environment):
    return pathlib.Path(environment["XDG_DATA_HOME"]) / "Orvelle/FileShelf"


@pytest.fixture
def files(tmp_path):
    folder = tmp_path / "documents"
    folder.mkdir()
    found = []
    for name in ("my report.txt", "b.txt", "c.txt"):
        file = folder / name
        file.write_text(f"content of {name}")
        found.append(file)
    return found


@pytest.fixture
def accessibility_bus(desktop):
    return desktop.spawn(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def listed(desktop):
    """The names in the grid, by the accessibility tree."""
    reader = pathlib.Path(__file__).with_name("accessibility.py")
    answer = subprocess.run(["/usr/bin/python3", reader, "orvelle"], env=desktop.environment,
                            capture_output=True, text=True, timeout=30)
    names = []

    def collect(node):
        if node["role"] == "list item":
            names.append(node["name"])
        for child in node["children"]:
            collect(child)

    for tree in json.loads(answer.stdout or "[]"):
        collect(tree)
    return names


def wait_moving(desktop, at, condition, what):
    """Waits with the pointer trembling around a place: a drag only goes on while it moves."""
    step = [0]

    def look():
        step[0] += 1
        desktop.move_pointer(at[0] + step[0] % 3, at[1] + step[0] // 3 % 3)
        return condition()

    return wait_until(look, what)


def lift(desktop, at):
    """Presses at a place and moves away until a drag has begun."""
    desktop.move_pointer(*at)
    desktop.press(1)
    for step in range(1, 41):
        desktop.move_pointer(at[0] + step, at[1] - step)
        time.sleep(0.005)  # a hand's pace: what comes at once is one movement to a toolkit


def carry(desktop, start, end, steps=40):
    for step in range(1, steps + 1):
        desktop.move_pointer(start[0] + (end[0] - start[0]) * step // steps,
                             start[1] + (end[1] - start[1]) * step // steps)
        time.sleep(0.005)  # likewise


def tremble(desktop, at, looked=lambda: None):
    """Stays around a place for as long as two programs need to come to terms."""
    for step in range(40):
        desktop.move_pointer(at[0] + step % 3, at[1])
        time.sleep(0.01)
        looked()


def drag_to_notch(desktop, program, at):
    lift(desktop, at)
    notch = (WIDTH // 2, 12)
    carry(desktop, (at[0] + 40, at[1] - 40), notch)
    wait_moving(desktop, notch, lambda: program.size() == EXPANDED, "panel opened by the drag")
    return notch


@pytest.fixture(params=["gtk", "qt"])
def kind(request):
    return request.param


@pytest.fixture(params=["managed", "bare"])
def stage(request, desktop):
    """A display with a window manager and one without."""
    if request.param == "managed":
        desktop.start_window_manager()
    return desktop


def test_a_file_dragged_onto_the_notch_lands_on_the_shelf(stage, start, kind, files, shelf,
                                                         accessibility_bus):
    program = start()
    source = Partner(stage, kind, 100, 500, *(file.as_uri() for file in files))
    drag_to_notch(stage, program, source.middle)
    stage.release(1)
    source.wait_for("ended")
    for file in files:
        wait_until(lambda: (shelf / file.name).exists(), file.name, program.describe)
        assert (shelf / file.name).read_text() == file.read_text()
    wait_until(lambda: listed(stage) == [file.name for file in files], "grid",
               lambda: f"{listed(stage)} {program.describe()}")
    assert program.size() == EXPANDED, "the panel stays open after a drop"
    listing = json.loads((shelf / ".shelf_metadata.json").read_text())
    assert [entry["urlPath"] for entry in listing] == [str(shelf / file.name) for file in files]


def test_a_drag_that_leaves_again_closes_the_panel(openbox, start, kind, files, shelf):
    program = start()
    source = Partner(openbox, kind, 100, 500, files[0].as_uri())
    notch = drag_to_notch(openbox, program, source.middle)
    carry(openbox, notch, (WIDTH // 2, 600))
    wait_moving(openbox, (WIDTH // 2, 600), lambda: program.size() == COLLAPSED, "closed panel")
    openbox.release(1)
    source.wait_for("failed")
    assert list(shelf.glob("*.txt")) == []


def test_the_whole_panel_takes_the_drop_once_it_has_grown(openbox, start, kind, files, shelf):
    program = start()
    source = Partner(openbox, kind, 100, 500, files[0].as_uri())
    notch = drag_to_notch(openbox, program, source.middle)
    inside = (WIDTH // 2 + 200, 150)
    carry(openbox, notch, inside)
    assert program.size() == EXPANDED
    openbox.release(1)
    wait_until((shelf / files[0].name).exists, "copy", program.describe)


def test_a_dragged_link_does_not_open_the_panel(openbox, start, kind, shelf):
    program = start()
    source = Partner(openbox, kind, 100, 500, "https://example.org/")
    lift(openbox, source.middle)
    notch = (WIDTH // 2, 12)
    carry(openbox, (220, 520), notch)

    def stays_closed():
        assert program.size() == COLLAPSED

    tremble(openbox, notch, stays_closed)
    openbox.release(1)
    source.wait_for("failed")


def test_a_file_manager_s_file_lands_on_the_shelf(openbox, start, files, shelf):
    program = start()
    openbox.spawn(["pcmanfm", files[0].parent], stdout=subprocess.DEVNULL,
                  stderr=subprocess.DEVNULL)
    window = wait_until(lambda: next(iter(shown(openbox, "Pcmanfm")), None), "file manager")
    x, y, width, height = openbox.geometry(window)

    def dragged():  # where its icons stand depends on its theme: found by trying
        for row in range(y + 90, y + height - 60, 24):
            for column in range(x + 200, x + width - 40, 60):
                lift(openbox, (column, row))
                carry(openbox, (column + 40, row - 40), (WIDTH // 2, 12), steps=15)
                sizes = set()
                tremble(openbox, (WIDTH // 2, 12), lambda: sizes.add(program.size()))
                openbox.release(1)
                if EXPANDED in sizes:
                    return True
        return False

    assert dragged(), program.describe()
    wait_until(lambda: list(shelf.glob("*.txt")), "copy", program.describe)


def shown(desktop, name):
    """Mapped windows of a class, framed by the window manager or not."""
    found = []

    def look(window):
        try:
            if window.get_wm_class() and name in window.get_wm_class() and \
                    window.get_attributes().map_state == X.IsViewable:
                found.append(window)
            for child in window.query_tree().children:
                look(child)
        except Exception:  # it has gone meanwhile
            pass

    look(desktop.root)
    return found


def is_grown(program):
    """Without a compositor the window takes part only where the animated shape is."""
    boxes = program.desktop.shape_boxes(program.window())
    return max(y + height for _, y, _, height in boxes) == EXPANDED[1]


def test_a_file_is_dragged_out_into_another_program(openbox, start, kind, files, shelf,
                                                   accessibility_bus):
    program = start()
    source = Partner(openbox, kind, 100, 500, files[0].as_uri())
    drag_to_notch(openbox, program, source.middle)
    openbox.release(1)
    source.wait_for("ended")
    wait_until(lambda: listed(openbox) == [files[0].name], "grid", program.describe)
    wait_until(lambda: is_grown(program), "panel at rest", program.describe)
    # The first cell: the panel's padding, the grid's and half a cell.
    x, y, _, _ = program.geometry()
    cell = (x + 12 + 8 + 34, y + 73 + 24)
    openbox.move_pointer(*cell)
    openbox.press(1)
    source.lines.clear()  # of its own drag
    carry(openbox, cell, source.middle)
    wait_moving(openbox, source.middle, lambda: "over" in source.lines, "drag out of the panel")
    openbox.release(1)
    dropped = source.wait_for("dropped")
    assert dropped == "dropped " + (shelf / files[0].name).as_uri()
    assert (shelf / files[0].name).exists(), "a copy is given, the shelf keeps its own"


def test_copied_files_are_pasted_onto_the_shelf(openbox, start, files, shelf, accessibility_bus):
    program = start()
    copier = openbox.spawn(["xclip", "-selection", "clipboard", "-t", "text/uri-list"],
                           stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL)
    # Old programs write the machine's name into the address.
    machine = "file://" + socket.gethostname()
    copied = [files[0].as_uri().replace("file://", machine), *(file.as_uri() for file in files[1:])]
    copier.stdin.write("".join(address + "\r\n" for address in copied).encode())
    copier.stdin.close()
    open_panel(program, "Files")
    program.wait_until_still()
    x, y, width, height = program.geometry()
    openbox.move_pointer(x + width // 2, y + height - 70)
    openbox.click()
    wait_until(lambda: any(node["name"] == "Files" and node["role"] == "list" and node["focused"]
                           for node in accessible_nodes(openbox)), "focus on the shelf",
               program.describe)
    openbox.keys("ctrl+v")
    wait_until(lambda: listed(openbox) == [file.name for file in files], "grid",
               lambda: f"{listed(openbox)} {program.describe()}")
    assert (shelf / files[0].name).read_text() == files[0].read_text()


@pytest.mark.parametrize("name", ["game.desktop", "game.txt"])
def test_an_entry_of_an_application_is_shown_in_its_folder_and_not_run(
        openbox, start, shelf, environment, tmp_path, accessibility_bus, name):
    harm = tmp_path / "harm"
    shelf.mkdir(parents=True)
    (shelf / name).write_text("[Desktop Entry]\nType=Application\nName=Game\n"
                              f"Exec=touch {harm}\nTerminal=false\n")
    (shelf / name).chmod(0o700)
    (shelf / ".shelf_metadata.json").write_text(json.dumps(
        [{"urlPath": str(shelf / name), "addedAt": 0, "expiresAt": 4e9}]))
    opener = tmp_path / "xdg-open"
    opened = tmp_path / "opened"
    opener.write_text(f'#!/bin/sh\necho "$1" > {opened}.part\nmv {opened}.part {opened}\n')
    opener.chmod(0o755)
    environment["PATH"] = f"{tmp_path}:{environment['PATH']}"
    program = start()
    open_panel(program, "Files")
    openbox.move_pointer(*resting_place(openbox, name, "list item"))
    openbox.click(times=2)
    wait_until(lambda: opened.exists() or harm.exists(), "something opened", program.describe)
    assert not harm.exists()
    assert opened.read_text().strip() == shelf.as_uri(), "no file manager is there to select it"


def test_a_source_that_never_answers_stops_nothing(openbox, start, shelf):
    program = start()
    source = Partner(openbox, "silent", 100, 500)
    openbox.move_pointer(*source.middle)
    openbox.press(1)
    notch = (WIDTH // 2, 12)
    carry(openbox, source.middle, notch)
    openbox.release(1)
    openbox.move_pointer(WIDTH // 2, HEIGHT - 100)
    # The program goes on at once: the pointer opens its bar.
    began = time.monotonic()
    program.enter()
    wait_until(lambda: program.size() != COLLAPSED, "hover bar", program.describe)
    assert time.monotonic() - began < 2
    assert program.size() != EXPANDED


def test_a_flick_too_quick_for_a_drag_leaves_nothing_behind(desktop, start, accessibility_bus):
    program = start("--demo")
    open_panel(program, "Files")
    x, y = resting_place(desktop, "Minutes.odt", "list item")
    for _ in range(10):
        # In one go, as they reach a program that is busy for a moment.
        xtest.fake_input(desktop.display, X.MotionNotify, x=x, y=y)
        xtest.fake_input(desktop.display, X.ButtonPress, 1)
        xtest.fake_input(desktop.display, X.MotionNotify, x=x + 60, y=y + 30)
        xtest.fake_input(desktop.display, X.ButtonRelease, 1)
        desktop.display.sync()
        wait_until(lambda: [desktop.geometry(window)[2:]
                            for window in desktop.windows_of_class("orvelle")
                            if desktop.is_mapped(window)] == [EXPANDED],
                   "panel without a dragged picture", program.describe)


@pytest.fixture
def filled(shelf):
    """A shelf with two files."""
    shelf.mkdir(parents=True)
    for name in ("a.txt", "b.txt"):
        (shelf / name).write_text(name)
    (shelf / ".shelf_metadata.json").write_text(json.dumps(
        [{"urlPath": str(shelf / name), "addedAt": 0, "expiresAt": 4e9}
         for name in ("a.txt", "b.txt")]))
    return shelf


def remove_first(desktop, program):
    """From the open shelf, by the keyboard."""
    desktop.move_pointer(*resting_place(desktop, "a.txt", "list item"))
    desktop.click()
    wait_until(lambda: any(node["name"] == "a.txt" and node["focused"]
                           for node in accessible_nodes(desktop)), "focus on the file",
               program.describe)
    desktop.keys("Delete")
    wait_until(lambda: listed(desktop) == ["b.txt"], "one file", program.describe)


def test_a_removed_file_comes_back_or_goes_with_the_offer(openbox, start, filled,
                                                         accessibility_bus):
    program = start()
    open_panel(program, "Files")
    wait_until(lambda: listed(openbox) == ["a.txt", "b.txt"], "both files", program.describe)
    listing = (filled / ".shelf_metadata.json").read_bytes()
    remove_first(openbox, program)
    click_on(program, "push button", "Undo")
    wait_until(lambda: sorted(listed(openbox)) == ["a.txt", "b.txt"], "both files",
               program.describe)
    assert (filled / "a.txt").read_text() == "a.txt"
    assert (filled / ".shelf_metadata.json").read_bytes() == listing
    remove_first(openbox, program)
    began = time.monotonic()
    wait_until(lambda: not (filled / "a.txt").exists(), "the end of the offer", program.describe)
    assert time.monotonic() - began > 4
    assert (filled / "b.txt").exists()


@pytest.mark.parametrize("end", ["tab", "program"])
def test_a_removed_file_goes_at_once_with_its_tab_and_the_program(openbox, start, filled, end,
                                                                 accessibility_bus):
    program = start()
    open_panel(program, "Files")
    remove_first(openbox, program)
    assert (filled / "a.txt").exists()
    began = time.monotonic()
    if end == "tab":
        choose_tab(program, "Clock")
    else:
        program.stop()
    wait_until(lambda: not (filled / "a.txt").exists(), "the file's end", program.describe)
    assert time.monotonic() - began < 5, "sooner than the offer's time"
    assert (filled / "b.txt").exists()
