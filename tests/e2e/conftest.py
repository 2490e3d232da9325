"""The stage of the end-to-end tests: a display, a session bus, a home, and the program on it.

Run with Debian's own Python, /usr/bin/python3. ORVELLE_BINARY names the program, by default the
one of the preset "dev".
"""

import contextlib
import os
import pathlib
import subprocess

import pytest

from accessible import wait_until_placed
from app_windows import Settings, Wizard, open_settings
from desktop import Desktop, Probe, Program, end_process, wait_until

ROOT = pathlib.Path(__file__).resolve().parents[2]


@pytest.fixture(scope="session")
def binary():
    path = pathlib.Path(os.environ.get("ORVELLE_BINARY", ROOT / "build/dev/orvelle"))
    if not path.exists():
        pytest.fail(f"{path} is not built")
    return path


# No folders of services, so that nothing of the machine's starts by itself.
BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


@contextlib.contextmanager
def session_bus(folder):
    configuration = folder / "session-bus.conf"
    configuration.write_text(BUS_CONFIGURATION)
    daemon = subprocess.Popen(
        ["dbus-daemon", f"--config-file={configuration}", "--nofork", "--print-address=1"],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    try:
        yield daemon.stdout.readline().strip()
    finally:
        end_process(daemon)


def home(folder, bus):
    """The variables of a home in this folder."""
    kept = ("PATH", "LANG", "LC_ALL", "TZ", "ASAN_OPTIONS", "TSAN_OPTIONS", "ORVELLE_RENDERER")
    variables = {name: os.environ[name] for name in kept if name in os.environ}
    for name in ("config", "data", "cache", "state", "runtime"):
        made = folder / name
        made.mkdir(mode=0o700)
        key = "XDG_RUNTIME_DIR" if name == "runtime" else f"XDG_{name.upper()}_HOME"
        variables[key] = str(made)
    variables["HOME"] = str(folder)
    variables["DBUS_SESSION_BUS_ADDRESS"] = bus
    variables["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    # No test reaches a service beyond this machine.
    for root in ("FORECAST", "GEOCODING", "CHART", "SITE"):
        variables[f"ORVELLE_{root}_ROOT"] = "http://127.0.0.1:9"
    return variables


@pytest.fixture
def bus(tmp_path):
    """A session bus of the test's own; gives its address."""
    with session_bus(tmp_path) as address:
        yield address


@pytest.fixture
def environment(tmp_path, bus):
    """A home without history and a bus without services. Nothing of the caller's desktop is left."""
    return home(tmp_path, bus)


@pytest.fixture
def desktop(environment):
    """A bare display of 1512 by 982; the test starts a window manager or a compositor on it."""
    with Desktop(environment) as stage:
        yield stage


@pytest.fixture
def openbox(desktop):
    desktop.start_window_manager()
    return desktop


@pytest.fixture
def accessibility_bus(desktop):
    """Without its registry nobody answers for the tree."""
    return desktop.spawn(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"],
                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


@pytest.fixture
def settings(binary, environment):
    """Writes one setting the way a user does at the command line."""
    def write(key, value):
        typed = ["-bool", str(value).lower()] if isinstance(value, bool) else [str(value)]
        subprocess.run([binary, "defaults", "write", key, *typed], env=environment, check=True,
                       timeout=20)
    return write


@pytest.fixture
def start(binary, desktop, settings):
    """Starts the program, past its first-run wizard, and waits for its panel."""
    running = []

    def run(*arguments, **changes):
        settings("hasCompletedOnboarding", "true")
        for key, value in changes.items():
            settings(key, value)
        program = Program(desktop, [binary, *arguments])
        running.append(program)
        wait_until(program.is_shown, "the panel", program.describe)
        return program

    yield run
    for program in running:
        program.stop()


@pytest.fixture
def settings_window(start, openbox, accessibility_bus, binary):
    """Starts the program with these settings and opens the settings window."""
    def run(*arguments, **changes):
        program = start(*arguments, **changes)
        open_settings(program)
        return Settings(program, binary)
    return run


@pytest.fixture
def wizard(binary, openbox, accessibility_bus):
    """The first launch of a user's."""
    running = Wizard(openbox, [binary])
    window = wait_until(running.wizard, "wizard", running.describe)
    wait_until(lambda: openbox.active_window() == window.id, "keyboard for the wizard",
               running.describe)
    wait_until_placed(openbox, window)
    yield running
    running.stop()


@pytest.fixture
def probe(desktop):
    """A bare panel on which the test gives the orders; see probe/main.cpp."""
    path = os.environ.get("ORVELLE_WINDOW_PROBE", ROOT / "build/dev/orvelle_window_probe")
    started = Probe(desktop, path)
    yield started
    started.stop()
