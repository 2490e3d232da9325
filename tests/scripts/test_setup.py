"""scripts/setup on machines that are made up: tools of the same names stand first in PATH.

`apt-get --simulate` prints "Inst NAME (...)" and "Remv NAME [...]" lines, and every failure of
apt-get ends with 100, as its manual says.
"""

import os
import pathlib
import shutil
import subprocess

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]

APT_GET = """#!/bin/bash
echo "$*" >> "$MACHINE/calls"
case "$*" in
*--simulate*) for package; do cat "$MACHINE/removed-by-$package" 2> /dev/null; done ;;
*update*) [ ! -e "$MACHINE/offline" ] || { echo "E: no network" >&2; exit 100; } ;;
*download*) touch pulseaudio_16.1_all.deb ;;
esac
exit 0
"""
DPKG_QUERY = """#!/bin/bash
grep -qx "${@: -1}" "$MACHINE/missing" || echo -n "install ok installed"
"""
DPKG = """#!/bin/bash
mkdir -p usr/bin usr/lib/any/pulseaudio usr/lib/pulse-16.1/modules
touch usr/lib/any/pulseaudio/libpulsecore-16.1.so
printf '#!/bin/sh\\necho "$LD_LIBRARY_PATH $@"\\n' > usr/bin/pulseaudio
chmod +x usr/bin/pulseaudio
"""
NPM = """#!/bin/bash
echo "npm $*" >> "$MACHINE/calls"
[ ! -e "$MACHINE/offline" ] || { echo "npm ERR! ENOTFOUND" >&2; exit 1; }
mkdir -p node_modules
"""


class Machine:
    def __init__(self, folder):
        self.tree = folder / "tree"
        self.state = folder / "state"
        tools = folder / "tools"
        for made in (self.tree, self.state, tools):
            made.mkdir()
        shutil.copytree(ROOT / "scripts", self.tree / "scripts")
        shutil.copy(ROOT / "package-lock.json", self.tree)
        for name in ("missing", "calls"):
            (self.state / name).touch()
        for name, text in {"apt-get": APT_GET, "dpkg-query": DPKG_QUERY, "dpkg": DPKG, "npm": NPM,
                           "sudo": '#!/bin/bash\nexec "$@"\n'}.items():
            (tools / name).write_text(text)
            (tools / name).chmod(0o755)
        self.environment = {"PATH": f"{tools}:{os.environ['PATH']}", "MACHINE": str(self.state)}

    def lacks(self, *packages):
        (self.state / "missing").write_text("".join(f"{package}\n" for package in packages))

    def would_remove(self, package, *removed):
        (self.state / f"removed-by-{package}").write_text(
            "".join(f"Remv {name} [1.0]\n" for name in removed))

    def is_offline(self):
        (self.state / "offline").touch()

    def has_symbols(self):
        (self.tree / "node_modules").mkdir()
        shutil.copy(self.tree / "package-lock.json", self.tree / "node_modules/.orvelle-lock")

    def setup(self, *arguments):
        return subprocess.run([self.tree / "scripts/setup", *arguments], env=self.environment,
                              text=True, capture_output=True, timeout=60)

    @property
    def installed(self):
        return [call for call in (self.state / "calls").read_text().splitlines()
                if " install " in f" {call} " and "--simulate" not in call]


@pytest.fixture
def machine(tmp_path):
    return Machine(tmp_path)


def test_a_machine_that_has_all_needs_no_network_and_prints_nothing(machine):
    machine.is_offline()
    machine.has_symbols()
    done = machine.setup("tests")
    assert (done.returncode, done.stdout, done.stderr) == (0, "", "")


def test_running_needs_no_tool_of_the_tests(machine):
    machine.lacks("clang-19", "openbox", "mpv", "pulseaudio", "python3-pytest", "xvfb", "cmake")
    assert machine.setup().returncode == 0
    assert [call.split()[-1] for call in machine.installed] == ["cmake"]


def test_a_virtual_display_needs_no_tool_of_the_tests(machine):
    machine.lacks("clang-19", "openbox", "xvfb")
    assert machine.setup("display").returncode == 0
    assert [call.split()[-1] for call in machine.installed] == ["xvfb"]


def test_a_package_that_one_script_needs_is_installed_beside_the_lists(machine):
    machine.lacks("polybar", "openbox")
    assert machine.setup("tests", "polybar").returncode == 0
    assert machine.installed[0].split()[-2:] == ["polybar", "openbox"]


def test_what_would_remove_a_package_is_refused(machine):
    machine.lacks("cmake", "openbox")
    machine.would_remove("cmake", "a-desktop")
    done = machine.setup()
    assert done.returncode == 1
    assert "would remove a-desktop" in done.stderr and "cmake" in done.stderr
    assert machine.installed == []


def test_a_desktop_with_another_sound_server_keeps_it(machine):
    machine.lacks("pulseaudio", "openbox")
    machine.would_remove("pulseaudio", "pipewire-audio", "pipewire-pulse")
    assert machine.setup("tests").returncode == 0
    assert [call.split()[-1] for call in machine.installed] == ["openbox"]
    server = machine.tree / "build/peers/bin/pulseaudio"
    said = subprocess.run([server, "-n"], text=True, capture_output=True).stdout.split()
    assert said[0].endswith("/build/peers/usr/lib/any/pulseaudio")
    assert said[1].endswith("/build/peers/usr/lib/pulse-16.1/modules") and said[2] == "-n"


def test_without_a_network_it_says_what_failed_and_what_to_do(machine):
    machine.lacks("cmake")
    machine.is_offline()
    done = machine.setup()
    assert done.returncode == 1
    assert "apt-get" in done.stderr and "E: no network" in done.stderr
    assert "Is the network there" in done.stderr


def test_symbols_that_cannot_be_had_say_why(machine):
    machine.is_offline()
    done = machine.setup()
    assert done.returncode == 1
    assert "npm ci" in done.stderr and "ENOTFOUND" in done.stderr
    assert "Is the network there" in done.stderr
