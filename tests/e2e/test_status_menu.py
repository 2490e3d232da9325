"""The status item and its menu, as a desktop's tray shows them."""

import re

import pytest

from app_windows import WIZARD_TITLE, settings_windows
from desktop import wait_until
from tray import TrayHost, XEmbedTray

COLLAPSED = (180, 32)
NO_PLACE = "Failed to get status bar button — menu bar icon will be invisible"


@pytest.fixture
def tray(bus, environment):
    # Without a bus of the system's nobody tells of a battery.
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = "unix:path=/nonexistent"
    host = TrayHost(bus)
    yield host
    host.stop()


@pytest.fixture
def program(openbox, tray, start):
    running = start(systemMonitorEnabled=True)
    wait_until(lambda: tray.items, "status item", running.describe)
    return running


def system_info(tray):
    return next(line for line in tray.menu() if line.label == "System Info").lines


def test_the_item_names_itself_and_has_a_picture(program, tray):
    assert tray.item("ToolTip")[2] == "Orvelle"
    pictures = tray.item("IconPixmap")
    assert pictures and any(any(pixels) for _, _, pixels in pictures)
    assert "Status bar icon set" in program.describe()


def test_the_menu_s_lines_their_order_and_their_shortcuts(program, tray):
    lines = tray.menu()
    assert [line.label for line in lines] == [
        "Show Orvelle", "", "System Info", "", "Settings...", "Run Setup Wizard...",
        "Report a Bug...", "Check for Updates...", "", "Quit Orvelle"]
    assert all(line.is_enabled for line in lines if line.label)
    assert {line.label: line.shortcut for line in lines if line.shortcut} == {
        "Show Orvelle": [["Control", "N"]], "Settings...": [["Control", ","]],
        "Quit Orvelle": [["Control", "Q"]]}


def test_the_system_s_lines_are_greyed_live_and_have_pictures(program, tray):
    def labels():
        return [line.label for line in system_info(tray) if line.label]

    wait_until(lambda: re.fullmatch(r"CPU: \d+\.\d%", labels()[0]), "load", labels)
    before = labels()[1]
    taken = b"x" * (300 << 20)
    wait_until(lambda: labels()[1] != before, "other use of the memory", labels)
    del taken
    lines = system_info(tray)
    assert [bool(line.label) for line in lines] == [True, True, False, True, True, False, True,
                                                    False, True]
    patterns = [r"CPU: \d+\.\d%", r"Memory: \d+\.\d% \(\S+ [KMG]B / \S+ [KMG]B\)",
                r"Upload: \S+ \S+/s", r"Download: \S+ \S+/s",
                r"CPU Temp: (unavailable|\d+°C)", r".+"]
    for pattern, line in zip(patterns, [line for line in lines if line.label], strict=True):
        assert re.fullmatch(pattern, line.label)
        assert not line.is_enabled
        assert line.has_picture


def test_without_a_battery_the_last_line_tells_of_the_plug(program, tray):
    wait_until(lambda: system_info(tray)[-1].label == "Power: AC (no battery)", "the plug",
               lambda: system_info(tray)[-1].label)


def test_show_orvelle_opens_the_panel(program, tray):
    tray.choose("Show Orvelle")
    program.wait_for_size((566, 220))


def test_settings_chosen_twice_give_one_window(program, tray):
    desktop = program.desktop
    tray.choose("Settings...")
    window = wait_until(lambda: settings_windows(desktop), "settings",
                        program.describe)[0]
    other = desktop.open_window(100, 100, 300, 200)
    desktop.focus_window(other)
    tray.choose("Settings...")
    wait_until(lambda: desktop.active_window() == window.id, "settings in front", program.describe)
    assert len(settings_windows(desktop)) == 1


def test_the_wizard_can_be_run_again_beside_the_panel(program, tray):
    tray.choose("Run Setup Wizard...")
    wait_until(lambda: program.desktop.windows_titled(WIZARD_TITLE), "wizard", program.describe)
    assert program.size() == COLLAPSED


OPENER = """#!/bin/sh
{ grep SigBlk /proc/self/status; env; } > "$0.part"
mv "$0.part" "$0.report"
"""


def test_what_it_opens_is_started_as_by_the_desktop(openbox, tray, environment, tmp_path, start):
    opener = tmp_path / "xdg-open"
    opener.write_text(OPENER)
    opener.chmod(0o755)
    environment["PATH"] = f"{tmp_path}:{environment['PATH']}"
    program = start()
    wait_until(lambda: tray.items, "status item", program.describe)
    tray.choose("Report a Bug...")
    report = tmp_path / "xdg-open.report"
    wait_until(report.exists, "a started program", program.describe)
    blocked, *variables = report.read_text().splitlines()
    assert int(blocked.split()[1], 16) == 0, "it could not be ended by a signal"
    assert not [line for line in variables if line.startswith("QT_QPA_")]


def test_quit_ends_the_program(program, tray):
    tray.choose("Quit Orvelle")
    assert program.process.wait(10) == 0


def test_without_a_host_one_line_says_so_and_a_later_host_gets_the_item(openbox, bus, start):
    program = start()
    wait_until(lambda: NO_PLACE in program.describe(), "word of the missing tray", program.describe)
    program.expand()
    late = TrayHost(bus)
    try:
        wait_until(lambda: late.items, "status item", program.describe)
        assert late.menu()[0].label == "Show Orvelle"
    finally:
        late.stop()
    assert program.describe().count(NO_PLACE) == 1


@pytest.mark.parametrize("is_late", [False, True])
def test_a_tray_of_the_older_kind_gets_the_item(openbox, start, is_late):
    tray = None if is_late else XEmbedTray(openbox)
    program = start()
    if is_late:
        wait_until(lambda: NO_PLACE in program.describe(), "word of the missing tray",
                   program.describe)
        tray = XEmbedTray(openbox)
    wait_until(tray.icons, "status icon", program.describe)


def test_a_host_that_starts_anew_gets_the_item_again(openbox, bus, tray, start):
    program = start()
    wait_until(lambda: tray.items, "status item", program.describe)
    tray.stop()
    again = TrayHost(bus)
    try:
        wait_until(lambda: again.items, "status item once more", program.describe)
    finally:
        again.stop()
