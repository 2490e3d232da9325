"""A list that is killed while it is being saved. ORVELLE_KILLS says how often, by default 100."""

import json
import os
import pathlib
import random
import select
import signal
import subprocess
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
KILLS = int(os.environ.get("ORVELLE_KILLS", 100))
LONGEST_WAIT = 20


def acknowledged(process, lines, until):
    """Reads what the writer tells, until a moment; always at least one line."""
    end = time.monotonic() + LONGEST_WAIT
    while not lines or time.monotonic() < until:
        ready, _, _ = select.select([process.stdout], [], [], 0.001)
        if ready:
            told = os.read(process.stdout.fileno(), 65536).decode()
            assert told, f"the writer ended with {process.wait()}"
            lines.append(told)
        assert time.monotonic() < end, "the writer saves nothing"


def test_no_kill_during_a_save_loses_what_was_acknowledged(tmp_path):
    writer = os.environ.get("ORVELLE_LIST_WRITER", ROOT / "build/dev/orvelle_list_writer")
    environment = {**os.environ, "XDG_DATA_HOME": str(tmp_path)}
    chance = random.Random(1)
    path = tmp_path / "Orvelle" / "todo_items.json"
    for _ in range(KILLS):
        process = subprocess.Popen([writer], env=environment, stdout=subprocess.PIPE)
        lines = []
        acknowledged(process, lines, time.monotonic() + chance.uniform(0, 0.02))
        process.send_signal(signal.SIGKILL)
        lines.append(process.stdout.read().decode())
        process.wait()
        process.stdout.close()
        saved = [int(line) for line in "".join(lines).split("\n") if line]
        items = json.loads(path.read_text())
        titles = [int(item["title"]) for item in items]
        assert all(set(item) == {"createdAt", "id", "isCompleted", "title"} for item in items)
        assert titles == list(range(titles[0], titles[-1] + 1))
        assert titles[-1] >= saved[-1], "an acknowledged save is lost"
    assert not path.with_suffix(".json.corrupt").exists()
