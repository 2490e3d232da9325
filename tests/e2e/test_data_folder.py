"""The folder of the user's lists, when it is shared, full, forbidden or left half-written."""

import json
import pathlib
import resource
import subprocess

import pytest

from accessible import accessible_nodes, names, open_panel
from desktop import wait_until
from test_lists import list_file, type_entry

TOO_SMALL = 40  # bytes; no list of a task fits


@pytest.fixture(autouse=True)
def accessibility_bus(desktop):
    return desktop.spawn(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


@pytest.fixture
def elsewhere(environment, tmp_path):
    """The same home in another session."""
    runtime = tmp_path / "other-runtime"
    runtime.mkdir(mode=0o700)
    return {**environment, "XDG_RUNTIME_DIR": str(runtime)}


def start_again(binary, environment):
    return subprocess.run([binary], env=environment, capture_output=True, text=True, timeout=20)


def test_a_start_in_another_session_shows_the_panel_of_the_first(start, openbox, binary, elsewhere):
    program = start()
    second = start_again(binary, elsewhere)
    assert (second.returncode, second.stderr) == (0, "")
    program.wait_for_size((566, 220))


def test_a_start_that_cannot_reach_the_first_says_where_that_runs(start, openbox, binary,
                                                                  environment, elsewhere):
    program = start()
    (pathlib.Path(environment["XDG_RUNTIME_DIR"]) / "orvelle.sock").unlink()
    second = start_again(binary, elsewhere)
    assert second.returncode == 1
    assert f"process {program.process.pid} " in second.stderr
    assert f"(display {openbox.name})" in second.stderr
    assert str(pathlib.Path(environment["XDG_DATA_HOME"]) / "Orvelle") in second.stderr


def notices(desktop):
    return [node["name"] for node in accessible_nodes(desktop)
            if node["name"].startswith("Not saved: ")]


def test_a_task_that_the_disk_refuses_is_told_and_saved_later(start, openbox, environment):
    program = start(todoEnabled=True)
    limit = resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE)
    resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE, (TOO_SMALL, limit[1]))
    open_panel(program, "Todo")
    type_entry(program, "Add a task...", "stay")
    wait_until(lambda: notices(openbox) == ["Not saved: the file is too large"], "the notice",
               lambda: f"{accessible_nodes(openbox)} {program.describe()}")
    assert "stay" in names(openbox, "list item")
    path = list_file(environment, "todo_items.json")
    assert not path.exists()
    resource.prlimit(program.process.pid, resource.RLIMIT_FSIZE, limit)
    wait_until(path.exists, "the saved list", program.describe)
    assert [item["title"] for item in json.loads(path.read_text())] == ["stay"]
    wait_until(lambda: notices(openbox) == [], "no notice", program.describe)


def test_what_killed_saves_left_is_cleared(start, openbox, environment):
    data = pathlib.Path(environment["XDG_DATA_HOME"]) / "Orvelle"
    config = pathlib.Path(environment["XDG_CONFIG_HOME"]) / "orvelle"
    rests = [data / ".todo_items.json.AbC123", data / ".note_items.json.AbC123",
             data / ".stock_tickers.json.AbC123", config / ".defaults.json.AbC123",
             data / "FileShelf" / "..shelf_metadata.json.AbC123"]
    for rest in rests:
        rest.parent.mkdir(parents=True, exist_ok=True)
        rest.write_text("half")
    start()
    assert [rest for rest in rests if rest.exists()] == []
