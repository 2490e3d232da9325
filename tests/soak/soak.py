"""Hours of use in minutes: media, hovering, tabs, typing, drops and copies without a pause, with a look
at what the program holds every ten seconds, at rest."""

import argparse
import json
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

END_TO_END = pathlib.Path(__file__).resolve().parents[1] / "e2e"
sys.path.insert(0, str(END_TO_END))

from accessible import accessible_nodes  # noqa: E402
from conftest import BUS_CONFIGURATION, ROOT  # noqa: E402
from desktop import Desktop, Program, end_process, wait_until  # noqa: E402

SETTLED = 5 * 60  # seconds; until then caches fill
SAMPLE = 10
FEATURES = ("todoEnabled", "notesEnabled", "clipboardEnabled", "systemMonitorEnabled",
            "pomodoroEnabled", "stockTickerEnabled")
COLLAPSED = (180, 32)
EXPANDED = (566, 220)


class Player:
    """A media player that changes its track whenever it is told to."""

    def __init__(self, desktop):
        self.process = desktop.spawn(
            ["/usr/bin/python3", END_TO_END.parent / "soak" / "player.py"], stdin=subprocess.PIPE,
            text=True, bufsize=1)

    def next(self):
        self.process.stdin.write("next\n")


class Soak:
    def __init__(self, folder, minutes, binary):
        self.folder = folder
        self.seconds = minutes * 60
        self.binary = binary
        self.samples = []
        self.rounds = 0

    def environment(self, bus):
        variables = {name: os.environ[name] for name in ("PATH", "LANG") if name in os.environ}
        for name in ("config", "data", "cache", "state", "runtime"):
            made = self.folder / name
            made.mkdir(mode=0o700)
            variables["XDG_RUNTIME_DIR" if name == "runtime" else
                      f"XDG_{name.upper()}_HOME"] = str(made)
        variables.update(HOME=str(self.folder), DBUS_SESSION_BUS_ADDRESS=bus,
                         QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        for root in ("FORECAST", "GEOCODING", "CHART", "SITE"):
            variables[f"ORVELLE_{root}_ROOT"] = "http://127.0.0.1:9"
        return variables

    def run(self):
        configuration = self.folder / "bus.conf"
        configuration.write_text(BUS_CONFIGURATION)
        bus = subprocess.Popen(
            ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--print-address=1"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        try:
            environment = self.environment(bus.stdout.readline().strip())
            with Desktop(environment) as self.desktop:
                self.desktop.start_window_manager()
                self.desktop.spawn(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                for key in ("hasCompletedOnboarding", *FEATURES):
                    subprocess.run([self.binary, "defaults", "write", key, "-bool", "true"],
                                   env=environment, check=True)
                self.program = Program(self.desktop, [self.binary])
                wait_until(self.program.is_shown, "panel", self.program.describe)
                self.player = Player(self.desktop)
                self.use()
                self.program.stop()
        finally:
            end_process(bus)
        return self.judge()

    def use(self):
        began = time.monotonic()
        due = began
        print("seconds  memory/MB  descriptors  X resources  views  rounds", flush=True)
        while time.monotonic() - began < self.seconds:
            self.round()
            if time.monotonic() >= due:
                due = time.monotonic() + SAMPLE
                self.sample(time.monotonic() - began)
        self.sample(time.monotonic() - began)

    def round(self):
        self.rounds += 1
        program, desktop = self.program, self.desktop
        self.player.next()
        for _ in range(3):
            program.enter()
            wait_until(lambda: program.size() != COLLAPSED, "hover bar", program.describe)
            program.leave()
            wait_until(lambda: program.size() == COLLAPSED, "closed bar", program.describe)
        self.copy(f"copied {self.rounds}")
        self.drop()
        # With the keyboard through every tab, then a word into whatever takes it, and away again.
        subprocess.run([self.binary], env=desktop.environment, check=True, timeout=20)
        program.wait_for_size(EXPANDED)
        desktop.keys(*["Right", "space"] * 3)
        desktop.type(f"word {self.rounds}")
        desktop.keys("Return", "Down", "Delete")
        desktop.keys(*["Left", "space"] * 2)
        self.close()

    def close(self):
        self.program.leave()
        self.desktop.click()
        self.program.wait_for_size(COLLAPSED)

    def copy(self, text):
        subprocess.run(["xclip", "-selection", "clipboard"], input=text, text=True,
                       env=self.desktop.environment, check=True, timeout=20)

    def drop(self):
        dropped = self.folder / "dropped.txt"
        dropped.write_text(f"round {self.rounds}")
        x, y, width, _ = self.program.geometry()
        subprocess.run(
            ["/usr/bin/python3", END_TO_END / "dragging/hostile.py",
             str(self.program.window().id), str(x + width // 2), str(y + 10),
             json.dumps({"uris": [dropped.as_uri()]})],
            env=self.desktop.environment, check=True, timeout=30, stdout=subprocess.DEVNULL)
        self.close()

    def resources(self):
        """What the program holds at the display, by the window's own client."""
        owner = self.program.window().id
        connection = self.desktop.display
        for client in connection.res_query_clients().clients:
            if client.resource_base <= owner <= client.resource_base + client.resource_mask:
                return sum(kind.count
                           for kind in connection.res_query_client_resources(owner).types)
        raise AssertionError("the program is no client of the display")

    def sample(self, at):
        time.sleep(1)  # what was closed goes with the next turns of the loop
        process = f"/proc/{self.program.process.pid}"
        taken = (at, self.program.megabytes("VmRSS"), len(os.listdir(f"{process}/fd")),
                 self.resources(), len(accessible_nodes(self.desktop)))
        self.samples.append(taken)
        print("{:7.0f}  {:9.2f}  {:11}  {:11}  {:5}".format(*taken), f" {self.rounds}", flush=True)

    def judge(self):
        """The growth between the first and the last quarter of what comes after the settling; of a
        short run the second half is taken for it."""
        start = SETTLED if self.seconds > 2 * SETTLED else self.seconds / 2
        late = [sample for sample in self.samples if sample[0] >= start]
        part = max(len(late) // 4, 1)
        first, last = late[:part], late[-part:]
        failed = False
        for index, name, bound in ((1, "memory", 0.01), (2, "descriptors", 0), (3, "X resources", 0),
                                   (4, "views", 0)):
            before = statistics.median(sample[index] for sample in first)
            after = statistics.median(sample[index] for sample in last)
            growth = (after - before) / before
            verdict = "grows" if growth > bound else "holds"
            failed |= growth > bound
            print(f"{name}: {before:.2f} to {after:.2f}, {growth:+.2%}: {verdict}")
        return failed


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--minutes", type=float, default=30)
    minutes = parser.parse_args().minutes
    binary = pathlib.Path(os.environ.get("ORVELLE_BINARY", ROOT / "build/dev/orvelle")).resolve()
    with tempfile.TemporaryDirectory() as folder:
        sys.exit(Soak(pathlib.Path(folder), minutes, binary).run())


if __name__ == "__main__":
    main()
