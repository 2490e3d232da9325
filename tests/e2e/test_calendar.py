"""The calendar and the mirror with what other programs leave on the disk."""

import datetime
import os
import pathlib
import shutil
import subprocess
import zoneinfo

import pytest

from accessible import accessible_nodes, open_panel, resting_place
from desktop import wait_until

KHAL = "/usr/bin/khal"
KHAL_CONFIGURATION = """[calendars]
[[private]]
path = {path}
[locale]
timeformat = %H:%M
dateformat = %Y-%m-%d
longdateformat = %Y-%m-%d
datetimeformat = %Y-%m-%d %H:%M
longdatetimeformat = %Y-%m-%d %H:%M
local_timezone = {zone}
default_timezone = {zone}
"""
ZONE = "America/New_York"


@pytest.fixture
def khal(tmp_path, environment):
    """Adds an event that starts in some minutes and lasts an hour, as its user does."""
    if not shutil.which(KHAL):
        pytest.fail("khal is not installed")
    environment["TZ"] = ZONE
    calendar = tmp_path / "data/khal/calendars/private"
    calendar.mkdir(parents=True)
    configuration = tmp_path / "config/khal/config"
    configuration.parent.mkdir()
    configuration.write_text(KHAL_CONFIGURATION.format(path=calendar, zone=ZONE))

    def new(title, minutes, *options):
        start = (datetime.datetime.now(zoneinfo.ZoneInfo(ZONE))
                 + datetime.timedelta(minutes=minutes))
        subprocess.run([KHAL, "new", "-a", "private", *options, start.strftime("%Y-%m-%d"),
                        start.strftime("%H:%M"), "1h", title], env=environment, check=True,
                       timeout=60, stdout=subprocess.DEVNULL)

    return new


def texts(desktop):
    return [node["name"] for node in accessible_nodes(desktop) if node["name"]]


def test_an_event_that_khal_writes_appears_in_the_open_panel(desktop, accessibility_bus, khal,
                                                              start):
    program = start()
    open_panel(program, "Calendar")
    wait_until(lambda: "No upcoming events" in texts(desktop), "empty calendar",
               program.describe)
    khal("Dentist", 120, "-l", "Mill Lane")
    wait_until(lambda: "Dentist" in texts(desktop), "event", program.describe)
    shown = texts(desktop)
    assert "UPCOMING" in shown
    assert "Mill Lane" in shown
    assert "in 1 hr." in shown or "in 2 hr." in shown


def test_repeated_events_of_khal_are_there_from_the_start(desktop, accessibility_bus, khal,
                                                          start):
    khal("Standup", -30 - 7 * 24 * 60, "-r", "weekly")
    program = start()
    open_panel(program, "Calendar")
    wait_until(lambda: "Standup" in texts(desktop), "event", program.describe)
    assert "NOW" in texts(desktop)


def test_open_in_calendar_shows_the_event_s_day(desktop, accessibility_bus, environment, khal,
                                                tmp_path, start):
    told = tmp_path / "told"
    programs = tmp_path / "programs"
    programs.mkdir()
    program = programs / "gnome-calendar"
    program.write_text(f'#!/bin/sh\nprintf "%s\\n" "$@" > {told}.part && mv {told}.part {told}\n')
    program.chmod(0o755)
    environment["PATH"] = f"{programs}:{environment['PATH']}"
    environment["XDG_CURRENT_DESKTOP"] = "GNOME"
    khal("Dentist", 120)
    day = datetime.datetime.now(zoneinfo.ZoneInfo(ZONE)) + datetime.timedelta(minutes=120)

    program = start()
    open_panel(program, "Calendar")
    desktop.move_pointer(*resting_place(desktop, "Dentist", "list item"))
    desktop.click(3)
    desktop.move_pointer(*resting_place(desktop, "Open in Calendar", "menu item"))
    desktop.click()
    wait_until(told.exists, "calendar program", program.describe)
    assert told.read_text() == f"--date={day:%m/%d/%Y}\n"


def y4m(path, colors):
    """A film of one picture for each colour, (Y, Cb, Cr)."""
    width, height = 64, 48
    with open(path, "wb") as film:
        film.write(f"YUV4MPEG2 W{width} H{height} F15:1 C420jpeg\n".encode())
        for luma, blue, red in colors:
            film.write(b"FRAME\n" + bytes([luma]) * (width * height)
                       + bytes([blue]) * (width * height // 4)
                       + bytes([red]) * (width * height // 4))


def test_the_mirror_shows_the_camera_s_frames(desktop, accessibility_bus, environment, tmp_path,
                                              start):
    red, green = (81, 90, 240), (145, 54, 34)
    y4m(tmp_path / "film.y4m", [red] * 5 + [green] * 5)
    environment["ORVELLE_CAMERA_FILE"] = str(tmp_path / "film.y4m")
    program = start(mirrorEnabled="true", animationSpeed="fast")
    open_panel(program, "Mirror")
    x, y, width, height = program.geometry()
    place = (x + width // 2, y + height - 40)
    for name, strong, weak in (("red", 0, 1), ("green", 1, 0)):
        wait_until(lambda: desktop.pixel(*place)[strong] > 150 > 60 > desktop.pixel(*place)[weak],
                   f"{name} frame", program.describe)
    assert multimedia_is_absent(program), "a file needs no camera's library"


def test_no_camera_runs_while_the_panel_is_taken_away(accessibility_bus, environment, settings,
                                                      tmp_path, start):
    film = tmp_path / "film.y4m"
    y4m(film, [(81, 90, 240)] * 5)
    environment["ORVELLE_CAMERA_FILE"] = str(film)
    program = start(mirrorEnabled="true")
    open_panel(program, "Mirror")

    def camera_runs():
        files = pathlib.Path(f"/proc/{program.process.pid}/fd").iterdir()
        return any(os.path.realpath(file) == str(film) for file in files)

    wait_until(camera_runs, "camera", program.describe)
    settings("requireRealNotch", "true")
    wait_until(lambda: not program.is_shown(), "panel taken away", program.describe)
    wait_until(lambda: not camera_runs(), "end of the camera", program.describe)
    settings("requireRealNotch", "false")
    wait_until(camera_runs, "camera again", program.describe)
    program.window().unmap()  # as any other program may
    program.desktop.display.sync()
    wait_until(lambda: not camera_runs(), "end of the camera", program.describe)


def multimedia_is_absent(program):
    with open(f"/proc/{program.process.pid}/maps") as maps:
        return "Multimedia" not in maps.read()


def test_starts_without_the_camera_s_library(start):
    assert multimedia_is_absent(start(mirrorEnabled="true"))
