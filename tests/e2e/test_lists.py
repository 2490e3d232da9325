"""The lists and the focus timer as a user meets them: typed, copied, clicked, and what the desktop
and the disk show of it."""

import json
import pathlib
import re
import subprocess
import time
import uuid

import pytest
from Xlib import X

from accessible import accessible_nodes, choose_tab, click_on, names, open_panel, point_at
from desktop import stays, wait_until

REFERENCE_DATE = 978307200  # 2001-01-01 in seconds since 1970
STROKE_PAUSE = 0.25  # s; later turns of the wheel are another stroke
UUID = re.compile(r"[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}")


@pytest.fixture(autouse=True)
def accessibility_bus(desktop):
    return desktop.spawn(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def type_entry(program, prompt, text):
    desktop = program.desktop
    wait_until(lambda: any(node["name"] == prompt and node["focused"]
                           for node in accessible_nodes(desktop)),
               f"focus in {prompt!r}",
               lambda: f"There are {accessible_nodes(desktop)}. {program.describe()}")
    desktop.type(text)
    desktop.keys("Return")


def list_file(environment, name):
    return pathlib.Path(environment["XDG_DATA_HOME"]) / "Orvelle" / name


def wait_for_entries(path, count):
    def read():
        return path.exists() and len(json.loads(path.read_text())) == count
    wait_until(read, f"{count} entries in {path.name}")
    return path.read_text()


def check_bytes(text, written, started):
    """`written` gives the one text that the file may hold, once its chance values are known."""
    values = json.loads(text, parse_float=str)
    for value in values:
        assert UUID.fullmatch(value["id"])
        assert started - 1 <= float(value["createdAt"]) + REFERENCE_DATE <= time.time() + 1
    assert text == "[" + ",".join(written(value) for value in values) + "]"


def test_typed_tasks_are_on_the_disk_byte_for_byte(start, openbox, environment):
    other = openbox.open_window(100, 500, 300, 200)
    openbox.focus_window(other)
    started = time.time()
    program = start(todoEnabled=True)
    open_panel(program, "Todo")
    type_entry(program, "Add a task...", "  buy milk & \"bread\"")
    type_entry(program, "Add a task...", "call home")
    path = list_file(environment, "todo_items.json")
    text = wait_for_entries(path, 2)
    assert [item["title"] for item in json.loads(text)] == ["buy milk & \"bread\"", "call home"]
    check_bytes(text, lambda item: '{"createdAt":%s,"id":"%s","isCompleted":false,"title":%s}'
                % (item["createdAt"], item["id"], json.dumps(item["title"])), started)
    assert path.stat().st_mode & 0o777 == 0o600


def test_typed_notes_are_on_the_disk_byte_for_byte(start, openbox, environment):
    started = time.time()
    program = start(notesEnabled=True)
    open_panel(program, "Notes")
    type_entry(program, "Add a note...", "first")
    type_entry(program, "Add a note...", "second")
    text = wait_for_entries(list_file(environment, "note_items.json"), 2)
    assert [item["text"] for item in json.loads(text)] == ["second", "first"]
    check_bytes(text, lambda item: '{"createdAt":%s,"id":"%s","text":"%s"}'
                % (item["createdAt"], item["id"], item["text"]), started)


def test_a_task_survives_the_end_of_the_program(start, openbox, environment):
    program = start(todoEnabled=True)
    open_panel(program, "Todo")
    type_entry(program, "Add a task...", "stay")
    wait_until(lambda: "stay" in names(openbox, "list item"), "the row", program.describe)
    program.stop()
    items = json.loads(list_file(environment, "todo_items.json").read_text())
    assert [item["title"] for item in items] == ["stay"]


TITLES = [f"task {number:02}" for number in range(30)]


def write_tasks(environment):
    path = list_file(environment, "todo_items.json")
    path.parent.mkdir(mode=0o700, parents=True)
    path.write_text(json.dumps([
        {"createdAt": 0, "id": str(uuid.uuid4()).upper(), "isCompleted": False, "title": title}
        for title in TITLES]))


def row_top(desktop, title):
    """Where the row stands on the display; None while it is not made."""
    return next((node["box"][1] for node in accessible_nodes(desktop)
                 if node["role"] == "list item" and node["name"] == title), None)


def turn_and_rest(program, turn):
    """One turn of the wheel by itself: nothing moves any more, and the next is another stroke."""
    turn()
    assert stays(program.is_shown, STROKE_PAUSE)
    program.wait_until_still()


def test_a_list_scrolls_both_ways_and_closes_the_panel_only_from_its_end(start, openbox,
                                                                         environment):
    write_tasks(environment)
    program = start(todoEnabled=True)
    open_panel(program, "Todo")
    point_at(program, "list item", TITLES[1])
    program.wait_until_still()
    top = row_top(openbox, TITLES[0])

    turn_and_rest(program, openbox.wheel_down)
    turn_and_rest(program, openbox.wheel_down)
    lower = row_top(openbox, TITLES[2])
    assert lower < top + 40, "the list has moved"

    turn_and_rest(program, openbox.wheel_up)
    assert program.size() == (566, 220)
    assert row_top(openbox, TITLES[2]) > lower

    # What is more than the list needs belongs to its stroke.
    turn_and_rest(program, lambda: openbox.wheel_up(6))
    assert program.size() == (566, 220)
    assert row_top(openbox, TITLES[0]) == top

    openbox.wheel_up()
    wait_until(lambda: program.size() != (566, 220), "a closed panel", program.describe)


def copy(desktop, tool, text):
    commands = {"xclip": ["xclip", "-selection", "clipboard"],
                "xsel": ["xsel", "--clipboard", "--input", "--nodetach"]}
    process = desktop.spawn(commands[tool], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL)
    process.stdin.write(text.encode())
    process.stdin.close()


def clipboard(desktop):
    return subprocess.run(["xclip", "-selection", "clipboard", "-o"], env=desktop.environment,
                          capture_output=True, timeout=20).stdout.decode()


def test_copies_appear_and_a_click_copies_back(start, openbox):
    program = start(clipboardEnabled=True)
    open_panel(program, "Clipboard")

    def rows():
        items = [node for node in accessible_nodes(openbox) if node["role"] == "list item"]
        return [node["name"] for node in sorted(items, key=lambda node: node["middle"][1])]

    copy(openbox, "xclip", "from xclip")
    wait_until(lambda: rows() == ["from xclip"], "the first copy",
               lambda: f"{rows()} {program.describe()}")
    copy(openbox, "xsel", "from xsel ü")
    wait_until(lambda: rows() == ["from xsel ü", "from xclip"], "the second copy",
               lambda: f"{rows()} {program.describe()}")
    click_on(program, "list item", "from xclip")
    wait_until(lambda: clipboard(openbox) == "from xclip", "the text on the clipboard")
    wait_until(lambda: rows() == ["from xclip", "from xsel ü"], "the row at the top")


def start_timer(program):
    open_panel(program, "Focus")
    click_on(program, "push button", "Start")


def test_the_desktop_is_told_when_a_session_is_complete(start, openbox, environment, tmp_path):
    log = tmp_path / "notifications.log"
    openbox.spawn(["/usr/bin/python3", "-m", "dbusmock", "--logfile", log, "--template",
                   "notification_daemon"], stdout=subprocess.DEVNULL)
    wait_until(log.exists, "the notification service")
    program = start(pomodoroEnabled=True, pomodoroWorkMinutes=0.02)
    start_timer(program)
    wait_until(lambda: "Work Session Complete" in log.read_text(), "the notice",
               program.describe)
    assert "Time for a break!" in log.read_text()
    assert log.read_text().count("Notify") == 1


def test_the_end_of_a_session_is_heard(start, openbox, environment, tmp_path):
    socket = tmp_path / "pulse"
    openbox.spawn(["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                   "--load=module-null-sink",
                   f"--load=module-native-protocol-unix socket={socket} auth-anonymous=1"],
                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_until(socket.exists, "the sound server")
    environment["PULSE_SERVER"] = f"unix:{socket}"
    environment["CANBERRA_DRIVER"] = "pulse"
    heard = tmp_path / "heard"
    with heard.open("wb") as output:
        openbox.spawn(["pactl", "subscribe"], stdout=output, stderr=subprocess.STDOUT)
    program = start(pomodoroEnabled=True, pomodoroWorkMinutes=0.02)
    start_timer(program)
    wait_until(lambda: "'new' on sink-input" in heard.read_text(), "a sound",
               lambda: heard.read_text() + program.describe())


def test_an_owner_that_never_answers_holds_nothing_up(start, openbox, environment):
    program = start(todoEnabled=True, clipboardEnabled=True)
    open_panel(program, "Todo")
    type_entry(program, "Add a task...", "before")
    path = list_file(environment, "todo_items.json")
    wait_for_entries(path, 1)
    silent = openbox.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
    silent.set_selection_owner(openbox.atom("CLIPBOARD"), X.CurrentTime)
    openbox.display.sync()
    openbox.type("after")
    openbox.keys("Return")
    # The toolkit itself would wait for such an owner for five seconds.
    wait_until(lambda: len(json.loads(path.read_text())) == 2, "the task", program.describe,
               bound=4)
    openbox.keys("ctrl+v")
    openbox.type("!")
    openbox.keys("Return")
    wait_until(lambda: len(json.loads(path.read_text())) == 3, "the last task", program.describe,
               bound=4)


def test_a_clipboard_of_256_megabytes_holds_nothing_up_and_is_not_kept(start, openbox,
                                                                       environment):
    program = start(todoEnabled=True, clipboardEnabled=True)
    open_panel(program, "Clipboard")
    copy(openbox, "xclip", "small")
    wait_until(lambda: "small" in names(openbox, "list item"), "the first copy", program.describe)
    choose_tab(program, "Todo")
    before = program.megabytes("VmHWM")
    small = openbox.display.get_selection_owner(openbox.atom("CLIPBOARD"))
    copy(openbox, "xclip", "x" * (256 << 20))
    wait_until(lambda: openbox.display.get_selection_owner(openbox.atom("CLIPBOARD")) != small,
               "the large copy")
    for number in range(1, 6):
        type_entry(program, "Add a task...", f"task {number}")
        wait_for_entries(list_file(environment, "todo_items.json"), number)
    choose_tab(program, "Clipboard")
    copy(openbox, "xsel", "next")
    wait_until(lambda: sorted(names(openbox, "list item")) == ["next", "small"],
               "the copy after it", program.describe)
    assert program.megabytes("VmHWM") < before + 256 / 2


def test_a_deleted_task_comes_back_byte_for_byte(start, openbox, environment):
    program = start(todoEnabled=True)
    open_panel(program, "Todo")
    for number, title in enumerate(("one", "two", "three"), 1):
        type_entry(program, "Add a task...", title)
        before = wait_for_entries(list_file(environment, "todo_items.json"), number)
    openbox.keys("Down", "Down", "Delete")
    path = list_file(environment, "todo_items.json")
    after = wait_for_entries(path, 2)
    assert [item["title"] for item in json.loads(after)] == ["one", "three"]
    wait_until(lambda: "Task deleted" in [node["name"] for node in accessible_nodes(openbox)],
               "the offer", program.describe)
    click_on(program, "push button", "Undo")
    assert wait_for_entries(path, 3) == before
    openbox.keys("Up", "Delete")
    assert [item["title"] for item in json.loads(wait_for_entries(path, 2))] == ["one", "three"]
    openbox.keys("ctrl+z")
    assert wait_for_entries(path, 3) == before
