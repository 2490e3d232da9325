"""Measures Orvelle against polybar with the same modules, on a display of their own.

scripts/bench builds what this needs and runs it with Debian's own Python.
"""

import argparse
import contextlib
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
RELEASE = HERE.parents[1] / "build/release"
sys.path.insert(0, str(HERE.parent / "e2e"))
from desktop import Desktop, end_process  # noqa: E402

SETTLE = 8  # seconds until a program has loaded, shown and forgotten what its start needed
STARTS_A_RUN = 5
ENTERS_A_RUN = 10

MAPPED, PAINTED = "exec to mapped window, ms", "exec to painted, ms"
MEMORY = "PSS collapsed, MB"
PROCESSOR, WAKEUPS = "CPU, ms per idle minute", "wake-ups per second"
RESIZED, DRAWN = "pointer enter to resized, ms", "pointer enter to painted, ms"
# What must be held on a quiet machine, and what is aimed at.
BUDGETS = {MAPPED: (70, 50), PAINTED: (80, 55), MEMORY: (44, 37), PROCESSOR: (70, 25),
           WAKEUPS: (8, 5), RESIZED: (0.8, 0.7), DRAWN: (3, 1.8)}


@contextlib.contextmanager
def session_bus():
    daemon = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    try:
        yield daemon.stdout.readline().strip()
    finally:
        end_process(daemon)


@contextlib.contextmanager
def stage():
    """A display, a bus and a home without history; gives the environment of programs on it."""
    with tempfile.TemporaryDirectory() as home, session_bus() as bus:
        variables = {name: os.environ[name] for name in ("PATH", "LANG", "LC_ALL", "TZ")
                     if name in os.environ}
        variables |= {"HOME": home, "DBUS_SESSION_BUS_ADDRESS": bus}
        for name in ("CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "STATE_HOME", "RUNTIME_DIR"):
            folder = pathlib.Path(home, name)
            folder.mkdir(mode=0o700)
            variables[f"XDG_{name}"] = str(folder)
        for root in ("FORECAST", "GEOCODING", "CHART", "SITE"):
            variables[f"ORVELLE_{root}_ROOT"] = "http://127.0.0.1:9"
        variables["BENCH_INTERFACE"] = next(
            (name for name in sorted(os.listdir("/sys/class/net")) if name != "lo"), "lo")
        with Desktop(variables):
            yield variables


class Processes:
    """A process and all below it, as the kernel accounts for them."""

    def __init__(self, process):
        self.folders = []
        waiting = [process.pid]
        while waiting:
            folder = pathlib.Path("/proc", str(waiting.pop()))
            self.folders.append(folder)
            for children in folder.glob("task/*/children"):
                waiting += children.read_text().split()

    def memory(self):
        """MB of the proportional set size."""
        kilobytes = 0
        for folder in self.folders:
            for line in (folder / "smaps_rollup").read_text().splitlines():
                if line.startswith("Pss:"):
                    kilobytes += int(line.split()[1])
        return kilobytes / 1024

    def activity(self):
        """Milliseconds of CPU and the number of wake-ups, so far, of the threads there are."""
        milliseconds, wakeups = 0.0, 0
        for folder in self.folders:
            for task in folder.glob("task/*"):
                milliseconds += int((task / "schedstat").read_text().split()[0]) / 1e6
                for line in (task / "status").read_text().splitlines():
                    if line.startswith("voluntary_ctxt_switches:"):
                        wakeups += int(line.split()[1])
        return milliseconds, wakeups


class Bench:
    def __init__(self, meter, idle_seconds, variables):
        self.meter = meter
        self.idle_seconds = idle_seconds
        self.variables = variables
        self.log = tempfile.TemporaryFile()

    def time(self, *order):
        output = subprocess.run([self.meter, *order], env=self.variables, check=True, text=True,
                                stdout=subprocess.PIPE, stderr=self.log).stdout
        return [tuple(map(float, line.split())) for line in output.splitlines()]

    def measure(self, command, has_hover):
        """One run: a list of values by what they are of."""
        starts = [self.time("start", *command)[0] for _ in range(STARTS_A_RUN)]
        values = {MAPPED: [start[0] for start in starts], PAINTED: [start[1] for start in starts]}
        process = subprocess.Popen(command, env=self.variables, stdout=self.log, stderr=self.log)
        try:
            time.sleep(SETTLE)
            processes = Processes(process)
            values[MEMORY] = [processes.memory()]
            start, before = time.monotonic(), processes.activity()
            time.sleep(self.idle_seconds)
            seconds, after = time.monotonic() - start, processes.activity()
            values[PROCESSOR] = [(after[0] - before[0]) * 60 / seconds]
            values[WAKEUPS] = [(after[1] - before[1]) / seconds]
            if has_hover:
                enters = self.time("enter", str(ENTERS_A_RUN))
                values |= {RESIZED: [enter[0] for enter in enters],
                           DRAWN: [enter[1] for enter in enters]}
        finally:
            end_process(process)
        return values


def gather(bench, programs, runs):
    """The medians of all runs; the programs take turns, so that a busy spell meets both."""
    gathered = {name: {} for name in programs}
    for run in range(runs):
        for name, (command, has_hover) in programs.items():
            print(f"run {run + 1} of {runs}: {name}", file=sys.stderr)
            for what, values in bench.measure(command, has_hover).items():
                gathered[name].setdefault(what, []).extend(values)
    return {name: {what: statistics.median(values) for what, values in of_program.items()}
            for name, of_program in gathered.items()}


def print_table(medians, reference):
    others = [name for name in medians if name != reference]
    header = ["", *medians, *(f"{name} / {reference}" for name in others), "must", "aim"]
    rows = [header]
    for what, (must, aim) in BUDGETS.items():
        row = [what]
        row += [f"{values[what]:.2f}" if what in values else "" for values in medians.values()]
        for name in others:
            base = medians[reference].get(what)
            row.append(f"{medians[name][what] / base:.2f}" if base else "")
        rows.append([*row, f"{must:g}", f"{aim:g}"])
    widths = [max(len(row[column]) for row in rows) for column in range(len(header))]
    for row in rows:
        print(row[0].ljust(widths[0]),
              *(cell.rjust(width) for cell, width in zip(row[1:], widths[1:])), sep="  ")


def main():
    parser = argparse.ArgumentParser(prog="scripts/bench", description=__doc__.splitlines()[0])
    parser.add_argument("--runs", type=int, default=3, help="medians are taken of so many")
    parser.add_argument("--idle", type=float, default=20, metavar="SECONDS",
                        help="how long a run watches an idle program")
    parser.add_argument("programs", nargs="*", type=pathlib.Path, metavar="ORVELLE",
                        default=[RELEASE / "orvelle"], help="builds of Orvelle to measure")
    arguments = parser.parse_args()

    programs = {"polybar": (["polybar", "--quiet", f"--config={HERE / 'polybar.ini'}", "bench"],
                            False)}
    with stage() as variables:
        for number, path in enumerate(arguments.programs):
            name = "Orvelle" if number == 0 else f"Orvelle {number + 1}"
            programs[name] = ([str(path)], True)
        for key in ("hasCompletedOnboarding", "systemMonitorEnabled"):
            subprocess.run([arguments.programs[0], "defaults", "write", key, "-bool", "true"],
                           env=variables, check=True)
        bench = Bench(RELEASE / "orvelle_window_meter", arguments.idle, variables)
        print_table(gather(bench, programs, arguments.runs), "polybar")


if __name__ == "__main__":
    main()
