"""The media panel with real peers: a player, a player that misbehaves, a sound server."""

import os
import signal

import pytest

from desktop import end_process, stays, wait_until
from media import MisbehavingPlayer, MpvPlayer, Panel, SoundServer, make_tone


@pytest.fixture
def sound(environment, tmp_path):
    folder = tmp_path / "sound"
    folder.mkdir()
    server = SoundServer(environment, folder)
    environment["PULSE_SERVER"] = server.address
    yield server
    server.stop()


@pytest.fixture
def panel(openbox):
    return Panel(openbox)


@pytest.fixture
def play(desktop, tmp_path):
    started = []

    def run(*titles, seconds=60, has_window=False):
        player = MpvPlayer(desktop, *(make_tone(tmp_path, title, seconds) for title in titles),
                           has_window=has_window)
        started.append(player)
        return player

    yield run
    for player in started:
        player.stop()


def is_red(pixel):
    red, green, blue = pixel
    return red > 150 and green < 90 and blue < 90


def test_what_mpv_plays_is_shown_with_its_cover(panel, start, play):
    program = start()
    program.expand()
    panel.shows("No media playing")
    play("A Tone")
    panel.shows("A Tone")
    panel.shows("The Generator")
    panel.shows("Test Signals")
    x, y, width, height = program.geometry()

    def has_cover():
        return any(is_red(program.desktop.pixel(x + column, y + row))
                   for column in range(10, 110, 10) for row in range(40, height - 60, 10))

    wait_until(has_cover, "cover", program.describe)


def test_the_buttons_act_on_the_player(panel, start, play):
    program = start()
    player = play("First", "Second")
    program.expand()
    panel.shows("First")
    panel.click("Pause")
    wait_until(lambda: player.status() == "Paused", "pause")
    panel.click("Play")
    wait_until(lambda: player.status() == "Playing", "play")
    panel.click("Next Track")
    wait_until(lambda: player.title() == "Second", "next track")
    panel.shows("Second")
    panel.click("Previous Track")
    panel.shows("First")


def test_the_position_advances_and_stops_at_the_duration(panel, start, play):
    program = start()
    program.expand()
    play("Short", seconds=5)
    panel.shows("Short")
    panel.shows("0:01", "0:02", "0:03")
    wait_until(lambda: panel.names().count("0:05") >= 2, "position at the duration",
               lambda: f"There is {panel.names()}")
    assert stays(lambda: "0:06" not in panel.names(), 1.5)


def test_the_volume_is_shown_and_dragged(panel, start, play, sound):
    sound.control("set-sink-volume", "speakers", "40%")
    program = start()
    play("A Tone")
    program.expand()
    panel.shows("A Tone")
    x, y, width, height = wait_until(panel.slider_box, "volume slider")
    program.desktop.move_pointer(x + width // 4, y + height // 2)
    program.desktop.press(1)
    wait_until(lambda: abs(sound.volume("speakers") - 25) <= 2, "volume of a quarter",
               lambda: f"It is {sound.volume('speakers')}")
    program.desktop.move_pointer(x + width * 3 // 4, y + height // 2)
    wait_until(lambda: abs(sound.volume("speakers") - 75) <= 2, "volume of three quarters",
               lambda: f"It is {sound.volume('speakers')}")
    program.desktop.release(1)
    assert sound.volume("headphones") == 100


def test_the_output_is_switched(panel, start, play, sound):
    program = start()
    play("A Tone")
    program.expand()
    panel.shows("A Tone")
    panel.click("Sound Output")
    panel.click("Headphones")
    wait_until(lambda: sound.control("get-default-sink") == "headphones", "other output")


def test_the_volume_shown_is_that_of_the_output_in_use(panel, start, play, sound):
    sound.control("set-sink-volume", "speakers", "80%")
    sound.control("set-sink-volume", "headphones", "20%")
    program = start()
    play("A Tone")
    program.expand()
    panel.shows("A Tone")
    x, y, width, height = wait_until(panel.slider_box, "volume slider")

    def at(fraction):
        return program.desktop.pixel(x + int(width * fraction), y + height // 2)

    wait_until(lambda: at(0.5) == at(0.05) != at(0.95), "most of the slider filled")
    sound.control("set-default-sink", "headphones")
    wait_until(lambda: at(0.5) == at(0.95) != at(0.05), "little of the slider filled")


def test_a_sound_server_that_restarts_is_found_again(panel, start, play, sound):
    program = start()
    play("A Tone")
    program.expand()
    panel.shows("A Tone")
    sound.stop()
    sound.start()

    def drags():
        x, y, width, height = panel.slider_box()
        program.desktop.move_pointer(x + width // 2, y + height // 2)
        program.desktop.click()
        return abs(sound.volume("speakers") - 50) <= 2

    wait_until(drags, "volume at the new server")
    assert "ulse" not in program.describe()


def test_without_a_sound_server_and_players_nothing_is_said_over_and_over(panel, start):
    program = start()
    program.expand()
    panel.shows("No media playing")
    assert stays(lambda: program.describe().count("\n") < 30, 3)


def test_a_player_that_closes_is_shown_at_rest(panel, start, play):
    program = start()
    player = play("A Tone")
    program.expand()
    panel.shows("Pause")
    end_process(player.process)
    panel.shows("Play")
    assert "A Tone" in panel.names()


def test_open_in_brings_the_players_window_and_starts_no_second_player(panel, start, play):
    program = start()
    desktop = program.desktop

    def windows():
        return [window for window in desktop.managed_windows() if "mpv" in window.get_wm_class()]

    play("A Tone", has_window=True)
    window, = wait_until(windows, "mpv's window")
    desktop.minimize(window)
    wait_until(lambda: not desktop.is_mapped(window), "minimized window")
    program.expand()
    panel.click("A Tone", button=3)
    panel.click("Open in mpv")
    wait_until(lambda: desktop.is_mapped(window) and desktop.active_window() == window.id,
               "mpv's window in front", program.describe)
    assert stays(lambda: len(windows()) == 1, 1.5)


def test_a_player_that_refuses_its_first_answers_is_shown(panel, start):
    program = start()
    program.expand()
    MisbehavingPlayer(program.desktop, refusals=4)
    panel.shows("Endless")


def test_a_player_that_misbehaves_does_no_harm(panel, start):
    program = start()
    player = MisbehavingPlayer(program.desktop)
    program.expand()
    panel.shows("Endless")
    wait_until(lambda: panel.names().count("0:03") >= 2, "position at the duration")
    assert stays(lambda: "0:04" not in panel.names(), 1.0)
    for behaviour in ("nonsense", "nothing", "long", "flood", "sense"):
        player.behave(behaviour)
    panel.shows("Endless")
    os.kill(player.process.pid, signal.SIGSTOP)
    program.desktop.wheel_up()
    program.leave()
    program.wait_for_size((180, 32), bound=3)
    program.expand()
    os.kill(player.process.pid, signal.SIGKILL)
    wait_until(lambda: "Endless" in panel.names(), "the last track, which an empty answer leaves")
    assert program.process.poll() is None
