"""What is killed while it is being saved, by two processes at once that share one folder.

ORVELLE_KILLS says how often, by default 200, spread over every kind of save; scripts/kills does it
10,000 times.
"""

import json
import os
import pathlib
import random
import re
import select
import signal
import subprocess
import time

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
KINDS = ["todo", "notes", "stocks", "shelf", "settings", "weather"]
KILLS = int(os.environ.get("ORVELLE_KILLS", 200))
LONGEST_WAIT = 20
WRITERS = ["ONE", "TWO"]


class Writer:
    def __init__(self, kind, name, folder, environment):
        program = os.environ.get("ORVELLE_LIST_WRITER", ROOT / "build/dev/orvelle_list_writer")
        self.name = name
        self.process = subprocess.Popen([program, kind, name, folder], env=environment,
                                        stdout=subprocess.PIPE)
        self.told = ""

    def read_until(self, moment):
        """What it tells until then, but at least one line with a number."""
        end = time.monotonic() + LONGEST_WAIT
        while not self.acknowledged() or time.monotonic() < moment:
            if select.select([self.process.stdout], [], [], 0.001)[0]:
                told = os.read(self.process.stdout.fileno(), 65536).decode()
                assert told, f"the writer ended with {self.process.wait()}"
                self.told += told
            assert time.monotonic() < end, "the writer saves nothing"

    def acknowledged(self):
        return max((int(line) for line in self.told.split("\n")[:-1]), default=0)

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.told += self.process.stdout.read().decode()
        self.process.wait()
        self.process.stdout.close()


def numbers(texts, name):
    return [int(text.split("-")[1]) for text in texts if text.startswith(name + "-")]


class Saved:
    """What the files of one kind hold."""

    def __init__(self, kind, home):
        self.kind = kind
        data, config = home / "Orvelle", home / "orvelle"
        self.path = {"todo": data / "todo_items.json", "notes": data / "note_items.json",
                     "stocks": data / "stock_tickers.json",
                     "shelf": data / "FileShelf" / ".shelf_metadata.json",
                     "settings": config / "defaults.json",
                     "weather": config / "defaults.json"}[kind]

    def texts(self):
        saved = json.loads(self.path.read_text())
        if self.kind == "settings":
            return list(saved.values())
        if self.kind == "weather":
            assert saved["weather_humidity"] == saved["weather_weatherCode"]
            assert saved["weather_locationName"].endswith(f"-{saved['weather_humidity']}")
            return []
        key = {"todo": "title", "notes": "text", "stocks": "symbol", "shelf": "urlPath"}[self.kind]
        texts = [item[key] for item in saved]
        if self.kind == "shelf":
            files = [pathlib.Path(text) for text in texts]
            texts = [file.name for file in files if file.exists()]
            assert all(file.read_text() == file.name for file in files if file.exists())
        return texts

    def check(self, writer):
        texts = self.texts()
        if self.kind == "weather":
            return  # the writers overwrite each other, but never a part
        there = sorted(numbers(texts, writer.name))
        assert there and there[-1] >= writer.acknowledged(), \
            f"{writer.acknowledged()} of {writer.name} is lost; there are {texts}"
        assert len(there) == len(set(there))
        if self.kind != "shelf":  # where a copy may fail that another process's disturbs
            assert there == list(range(there[0], there[-1] + 1)), "a record between is lost"

    def check_rests(self):
        names = [file.name for file in self.path.parent.iterdir()]
        assert not [name for name in names if ".corrupt" in name]
        # The shelf also notes what it removes, while its list is saved.
        files = 2 if self.kind == "shelf" else 1
        rests = [name for name in names if re.search(r"\.json\.\w{6}$", name)]
        assert len(rests) <= files * len(WRITERS)


@pytest.mark.parametrize("kind", KINDS)
def test_no_kill_during_a_save_loses_what_was_acknowledged(kind, tmp_path):
    sources = tmp_path / "sources"
    sources.mkdir()
    environment = {**os.environ, "XDG_DATA_HOME": str(tmp_path), "XDG_CONFIG_HOME": str(tmp_path)}
    chance = random.Random(kind)
    saved = Saved(kind, tmp_path)
    # A lock lets one program work on a data folder. Two would take each other's half-made copies away.
    names = WRITERS[:1] if kind == "shelf" else WRITERS
    for _ in range(-(-KILLS // len(KINDS) // len(names))):
        writers = [Writer(kind, name, sources, environment) for name in names]
        chance.shuffle(writers)
        for writer in writers:
            writer.read_until(time.monotonic() + chance.uniform(0, 0.02))
            writer.kill()
        for writer in writers:
            saved.check(writer)
        saved.check_rests()
